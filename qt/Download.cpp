#include "Download.h"

#include "BtService.h"
#include "Changes.h"

namespace btqt {
namespace {

static_assert(static_cast<int>(btasync::BT_PBAP_DOWNLOADING) == Download::Downloading &&
                  static_cast<int>(btasync::BT_PBAP_REFUSED) == Download::Refused &&
                  static_cast<int>(btasync::BT_PBAP_ALL) == Download::Everything,
              "states and types have the numbers of libbtasync's");

}  // namespace

Download::Download(BtService& service) : Subject(service, btasync::PART_DOWNLOAD) {
  show(now(), btasync::PART_DOWNLOAD);
}

void Download::show(const btasync::State& state, unsigned /*parts*/) {
  const btasync::DownloadState& download = state.download;
  Changes changes(*this);
  changes.set(m_state, static_cast<State>(download.status), &Download::stateChanged);
  changes.set(m_type, static_cast<Type>(download.type), &Download::typeChanged);
  changes.set(m_done, download.progress.current, &Download::doneChanged);
  changes.set(m_total, download.progress.total, &Download::totalChanged);
  setFresh(changes, download.fresh);
}

void Download::start(Operation* operation) { startOnly(Everything, operation); }

void Download::startOnly(Type type, Operation* operation) {
  ask(service().StartPhoneBookDownload(static_cast<btasync::PbapType>(type)), operation);
}

void Download::stop(Operation* operation) { ask(service().StopPhoneBookDownload(), operation); }

}  // namespace btqt
