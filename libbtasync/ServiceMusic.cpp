// Of music the requests that are not derived from Service.h.

#include "libbtasync/MakeRequest.h"

namespace btasync {
inline namespace v0 {
namespace {

/// The command of PlayMusic that plays. Others concern the audio focus.
constexpr int kPlay = 0;

}  // namespace

using wire::Ask;
using wire::AskForChecked;

Request<> Service::Play() { return Ask<wire::PlayMusic>(*this, kPlay); }
Request<> Service::ReportPosition(bool on, std::chrono::milliseconds interval) {
  return Ask<wire::RegGetPlayStatus>(*this, on, detail::ToTimeout(interval));
}
Request<> Service::ReportMediaInfo(bool on, std::chrono::milliseconds interval) {
  return Ask<wire::RegGetMediaInfo>(*this, on, detail::ToTimeout(interval));
}
Request<PlayPosition> Service::GetPlayPosition() {
  return AskForChecked<PlayPosition, wire::GetCurPlayPosition>(*this);
}
Request<MWPTypeMediaInfo> Service::GetMediaInfo() {
  return AskForChecked<MWPTypeMediaInfo, wire::GetMediaInfo>(*this);
}
Request<std::vector<MWPTypePlayMode>> Service::GetPlayModes() {
  return AskForChecked<std::vector<MWPTypePlayMode>, wire::GetCurPlayMode>(*this);
}
Request<std::vector<MWPTypePlayMode>> Service::GetSupportedPlayModes() {
  return AskForChecked<std::vector<MWPTypePlayMode>, wire::GetSupportPlayMode>(*this);
}

Request<ConnectionState> Service::GetMediaConnectionState() {
  return {wire::Prepare<wire::GetMediaConnectionState>(End()),
          &wire::Structure<wire::GetMediaConnectionState, ConnectionState>};
}

}  // namespace v0
}  // namespace btasync
