#include "tests/async/RequestTable.h"

#include <deque>
#include <limits>
#include <map>
#include <ostream>
#include <stdexcept>
#include <tuple>
#include <type_traits>
#include <utility>

#include "contract/ValueText.h"
#include "contract/WireValues.h"
#include "support/InterfaceDescription.h"
#include "tests/async/AsyncFixture.h"

namespace bttest {
namespace {

using btasync::Address;
using btasync::Answer;
using btasync::Bytes;
using btasync::PinCode;
using btasync::Request;
using btasync::Service;
using btasync::Text;

// ----- Values for parameters

constexpr int kOrdinary = 0;
constexpr int kZero = 1;
constexpr int kLargest = 2;

std::string MakeDigits(std::size_t place, int variety) {
  const char* const digits[] = {"1234", "", "1234567890123456", "0000"};
  return variety == kOrdinary ? digits[variety] + std::to_string(place) : digits[variety];
}

std::string MakeAddress(std::size_t place, int variety) {
  const char* const starts[] = {"00:1A:7D:DA:71:1", "00:00:00:00:00:0", "FF:FF:FF:FF:FF:F",
                                "ab:cd:ef:0a:1b:c"};
  return starts[variety] + std::to_string(place);
}

std::string MakeText(std::size_t place, int variety) {
  switch (variety) {
    case kOrdinary:
      return "text " + std::to_string(place);
    case kZero:
      return "";
    case kLargest:
      return std::string(10000 + place, 'x');
    default:
      return "M\u00fcller \u260e \u6f22\u5b57 \U0001f4de " + std::to_string(place);
  }
}

Bytes MakeBytes(std::size_t place, int variety) {
  if (variety == kOrdinary) {
    return {1, 0, 255, static_cast<unsigned char>(place)};
  }
  return Bytes(variety == kZero ? 0 : 5000 + place, static_cast<unsigned char>(variety));
}

template <typename Number>
Number MakeNumber(std::size_t place, int variety) {
  switch (variety) {
    case kOrdinary:
      return static_cast<Number>(1 + place);
    case kZero:
      return 0;
    case kLargest:
      return std::numeric_limits<Number>::max();
    default:
      return std::numeric_limits<Number>::min();
  }
}

/// Makes the arguments of one call. Must outlive it.
class ParameterSource {
 public:
  explicit ParameterSource(int variety) : m_variety(variety) {}

  template <typename Param>
  std::decay_t<Param> Next() {
    using Value = std::decay_t<Param>;
    const std::size_t place = m_next++;
    if constexpr (std::is_same_v<Value, Text>) {
      return m_texts.emplace_back(MakeText(place, m_variety));
    } else if constexpr (std::is_same_v<Value, Address>) {
      return Address(MakeAddress(place, m_variety));
    } else if constexpr (std::is_same_v<Value, PinCode>) {
      return PinCode(MakeDigits(place, m_variety));
    } else if constexpr (std::is_same_v<Value, Bytes>) {
      return MakeBytes(place, m_variety);
    } else if constexpr (std::is_same_v<Value, MWPTypePlayMode>) {
      MWPTypePlayMode mode;
      mode.nType = MakeNumber<unsigned char>(place, m_variety);
      mode.nValue = MakeNumber<unsigned char>(place + 1, m_variety);
      return mode;
    } else if constexpr (std::is_same_v<Value, std::chrono::milliseconds>) {
      return std::chrono::milliseconds(MakeNumber<int>(place, m_variety));
    } else if constexpr (std::is_same_v<Value, bool>) {
      return (static_cast<int>(place) + m_variety) % 2 == 0;
    } else if constexpr (std::is_enum_v<Value>) {
      return static_cast<Value>(MakeNumber<unsigned char>(place, m_variety));
    } else {
      return MakeNumber<Value>(place, m_variety);
    }
  }

 private:
  int m_variety;
  std::size_t m_next = 0;
  std::deque<std::string> m_texts;  ///< what is viewed
};

// ----- What has to arrive

/// Makes an argument of the interface's type out of a parameter, floating.
using ArgumentMaker = std::function<GVariant*(const std::string& signature)>;

GVariant* OfNumber(const std::string& signature, long long number) {
  if (signature == "y") {
    return g_variant_new_byte(static_cast<guint8>(number));
  }
  if (signature == "b") {
    return g_variant_new_boolean(number != 0);
  }
  if (signature == "i") {
    return g_variant_new_int32(static_cast<gint32>(number));
  }
  throw std::logic_error("a number, where the interface has " + signature);
}

GVariant* OfText(const std::string& signature, const std::string& text) {
  if (signature != "s") {
    throw std::logic_error("a text, where the interface has " + signature);
  }
  return g_variant_new_string(text.c_str());
}

template <typename Value>
ArgumentMaker MakerOf(const Value& value) {
  if constexpr (std::is_same_v<Value, Text>) {
    return [text = std::string(value.Begin(), value.Size())](const std::string& signature) {
      return OfText(signature, text);
    };
  } else if constexpr (std::is_same_v<Value, Address> || std::is_same_v<Value, PinCode>) {
    return [text = value.ToText()](const std::string& signature) { return OfText(signature, text); };
  } else if constexpr (std::is_same_v<Value, Bytes>) {
    return [value](const std::string&) {
      return g_variant_new_variant(
          g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, value.data(), value.size(), 1));
    };
  } else if constexpr (std::is_same_v<Value, MWPTypePlayMode>) {
    return [value](const std::string&) { return g_variant_new("(yy)", value.nType, value.nValue); };
  } else if constexpr (std::is_same_v<Value, std::chrono::milliseconds>) {
    // An interval below 0 is one of 0.
    return
        [ms = value.count()](const std::string& signature) { return OfNumber(signature, ms < 0 ? 0 : ms); };
  } else {
    return
        [value](const std::string& signature) { return OfNumber(signature, static_cast<long long>(value)); };
  }
}

/// The parameters in the order of the method's arguments, where they are not one by one the same.
std::vector<ArgumentMaker> Arranged(const std::string& member, const std::vector<ArgumentMaker>& parameters) {
  if (member == "AnswerPair") {  // the address comes first in C++, the PIN on the bus
    return {parameters.at(2), parameters.at(0), parameters.at(1)};
  }
  if (member == "DeletePairedDevice") {
    return {parameters.at(0), MakerOf(true)};
  }
  if (member == "Play") {  // no other command
    return {MakerOf(0)};
  }
  return parameters;
}

// ----- What comes back

using Values = std::vector<std::string>;

template <typename Value>
Values ValuesOf(const Value& value) {
  if constexpr (std::is_same_v<Value, Address>) {
    return {ValueText::Of(value.ToText())};
  } else if constexpr (std::is_same_v<Value, btasync::Accepted>) {
    return {};
  } else if constexpr (std::is_same_v<Value, btasync::ConnectionState>) {
    return {ValueText::Of(value.status), ValueText::Of(value.address.ToText())};
  } else if constexpr (std::is_same_v<Value, btasync::PlayPosition>) {
    return {ValueText::Of(value.position), ValueText::Of(value.length)};
  } else if constexpr (std::is_same_v<Value, MWPTypeMediaInfo>) {
    return {ValueText::Of(value.title),   ValueText::Of(value.artist),      ValueText::Of(value.album),
            ValueText::Of(value.track),   ValueText::Of(value.numOfTracks), ValueText::Of(value.genre),
            ValueText::Of(value.duration)};
  } else if constexpr (std::is_same_v<Value, MWPTypeDevice>) {
    return {ValueText::Of(value.strName),        ValueText::Of(value.strAddr),
            ValueText::Of(value.eProfileId),     ValueText::Of(value.eEnableProfileId),
            ValueText::Of(value.eConnectStatus), ValueText::Of(value.eSupportType)};
  } else {
    return {ValueText::Of(value)};
  }
}

template <typename T>
Outcome OutcomeOf(const Answer<T>& answer) {
  if (answer.Failed()) {
    return {Outcome::FAILED, {}, answer.Why()};
  }
  return answer.Refused() ? Outcome{Outcome::REFUSED, {}} : Outcome{Outcome::ACCEPTED, ValuesOf(*answer)};
}

/// Values that stand for "there is none", by the header: that of a place of the reply.
const std::map<std::string, std::pair<std::size_t, std::function<bool(const std::string& value)>>>&
NoneRules() {
  static const std::map<std::string, std::pair<std::size_t, std::function<bool(const std::string&)>>> rules{
      {"GetPairedDeviceName", {0, [](const std::string& name) { return name == "''"; }}},
      {"GetPairedDeviceIndex", {0, [](const std::string& index) { return index.front() == '-'; }}},
      {"GetPairedDevice", {1, [](const std::string& address) { return address == "''"; }}},
  };
  return rules;
}

template <typename T>
Outcome ExpectedOf(const std::string& member, GVariant* reply) {
  Values values = TextsOf(reply);
  const std::size_t count = ValuesOf(T()).size();
  if (values.size() == count + 1) {  // the last one says whether there is one
    if (values.back() == "0") {
      return {Outcome::REFUSED, {}};
    }
    values.pop_back();
  }
  if (values.empty() && std::is_same_v<T, btasync::Accepted>) {
    return {Outcome::ACCEPTED, {}};
  }
  if (values.size() != count) {
    throw std::logic_error(member + ": the answer has " + std::to_string(count) + " values, the reply " +
                           std::to_string(values.size()));
  }
  const auto rule = NoneRules().find(member);
  if (rule != NoneRules().end() && rule->second.second(values.at(rule->second.first))) {
    return {Outcome::REFUSED, {}};
  }
  if constexpr (std::is_same_v<T, bool>) {
    values.front() = values.front() == "0" ? "0" : "1";
  }
  return {Outcome::ACCEPTED, values};
}

// ----- Arguments that cannot travel

constexpr std::size_t kTooLong = (std::size_t{64} << 20) + 1;

/// What a parameter of a type must not be, each with words.
template <typename Value>
std::vector<std::pair<std::string, Value>> UnfitValues() {
  std::vector<std::pair<std::string, Value>> values;
  if constexpr (std::is_same_v<Value, Text>) {
    static const std::string nul("a\0b", 3);
    static const std::string tooLong(kTooLong, 'x');
    values = {{"null", static_cast<const char*>(nullptr)},
              {"a NUL inside", nul},
              {"not UTF-8", "caf\xe9"},
              {"a cut character", "caf\xc3"},
              {"more than 64 MiB", tooLong}};
  } else if constexpr (std::is_same_v<Value, Address>) {
    for (const std::string& text :
         {std::string(), std::string("Ada's phone"), std::string("00:1A:7D:DA:71:1"),
          std::string("00:1A:7D:DA:71:13:"), std::string("00:1A:7D:DA:71:1G"), std::string("001A7DDA7113"),
          std::string("00:1A:7D:DA:71:13\0", 18), std::string("00-1A-7D-DA-71-13")}) {
      values.emplace_back("the address '" + text + "'", text);
    }
  } else if constexpr (std::is_same_v<Value, PinCode>) {
    for (const std::string& digits : {std::string("12a4"), std::string(17, '1'), std::string("12 4"),
                                      std::string("\xd9\xa1"), std::string("12\0", 3), std::string("-123")}) {
      values.emplace_back("the PIN '" + digits + "'", digits);
    }
  } else if constexpr (std::is_same_v<Value, Bytes>) {
    values = {{"more than 64 MiB", Bytes(kTooLong)}};
  } else if constexpr (std::is_same_v<Value, MWPTypePlayMode>) {
    for (const auto& [type, value] :
         {std::pair(256, 1), std::pair(1, 256), std::pair(-1, 1), std::pair(1, -1)}) {
      MWPTypePlayMode mode;
      mode.nType = type;
      mode.nValue = value;
      values.emplace_back("the mode " + ValueText::Of(mode), mode);
    }
  } else if constexpr (std::is_enum_v<Value>) {
    values = {{"an enumerator of 256", static_cast<Value>(256)}, {"one of -1", static_cast<Value>(-1)}};
  }
  return values;
}

// ----- The table

template <typename T, typename... Params>
class Member {
 public:
  using Function = Request<T> (Service::*)(Params...);
  using Parameters = std::tuple<std::decay_t<Params>...>;

  static Parameters Make(ParameterSource& source) {
    return Parameters{source.Next<Params>()...};  // braces: one after the other
  }

  static Outcome Ask(Service& service, Function function, const Parameters& parameters) {
    return OutcomeOf(
        Wait(std::apply([&](const auto&... value) { return (service.*function)(value...); }, parameters)));
  }

  static OwnedVariant ArgumentsOf(const std::string& member, const std::string& method, int variety) {
    ParameterSource source(variety);
    const Parameters parameters = Make(source);
    const std::vector<ArgumentMaker> makers = Arranged(
        member, std::apply([](const auto&... value) { return std::vector<ArgumentMaker>{MakerOf(value)...}; },
                           parameters));
    const Arguments& in = BluetoothInterface().Method(method).in;
    if (makers.size() != in.size()) {
      throw std::logic_error("Service::" + member + " has " + std::to_string(makers.size()) + " values for " +
                             method + ", which takes " + std::to_string(in.size()) +
                             ": RequestTable.cpp has to know how they are arranged (Arranged)");
    }
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE_TUPLE);
    for (std::size_t i = 0; i < in.size(); ++i) {
      g_variant_builder_add_value(&builder, makers[i](in[i].signature));
    }
    return OwnedVariant(g_variant_builder_end(&builder));
  }

  template <std::size_t place>
  static void AddUnfit(std::vector<UnfitCall>& calls, Function function) {
    using Value = std::tuple_element_t<place, Parameters>;
    for (const auto& [what, value] : UnfitValues<Value>()) {
      const auto ask = [function, value = value](Service& service) {
        ParameterSource source(kOrdinary);
        Parameters parameters = Make(source);
        std::get<place>(parameters) = value;
        return Ask(service, function, parameters);
      };
      calls.push_back({"parameter " + std::to_string(place) + ": " + what, ask});
    }
  }

  template <std::size_t... places>
  static std::vector<UnfitCall> Unfit([[maybe_unused]] Function function, std::index_sequence<places...>) {
    std::vector<UnfitCall> calls;
    (AddUnfit<places>(calls, function), ...);
    return calls;
  }
};

template <typename T, typename... Params>
RequestRow MakeRow(const std::string& member, const std::string& method,
                   Request<T> (Service::*function)(Params...)) {
  using Called = Member<T, Params...>;
  RequestRow row;
  row.member = member;
  row.method = method;
  row.ask = [function](Service& service, int variety) {
    ParameterSource source(variety);
    return Called::Ask(service, function, Called::Make(source));
  };
  row.arguments = [member, method](int variety) { return Called::ArgumentsOf(member, method, variety); };
  row.expected = [member](GVariant* reply) { return ExpectedOf<T>(member, reply); };
  row.unfit = [function] { return Called::Unfit(function, std::index_sequence_for<Params...>()); };
  return row;
}

}  // namespace

bool operator==(const Outcome& one, const Outcome& other) {
  return one.kind == other.kind && one.values == other.values &&
         (one.kind != Outcome::FAILED || one.failure.reason == other.failure.reason);
}

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  switch (outcome.kind) {
    case Outcome::ACCEPTED:
      return out << "accepted (" << ValueText::Joined(outcome.values) << ")";
    case Outcome::REFUSED:
      return out << "refused";
    default:
      return out << "failed: " << btasync::ToText(outcome.failure.reason) << " (" << outcome.failure.detail
                 << ")";
  }
}

const std::vector<RequestRow>& RequestTable() {
  static const std::vector<RequestRow> rows{
#define BT_ASYNC_REQUEST(Function, method) MakeRow(#Function, method, &Service::Function),
#include "derived/async_requests.inc"
#undef BT_ASYNC_REQUEST
  };
  return rows;
}

}  // namespace bttest
