// drive_client: an application that knows the public headers only. It starts the library, does what the lines
// of its standard input ask for, and prints a line "answer REQUEST NUMBER" for each, and "event NAME(VALUES)"
// for each event that it receives. It ends with its input.

#include <cstdio>
#include <functional>
#include <list>
#include <map>
#include <string>

#include <glib.h>
#include <malloc.h>

#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtMedia.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>
#include <bluetooth/MWPBtSpp.h>

#include "contract/RecordingListeners.h"
#include "glib/Owned.h"

namespace {

using namespace MWPBtType;

int CountContacts() {
  std::list<MWPTypeContact> contacts;
  return MWPBtPbap().GetContactList(contacts) != 0 ? static_cast<int>(contacts.size()) : -1;
}

int CountCalls() {
  MWPTypeCallInfo info;
  return MWPBtPhone().GetCurrentCallInfo(info) != 0 ? info.nCallCount : -1;
}

/// What malloc has handed out and not got back, in KiB.
int KilobytesInUse() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<int>((info.uordblks + info.hblkhd) / 1024);
}

using Request = std::function<int(const std::string& argument)>;
using Text = const std::string&;

const std::map<std::string, Request> kRequests{
    {"power", [](Text) { return MWPBtCom().GetPowerStatus(); }},
    {"scan", [](Text start) { return MWPBtCom().SetScanAction(start == "on" ? 1 : 0); }},
    {"connect", [](Text address) { return MWPBtCom().Connect(address, BT_PROFILE_HFP_A2DP, 0); }},
    {"connect-serial", [](Text address) { return MWPBtCom().Connect(address, BT_PROFILE_SPP, 0); }},
    {"serial", [](Text address) { return MWPBtSpp().SppSendText(address, "How far is it?"); }},
    {"download", [](Text) { return MWPBtPbap().StartPhoneBookDownload(BT_PBAP_ALL); }},
    {"contacts", [](Text) { return CountContacts(); }},
    {"accept", [](Text) { return MWPBtPhone().AcceptCall(); }},
    {"swap", [](Text) { return MWPBtPhone().MultipleWayCall(BT_CALL_HOLD_ACTIVE, 0); }},
    {"join", [](Text) { return MWPBtPhone().MultipleWayCall(BT_CALL_CONFERENCE, 0); }},
    {"calls", [](Text) { return CountCalls(); }},
    {"play", [](Text) { return MWPBtMedia().PlayMusic(0, 0); }},
    {"pause", [](Text) { return MWPBtMedia().StopMusic(0); }},
    {"next", [](Text) { return MWPBtMedia().NextMusic(); }},
    {"memory", [](Text) { return KilobytesInUse(); }},
};

gboolean OnInput(GIOChannel* input, GIOCondition, gpointer loop) {
  OwnedText text;
  gsize end = 0;
  if (g_io_channel_read_line(input, text.Out(), nullptr, &end, nullptr) != G_IO_STATUS_NORMAL) {
    g_main_loop_quit(static_cast<GMainLoop*>(loop));
    return G_SOURCE_REMOVE;
  }
  const std::string line(text.get(), end);
  const std::string name = line.substr(0, line.find(' '));
  const std::string argument = name == line ? "" : line.substr(name.size() + 1);
  std::printf("answer %s %d\n", name.c_str(), kRequests.at(name)(argument));
  return G_SOURCE_CONTINUE;
}

}  // namespace

int main() {
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  const OwnedMainLoop loop(g_main_loop_new(nullptr, FALSE));
  const OwnedIoChannel input(g_io_channel_unix_new(0));
  {
    bttest::Receptions receptions;
    receptions.afterEach = [&receptions] {
      const bttest::Reception& last = receptions.all.back();
      std::printf("event %s(%s)\n", last.event.c_str(), bttest::ValueText::Joined(last.values).c_str());
      receptions.all.clear();
    };
    bttest::RecordingComListener com(receptions);
    bttest::RecordingPhoneListener phone(receptions);
    bttest::RecordingMediaListener media(receptions);
    bttest::RecordingPbapListener pbap(receptions);
    bttest::RecordingMessageListener message(receptions);
    bttest::RecordingSppListener spp(receptions);

    std::printf("answer start %d\n", MWP_CreateBlueTooth());
    g_io_add_watch(input.get(), static_cast<GIOCondition>(G_IO_IN | G_IO_HUP), OnInput, loop.get());
    g_main_loop_run(loop.get());
  }
  MWP_DestroyBlueTooth();
}
