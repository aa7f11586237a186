// Downloads the phone book of a phone, shows the progress, and prints it.
//
// All is done on the thread of the main loop: a small program that has nothing else to do may block it.

#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/MWPBtPbap.h>

#include "Loop.h"
#include "PhoneConnection.h"

namespace {

using namespace MWPBtType;

void Print(const MWPTypeContact& contact) {
  std::printf("%s %s\n", contact.strText1.c_str(), contact.strText2.c_str());
  for (const MWPTypeContactNumber& kind : contact.listNumbers) {
    for (const std::string& number : kind.vecValues) {
      std::printf("    %s\n", number.c_str());
    }
  }
}

/// Follows the download to its end.
class Download : public IMWPBtPbapListener {
 public:
  explicit Download(Loop& loop) : m_loop(loop) {}

 private:
  void OnPbDownloadCountChanged(int current, int total) override {
    ShowEvent("OnPbDownloadCountChanged", current, total);
  }

  // A download of all has parts that are completed one after the other, and then is completed itself.
  void OnPBDownloadStatus(PbapStatus status, PbapType type) override {
    ShowEvent("OnPBDownloadStatus", status, type);
    if (status == BT_PBAP_COMPLETED && type == BT_PBAP_ALL) {
      std::list<MWPTypeContact> contacts;
      MWPBtPbap().GetContactList(contacts);
      for (const MWPTypeContact& contact : contacts) {
        Print(contact);
      }
      m_loop.End(!contacts.empty());
    } else if (status == BT_PBAP_FAILED || status == BT_PBAP_REFUSED || status == BT_PBAP_STOPPED) {
      m_loop.End(false);
    }
  }

  Loop& m_loop;
};

/// Refused if a download has begun by itself, which a setting of the service is for. It is followed as well.
void StartDownload() {
  ShowRequest("StartPhoneBookDownload", MWPBtPbap().StartPhoneBookDownload(BT_PBAP_ALL));
}

bool Run(const std::string& phone) {
  Loop loop;
  Download download(loop);
  PhoneConnection connection(phone, BT_PROFILE_PBAP, StartDownload, [&loop] { loop.End(false); });
  if (MWP_CreateBlueTooth() == 0) {
    return false;
  }
  connection.Begin();
  return loop.Run(60);
}

}  // namespace

int main(int argc, char** argv) {
  const bool hasWorked = Run(argc > 1 ? argv[1] : "00:1A:7D:DA:71:13");
  MWP_DestroyBlueTooth();
  return hasWorked ? 0 : 1;
}
