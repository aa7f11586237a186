#ifndef TESTS_CONTRACT_VALUETEXT_H
#define TESTS_CONTRACT_VALUETEXT_H

#include <list>
#include <string>
#include <type_traits>
#include <vector>

#include <bluetooth/MWPBtRecords.h>

namespace bttest {

/// Values of the interface as texts: tests compare and show these. Numbers and enumerations are as they are,
/// texts in quotes, records in braces, lists in brackets.
class ValueText {
 public:
  template <typename Number,
            typename = std::enable_if_t<std::is_integral_v<Number> || std::is_enum_v<Number>>>
  static std::string Of(Number number) {
    return std::to_string(static_cast<long long>(number));
  }
  static std::string Of(const std::string& text) { return "'" + text + "'"; }
  /// Of a buffer of unknown length there is nothing to compare.
  static std::string Of(const void*) { return "buffer"; }
  template <typename Item>
  static std::string Of(const std::list<Item>& items) {
    return OfItems(items);
  }
  template <typename Item>
  static std::string Of(const std::vector<Item>& items) {
    return OfItems(items);
  }

  static std::string Of(const MWPTypeDevice& d) {
    return OfRecord(d.strAddr, d.strName, d.vecExtraInfo, d.eSupportType, d.eProfileId, d.eEnableProfileId,
                    d.eConnectStatus);
  }
  static std::string Of(const MWPTypeContactNumber& n) { return OfRecord(n.nType, n.vecValues); }
  static std::string Of(const MWPTypeContact& c) {
    return OfRecord(c.nContactId, c.strText1, c.strText2, c.listNumbers);
  }
  static std::string Of(const MWPTypeCallLog& l) {
    return OfRecord(l.nLogId, l.strText1, l.strText2, l.strText3, l.strText4, l.strText5, l.nValue1,
                    l.nValue2);
  }
  static std::string Of(const MWPTypeCallSlot& s) {
    return OfRecord(s.nValue1, s.nValue2, s.nValue3, s.nValue4, s.strText1, s.strText2, s.strText3,
                    s.nValue5);
  }
  static std::string Of(const MWPTypeCallInfo& i) { return OfRecord(i.nCallCount, i.callSlot1, i.callSlot2); }
  static std::string Of(const MWPTypeMediaInfo& i) {
    return OfRecord(i.title, i.artist, i.album, i.track, i.numOfTracks, i.genre, i.duration);
  }
  static std::string Of(const MWPTypePlayMode& m) { return OfRecord(m.nType, m.nValue); }
  static std::string Of(const MWPTypeConnectionState& s) { return OfRecord(s.status, s.address); }
  static std::string Of(const MWPTypeMessage& m) {
    return OfRecord(m.strText1, m.nValue1, m.strText2, m.strText3, m.strText4, m.strText5, m.strText6,
                    m.nValue2);
  }
  static std::string Of(const MWPTypeMediaItem& i) {
    return OfRecord(i.strUid, i.strName, i.nType, i.bPlayable);
  }
  static std::string Of(const MWPTypeScanDevice& d) { return OfRecord(d.strAddr, d.strName, d.eSupportType); }
  static std::string Of(const MWPTypeBleDevice& d) {
    return OfRecord(d.strAddr, d.strName, d.nAddressType, d.nRssi);
  }
  static std::string Of(const MWPTypeGattService& s) {
    return OfRecord(s.strUuid, s.nStartHandle, s.nEndHandle);
  }

  /// The texts with a comma between them.
  static std::string Joined(const std::vector<std::string>& texts) {
    std::string joined;
    for (const std::string& text : texts) {
      joined += (joined.empty() ? "" : ", ") + text;
    }
    return joined;
  }

 private:
  template <typename... Members>
  static std::string OfRecord(const Members&... members) {
    return "{" + Joined({Of(members)...}) + "}";
  }
  template <typename Items>
  static std::string OfItems(const Items& items) {
    std::vector<std::string> texts;
    texts.reserve(items.size());
    for (const auto& item : items) {
      texts.push_back(Of(item));
    }
    return "[" + Joined(texts) + "]";
  }
};

}  // namespace bttest

#endif
