#ifndef SERVICE_SIMULATION_PHONEBOOK_PHONEBOOKDOWNLOAD_H
#define SERVICE_SIMULATION_PHONEBOOK_PHONEBOOKDOWNLOAD_H

#include <deque>
#include <vector>

#include "service/phonebook/PhoneBookStore.h"
#include "service/simulation/devices/Connections.h"

namespace btservice {

/// Fetches the phone book and the call logs from the phone in use, some entries at a time.
class PhoneBookDownload {
 public:
  PhoneBookDownload(ModelContext& context, Settings& settings, Connections& connections,
                    PhoneBookStore& store);

  /// True if it begins: a phone is connected for its phone book, the type is one, and no download is under
  /// way. DownloadStatusChanged and DownloadProgress report the rest, each part of BT_PBAP_ALL by itself:
  /// that the phone refuses, too. What was downloaded of this kind before goes when the part begins.
  bool Start(PbapType type);
  /// Ends it with BT_PBAP_STOPPED; what has arrived stays. False if none is under way.
  bool Stop();
  /// The phone is gone: a download under way has failed, which is reported before this returns.
  void PhoneLost();
  /// Reports how far a download is, if one is under way.
  void Report() const;

 private:
  void Begin();
  void BeginPart();
  void Step();
  void FinishPart();
  void End(PbapStatus status);
  int TotalOfPart() const;
  void Take(int index);

  ModelContext& m_context;
  Settings& m_settings;
  Connections& m_connections;
  PhoneBookStore& m_store;
  Timer m_timer;
  RemoteDevice* m_phone = nullptr;  ///< null unless a download is under way
  PbapType m_type = BT_PBAP_ALL;    ///< what was asked for
  bool m_partBegun = false;         ///< false while the phone is still being asked
  std::deque<PbapType> m_parts;     ///< what is still to be fetched, one repository each
  std::vector<Contact>
      m_contacts;  ///< of the first part, if it is a phone book, as it was when it was asked for
  std::vector<CallLogEntry> m_logs;  ///< of the first part, if it is a call log
  int m_done = 0;                    ///< entries of the first part
};

}  // namespace btservice

#endif
