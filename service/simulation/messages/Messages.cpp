#include "service/simulation/messages/Messages.h"

#include <algorithm>

namespace btservice {
namespace {

/// A phone to which more are sent has lost the oldest.
constexpr std::size_t kMostMessages = 1000;

}  // namespace

Messages::Messages(ModelContext& context, Connections& connections)
    : m_context(context), m_load(context.scheduler) {
  connections.onChanged.Add([this](RemoteDevice& device, ProfileId profile, ConnStatus status) {
    if (profile != BT_PROFILE_MAP) {
      return;
    }
    if (status == BT_CONN_CONNECTED) {
      m_loading = &device;
      m_context.Report(MessageLoadChanged{BT_MSG_LOAD_CONNECTED});
      m_load.Start(m_context.delays.messageStep, [this, &device] {
        m_context.Report(MessageLoadChanged{BT_MSG_LOAD_DOWNLOADING});
        Load(device, 0);
      });
    } else if (m_loading == &device) {
      m_load.Stop();
      m_loading = nullptr;
      m_context.Report(MessageLoadChanged{BT_MSG_LOAD_FAILED});
    }
  });
}

void Messages::Load(RemoteDevice& device, int done) {
  const int total = static_cast<int>(device.data.phone.messages.size());
  m_context.Report(MessageLoadProgress{std::min(done, total), total});
  if (done < total) {
    m_load.Start(m_context.delays.messageStep, [this, &device, done] { Load(device, done + 1); });
  } else {
    m_loading = nullptr;
    m_context.Report(MessageLoadChanged{BT_MSG_LOAD_COMPLETED});
  }
}

bool Messages::Has(const RemoteDevice& device, const std::string& handle) {
  const std::vector<MessageData>& messages = device.data.phone.messages;
  return device.IsConnected(BT_PROFILE_MAP) &&
         std::any_of(messages.begin(), messages.end(),
                     [&](const MessageData& message) { return message.handle == handle; });
}

bool Messages::Arrive(RemoteDevice& device, const MessageData& message) {
  std::vector<MessageData>& messages = device.data.phone.messages;
  if (messages.size() >= kMostMessages) {
    const std::size_t oldest = messages.size() - kMostMessages + 1;
    messages.erase(messages.begin(), messages.begin() + static_cast<std::ptrdiff_t>(oldest));
  }
  messages.push_back(message);
  if (!device.IsConnected(BT_PROFILE_MAP)) {
    return false;
  }
  m_context.Report(MessageNotified{BT_MSG_NEW, message.handle});
  return true;
}

bool Messages::Happen(RemoteDevice& device, const std::string& handle, MsgStatus status) {
  if (!Has(device, handle)) {
    return false;
  }
  if (status == BT_MSG_DELETED) {
    std::vector<MessageData>& messages = device.data.phone.messages;
    messages.erase(std::remove_if(messages.begin(), messages.end(),
                                  [&](const MessageData& message) { return message.handle == handle; }),
                   messages.end());
  }
  m_context.Report(MessageNotified{status, handle});
  return true;
}

bool Messages::SetProperty(RemoteDevice& device, const std::string& handle, bool success) {
  if (!Has(device, handle)) {
    return false;
  }
  m_context.Report(MessagePropertySet{success ? BT_MSG_SET_OK : BT_MSG_SET_FAILED});
  return true;
}

}  // namespace btservice
