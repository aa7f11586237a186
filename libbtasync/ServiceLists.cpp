// What is read out of shared memory: the paired devices, the calls, the phone book, and the call logs.

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <btasync/Service.h>

#include "libbtasync/ListPlan.h"
#include "libbtasync/SegmentDecoder.h"
#include "libbtasync/TablePlan.h"
#include "libbtasync/Wire.h"
#include "protocol/Records.h"
#include "protocol/Segments.h"

namespace btasync {
inline namespace v0 {
namespace {

using detail::DecodedList;
using detail::DecodeList;
using detail::ListPlanOf;
using detail::ListQuestion;
using detail::SegmentCopy;
using detail::TablePlanOf;

using ContactList = std::vector<MWPTypeContact>;
using CallLogList = std::vector<MWPTypeCallLog>;
using DeviceList = std::vector<MWPTypeDevice>;

Failure Wrong(ShareMemID id, const std::string& what) {
  return {Reason::Malformed, std::string(kSegmentCatalogue[id].name) + what};
}

// ----- Lists

/// The service cuts a list that does not fit into its segment. How long the next record would have been is
/// not known: less than this share of the segment.
constexpr std::size_t kShareOfLongestRecord = 8;

/// Whether a list has as many records as the service says. Fewer are right only where the segment is full.
template <typename Record>
bool IsWhole(const DecodedList<Record>& list, const SegmentCopy& copy, int serviceCount) {
  const std::size_t free = copy.segmentSize - list.usedBytes;
  const bool isFull = free < copy.segmentSize / kShareOfLongestRecord;
  return serviceCount >= 0 && (list.records.size() == static_cast<std::size_t>(serviceCount) ||
                               (list.records.size() < static_cast<std::size_t>(serviceCount) && isFull));
}

template <typename Record>
Failure WrongCount(ShareMemID id, const DecodedList<Record>& list, int serviceCount) {
  return Wrong(id, " holds " + std::to_string(list.records.size()) + " records, and the service has " +
                       std::to_string(serviceCount));
}

Answer<ContactList> JudgeContacts(const SegmentCopy& copy, const ListQuestion& question) {
  Answer<DecodedList<MWPTypeContact>> list = DecodeList<MWPTypeContact>(SH_CONTACT_LIST, copy);
  if (!list) {
    return list.Why();
  }
  if (!IsWhole(*list, copy, question.serviceCount)) {
    return WrongCount(SH_CONTACT_LIST, *list, question.serviceCount);
  }
  return std::move(list->records);
}

/// The service has no count of them.
Answer<ContactList> JudgeFavorites(const SegmentCopy& copy, const ListQuestion&) {
  Answer<DecodedList<MWPTypeContact>> list = DecodeList<MWPTypeContact>(SH_FAV_CONTACT_LIST, copy);
  if (!list) {
    return list.Why();
  }
  return std::move(list->records);
}

/// Whether all entries say which log they belong to, as btservice has it.
bool SayTheirLog(const CallLogList& logs) {
  return std::all_of(logs.begin(), logs.end(), [](const MWPTypeCallLog& log) {
    return log.*CallLogFields::kRepository >= CALL_LOG_INCOMING &&
           log.*CallLogFields::kRepository <= CALL_LOG_MISSED;
  });
}

Answer<CallLogList> JudgeCallLogs(const SegmentCopy& copy, const ListQuestion& question) {
  Answer<DecodedList<MWPTypeCallLog>> list = DecodeList<MWPTypeCallLog>(SH_CALL_LOG_LIST, copy);
  if (!list) {
    return list.Why();
  }
  CallLogList& logs = list->records;
  if (!IsWhole(*list, copy, question.serviceCount)) {
    return WrongCount(SH_CALL_LOG_LIST, *list, question.serviceCount);
  }
  const auto isOfOther = [&](const MWPTypeCallLog& log) {
    return log.*CallLogFields::kRepository != question.argument;
  };
  if (question.argument != CALL_LOG_ALL && SayTheirLog(logs) &&
      std::any_of(logs.begin(), logs.end(), isOfOther)) {
    return Wrong(SH_CALL_LOG_LIST, " holds entries of another log");
  }
  return std::move(logs);
}

// ----- Single records: lists of one, or of none

template <typename Record>
Answer<Record> JudgeOne(ShareMemID id, const SegmentCopy& copy) {
  Answer<DecodedList<Record>> list = DecodeList<Record>(id, copy);
  if (!list) {
    return list.Why();
  }
  if (list->records.empty()) {
    return Refusal();
  }
  if (list->records.size() > 1) {
    return Wrong(id, " holds " + std::to_string(list->records.size()) + " records, and not one");
  }
  return std::move(list->records.front());
}

Answer<MWPTypeContact> JudgeContact(const SegmentCopy& copy, const ListQuestion&) {
  return JudgeOne<MWPTypeContact>(SH_CONTACT_INFO, copy);
}

Answer<MWPTypeCallLog> JudgeCallLog(const SegmentCopy& copy, const ListQuestion& question) {
  Answer<MWPTypeCallLog> log = JudgeOne<MWPTypeCallLog>(SH_CALL_LOG_INFO, copy);
  if (log && log->nLogId != question.argument) {
    return Wrong(SH_CALL_LOG_INFO, " holds another entry");
  }
  return log;
}

// ----- Tables

Answer<DeviceList> JudgePairedDevices(const SegmentCopy& copy, const ListQuestion& question) {
  if (!question.isLastLook && detail::LooksUnfinished(copy)) {
    return Wrong(SH_PAIRED_LIST, " is being written");
  }
  return detail::DecodePairedDevices(copy);
}

Answer<MWPTypeCallInfo> JudgeCurrentCalls(const SegmentCopy& copy, const ListQuestion&) {
  return detail::DecodeCurrentCalls(copy);
}

// ----- The requests

constexpr TablePlanOf<DeviceList> kPairedDevices("PairedDevices", SH_PAIRED_LIST, JudgePairedDevices);
constexpr TablePlanOf<MWPTypeCallInfo> kCurrentCalls("CurrentCalls", SH_CALL_INFO_LIST, JudgeCurrentCalls);
constexpr ListPlanOf<wire::GetContactList, wire::GetContactCount, ContactList> kContacts(
    "Contacts", SH_CONTACT_LIST, detail::EndOfList<MWPTypeContact>, JudgeContacts);
constexpr ListPlanOf<wire::GetFavContactList, wire::GetContactCount, ContactList> kFavoriteContacts(
    "FavoriteContacts", SH_FAV_CONTACT_LIST, detail::EndOfList<MWPTypeContact>, JudgeFavorites);
constexpr ListPlanOf<wire::GetCallLogList, wire::GetCallLogCount, CallLogList> kCallLogs(
    "CallLogs", SH_CALL_LOG_LIST, detail::EndOfList<MWPTypeCallLog>, JudgeCallLogs);
constexpr ListPlanOf<wire::GetContactByIndex, wire::GetContactCount, MWPTypeContact> kGetContact(
    "GetContact", SH_CONTACT_INFO, detail::EndOfList<MWPTypeContact>, JudgeContact);
constexpr ListPlanOf<wire::GetCallLogById, wire::GetContactCount, MWPTypeCallLog> kGetCallLog(
    "GetCallLog", SH_CALL_LOG_INFO, detail::EndOfList<MWPTypeCallLog>, JudgeCallLog);

/// A plan's answer comes as what it is; there are no values.
template <typename T>
Answer<T> NoValues(GVariant*) {
  return Failure{Reason::Malformed, "a list does not come as values"};
}

template <typename T>
Request<T> Carry(detail::Backend& backend, const detail::Plan& plan, GVariant* arguments = nullptr,
                 const char* invalid = nullptr) {
  return {detail::Outgoing(backend, plan, arguments, invalid), &NoValues<T>};
}

/// The arguments of a method, checked against the interface.
template <typename Method, typename... Values>
GVariant* ArgumentsOf(const Values&... values) {
  return wire::Arguments<Method>(std::index_sequence_for<Values...>(), values...);
}

}  // namespace

Request<DeviceList> Service::PairedDevices() { return Carry<DeviceList>(End(), kPairedDevices); }

Request<MWPTypeCallInfo> Service::CurrentCalls() { return Carry<MWPTypeCallInfo>(End(), kCurrentCalls); }

Request<ContactList> Service::Contacts() { return Carry<ContactList>(End(), kContacts); }

Request<ContactList> Service::FavoriteContacts() { return Carry<ContactList>(End(), kFavoriteContacts); }

Request<MWPTypeContact> Service::GetContact(int index) {
  return Carry<MWPTypeContact>(End(), kGetContact, ArgumentsOf<wire::GetContactByIndex>(index));
}

Request<CallLogList> Service::CallLogs(CallLogType type) {
  return Carry<CallLogList>(End(), kCallLogs, ArgumentsOf<wire::GetCallLogList>(type), wire::WhyNot(type));
}

Request<MWPTypeCallLog> Service::GetCallLog(int logId) {
  return Carry<MWPTypeCallLog>(End(), kGetCallLog, ArgumentsOf<wire::GetCallLogById>(logId));
}

}  // namespace v0
}  // namespace btasync
