#ifndef TESTS_SOAK_LISTENERS_H
#define TESTS_SOAK_LISTENERS_H

#include <deque>
#include <memory>
#include <vector>

#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>

#include "glib/OwnedId.h"
#include "soak/EventSequence.h"

namespace btsoak {

/// The listeners of an application: some that stay, and others that come and go, some of them in callbacks.
/// Prints a line for each event that is missing or in the wrong place, and for each mark that all who stay
/// have heard. Everything runs on the loop's thread.
class Listeners {
 public:
  Listeners();
  ~Listeners();
  Listeners(const Listeners&) = delete;
  Listeners& operator=(const Listeners&) = delete;

  long Deliveries() const { return m_deliveries; }
  long HaveCome() const { return m_haveCome; }

 private:
  class Com;
  class Phone;

  void Hear(Com& listener, const std::string& text);
  void LetOneComOrGo();

  long m_deliveries = 0;
  long m_haveCome = 0;
  std::size_t m_haveHeardMark = 0;
  std::vector<std::unique_ptr<Com>> m_stay;
  std::vector<std::unique_ptr<Phone>> m_stayOfPhone;
  std::deque<std::unique_ptr<Com>> m_passers;
  OwnedSourceId m_timer;  ///< the last: it ends first
};

}  // namespace btsoak

#endif
