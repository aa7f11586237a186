#ifndef SERVICE_SIMULATION_PHONEBOOK_SIMULATEDPHONEBOOK_H
#define SERVICE_SIMULATION_PHONEBOOK_SIMULATEDPHONEBOOK_H

#include <vector>

#include "service/simulation/calls/CallTable.h"
#include "service/simulation/phonebook/PhoneBookDownload.h"
#include "service/stack/PhoneBookControl.h"

namespace btservice {

/// Phone book and logs are there as long as the phone is; ended calls enter the logs, here and on the phone.
class SimulatedPhoneBook : public PhoneBookControl {
 public:
  SimulatedPhoneBook(ModelContext& context, std::time_t startTime, Settings& settings,
                     Connections& connections, CallTable& calls);

  bool StartDownload(PbapType type) override { return m_download.Start(type); }
  bool StopDownload() override { return m_download.Stop(); }

  const std::vector<Contact>& Contacts() const override { return m_store.Contacts(); }
  std::vector<Contact> Favorites() const override { return m_store.Favorites(); }
  bool DeleteContact(int id) override;
  bool ClearContacts() override;
  bool SetFavorite(int contactId, bool favorite) override;

  std::vector<CallLogEntry> CallLogs(CallLogType type) const override { return m_store.Logs(type); }
  bool DeleteCallLog(int id) override;
  bool ClearCallLogs(CallLogType type) override;

  /// Reports how far a download is, if one is under way.
  void ReportDownload() const { m_download.Report(); }

  /// The full name of the first contact with a number; empty if the number is not in the phone book.
  std::string NameOf(const std::string& number) const;

 private:
  void Log(const Call& call);
  void Forget();

  ModelContext& m_context;
  std::time_t m_startTime;
  CallTable& m_calls;
  PhoneBookStore m_store;
  PhoneBookDownload m_download;
  TaskGroup m_edits;
};

}  // namespace btservice

#endif
