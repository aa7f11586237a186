#include "contract/EventCases.h"

#include <limits>
#include <tuple>
#include <type_traits>

#include <bluetooth/IMWPBtBleListener.h>
#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtMessageListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/IMWPBtSppListener.h>

#include "contract/ValueText.h"

namespace bttest {
namespace {

using Bytes = std::vector<unsigned char>;

/// The values of one event, one parameter after the other, and what a listener notes of them.
class EventValues {
 public:
  /// Bytes, as a pointer or a vector, are followed by their number. Enumerations get values that they do not
  /// have.
  template <typename Param>
  std::decay_t<Param> Next() {
    using Value = std::decay_t<Param>;
    ++m_place;
    if constexpr (std::is_same_v<Value, std::string>) {
      return Noted(std::string("M\u00fcller ") + static_cast<char>('0' + m_place));
    } else if constexpr (std::is_same_v<Value, char*> || std::is_same_v<Value, Bytes>) {
      m_lengthIsNext = true;
      m_texts.push_back(ValueText::Of(std::string(m_buffer.begin(), m_buffer.end())));
      if constexpr (std::is_same_v<Value, char*>) {
        return reinterpret_cast<char*>(m_buffer.data());
      } else {
        return m_buffer;
      }
    } else if constexpr (std::is_enum_v<Value>) {
      return Noted(static_cast<Value>(200 + m_place));
    } else {
      if (m_lengthIsNext) {
        m_lengthIsNext = false;
        return static_cast<Value>(m_buffer.size());
      }
      using Limits = std::numeric_limits<Value>;
      return Noted(static_cast<Value>(m_place % 2 == 0 ? Limits::min() + m_place : Limits::max() - m_place));
    }
  }

  const std::vector<std::string>& Texts() const { return m_texts; }

 private:
  template <typename Value>
  Value Noted(Value value) {
    m_texts.push_back(ValueText::Of(value));
    return value;
  }

  Bytes m_buffer{'a', 0, 255};
  std::vector<std::string> m_texts;
  int m_place = 0;
  bool m_lengthIsNext = false;
};

template <typename... Params>
EventCase Case(MWPBtListenerType kind, const char* name, void (MWPBtClient::*event)(Params...)) {
  EventValues values;
  (static_cast<void>(values.Next<Params>()), ...);
  const auto call = [event](MWPBtClient& client) {
    EventValues source;
    std::tuple<std::decay_t<Params>...> arguments{source.Next<Params>()...};
    std::apply([&](auto&... argument) { (client.*event)(argument...); }, arguments);
  };
  return {name, kind, call, values.Texts()};
}

// The kinds by the names that the listener interfaces have for them.
constexpr MWPBtListenerType kCom = COM_LISTENER;
constexpr MWPBtListenerType kPhone = HFP_LISTENER;
constexpr MWPBtListenerType kMedia = MEDIA_LISTENER;
constexpr MWPBtListenerType kPbap = PBAP_LISTENER;
constexpr MWPBtListenerType kMessage = MAP_LISTENER;
constexpr MWPBtListenerType kSpp = SPP_LISTENER;
constexpr MWPBtListenerType kBle = BLE_LISTENER;

}  // namespace

const std::vector<EventCase>& EventCases() {
  // An event that the client does not hand to its listeners stops the compiler here.
#define BT_EVENT(Kind, Event) Case(k##Kind, #Event, &MWPBtClient::Event),
  static const std::vector<EventCase> cases{
#include "derived/events.inc"
  };
#undef BT_EVENT
  return cases;
}

}  // namespace bttest
