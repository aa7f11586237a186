#include "soak/Listeners.h"

#include <cstdio>

#include <glib.h>

namespace btsoak {
namespace {

constexpr int kStay = 4;  ///< of each kind
constexpr std::size_t kPassers = 3;
constexpr unsigned int kMillisecondsBetweenPassers = 20;
constexpr int kNumbersBetweenPassers = 16;  ///< one comes or goes in the callback

}  // namespace

class Listeners::Com : public IMWPBtComListener {
 public:
  Com(Listeners& all, bool stays) : stays(stays), m_all(all) {}

  void OnOperatorNameChanged(const std::string& name) override { m_all.Hear(*this, name); }
  void OnBtAttributeChanged(MWPBtType::Attribute, const std::string&) override { ++m_all.m_deliveries; }

  const bool stays;
  EventSequence heard;

 private:
  Listeners& m_all;
};

class Listeners::Phone : public IMWPBtPhoneListener {
 public:
  explicit Phone(Listeners& all) : m_all(all) {}

  void OnBtSignalChanged(unsigned char) override { ++m_all.m_deliveries; }

 private:
  Listeners& m_all;
};

Listeners::Listeners() {
  for (int i = 0; i < kStay; ++i) {
    m_stay.push_back(std::make_unique<Com>(*this, true));
    m_stayOfPhone.push_back(std::make_unique<Phone>(*this));
  }
  m_timer.reset(g_timeout_add(
      kMillisecondsBetweenPassers,
      [](gpointer self) -> gboolean {
        static_cast<Listeners*>(self)->LetOneComOrGo();
        return G_SOURCE_CONTINUE;
      },
      this));
}

Listeners::~Listeners() = default;

void Listeners::Hear(Com& listener, const std::string& text) {
  ++m_deliveries;
  const std::optional<NumberedEvent> event = NumberedEvent::From(text);
  if (!event) {
    return;  // what the phone's network is really called
  }
  const std::string complaint = listener.heard.Hear(*event);
  if (!complaint.empty()) {
    std::printf("wrong %s\n", complaint.c_str());
  }
  if (event->mark && listener.stays && ++m_haveHeardMark == m_stay.size()) {
    m_haveHeardMark = 0;
    std::printf("mark %d %d\n", event->service, event->number);
  }
  // The first of those that stay does it: a passer may be gone after it.
  if (event->number % kNumbersBetweenPassers == 0 && &listener == m_stay.front().get()) {
    LetOneComOrGo();
  }
}

void Listeners::LetOneComOrGo() {
  if (m_passers.size() < kPassers) {
    m_passers.push_back(std::make_unique<Com>(*this, false));
    ++m_haveCome;
  } else {
    m_passers.pop_front();
  }
}

}  // namespace btsoak
