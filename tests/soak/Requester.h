#ifndef TESTS_SOAK_REQUESTER_H
#define TESTS_SOAK_REQUESTER_H

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "soak/Requests.h"

namespace btsoak {

/// What all requesters of a process have done.
struct RequestCounts {
  std::atomic<long> calls{0};   ///< over the bus
  std::atomic<long> late{0};    ///< of these, answered late
  std::atomic<long> reads{0};   ///< of shared memory
  std::atomic<long> failed{0};  ///< of the calls
};

/// Holds requesters up, so that nothing of what they have in hand counts as memory in use.
class Gate {
 public:
  void Enter();  ///< waits until it is open
  void Leave();
  void Close();  ///< waits until nobody is inside
  void Open();

 private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  bool m_isOpen = true;
  int m_inside = 0;
};

/// Notes which requests of this thread log that their call failed. Takes the log of the whole process.
void WatchLog();

/// A thread that makes its requests in turn, at most so many in a second, until the object's end. Prints a
/// line for each that fails, with its time, and for each whose answer is wrong.
class Requester {
 public:
  Requester(const std::vector<KnownRequest>& requests, int perSecond, Gate& gate, RequestCounts& counts);
  ~Requester();
  Requester(const Requester&) = delete;
  Requester& operator=(const Requester&) = delete;

 private:
  void Run();
  void Make(const KnownRequest& request);

  const std::vector<KnownRequest>& m_requests;
  const std::chrono::microseconds m_interval;
  Gate& m_gate;
  RequestCounts& m_counts;
  std::atomic<bool> m_isEnding{false};
  std::thread m_thread;
};

}  // namespace btsoak

#endif
