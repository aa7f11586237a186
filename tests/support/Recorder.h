#ifndef TESTS_SUPPORT_RECORDER_H
#define TESTS_SUPPORT_RECORDER_H

#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/GlibHelpers.h"

namespace bttest {

/// A call that the service received.
struct RecordedCall {
  std::string method;
  OwnedVariant arguments;  ///< a tuple
};

/// A recording Bluetooth service, a second process on the session bus (see BusDaemon).
///
/// Methods and signals are given by their D-Bus names, values as tuples of the described types, which may be
/// floating. A name or type that the interface does not describe throws. All of it may be used from any
/// thread, also while a request to the service blocks: it goes over a connection of its own.
class Recorder {
 public:
  enum class Name { OWNED, NOT_YET };

  /// Starts the process and waits until it can be called, and owns the service's name if it should.
  explicit Recorder(Name name = Name::OWNED);
  ~Recorder();
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  // What methods answer. Zeros and empty texts, at once, unless told otherwise.
  void SetReply(const std::string& method, GVariant* reply);
  void FailNext(const std::string& method, unsigned count = 1,
                const std::string& error = "org.freedesktop.DBus.Error.Failed",
                const std::string& message = "told to fail");
  void ReplyWrongType(const std::string& method);
  /// No answer until Release(), which also answers the calls that wait.
  void Hang(const std::string& method);
  void Release(const std::string& method);
  void Delay(const std::string& method, std::chrono::milliseconds delay);
  /// The process ends, with status 9, when the method is called.
  void DieOn(const std::string& method);
  void Reset();

  /// The calls since the last time, in order.
  std::vector<RecordedCall> TakeCalls();
  /// The same as texts, such as "SetPower(byte 0x01,)": the method and its arguments as GVariant prints them.
  std::vector<std::string> TakeCallTexts();
  /// Waits until there are so many calls to take.
  bool WaitForCalls(unsigned count, std::chrono::milliseconds bound = kBound);

  /// Sends a signal; it is on its way when this returns. Several arrive in order.
  void Emit(const std::string& signal, GVariant* arguments, unsigned times = 1);
  /// The same, whatever the name and the values.
  void EmitRaw(const std::string& signal, GVariant* arguments);

  void OwnName();
  void ReleaseName();
  /// Ends the process in an orderly way, or as a crash would.
  void Quit();
  void Kill() { m_process.Kill(); }

  ChildProcess& Process() { return m_process; }

 private:
  OwnedVariant Call(const char* method, GVariant* arguments = nullptr);

  ChildProcess m_process;
  std::string m_busName;
  OwnedObject<GDBusConnection> m_connection;
};

}  // namespace bttest

#endif
