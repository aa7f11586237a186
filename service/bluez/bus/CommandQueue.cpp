#include "service/bluez/bus/CommandQueue.h"

#include <utility>

#define MWP_LOG_SOURCE "service/bluez/bus/CommandQueue"
#include <mwp/MWPLog.h>

namespace btservice::bluez {

CommandQueue::CommandQueue(Daemon& daemon) : m_daemon(daemon) {
  m_daemon.onGone.Add([this] { m_objects.clear(); });
}

bool CommandQueue::Add(MethodCall command, ReplyHandler done) {
  if (!m_daemon.IsThere()) {
    return false;
  }
  const std::string path = command.path;
  Waiting& waiting = m_objects[path];
  if (waiting.commands.size() >= kMostWaiting) {
    MWP_LOG(MWP_LOG_WARNING, "%s is refused: %zu commands wait for %s already", command.method.c_str(),
            waiting.commands.size(), m_daemon.Name().c_str());
    return false;
  }
  waiting.commands.push_back({std::move(command), std::move(done)});
  if (waiting.underWay == 0) {
    SendNext(path);
  }
  return true;
}

void CommandQueue::SendNext(const std::string& path) {
  const auto waiting = m_objects.find(path);
  if (waiting == m_objects.end() || waiting->second.underWay != 0) {
    return;
  }
  if (waiting->second.commands.empty()) {
    m_objects.erase(waiting);
    return;
  }
  const Command command = std::move(waiting->second.commands.front());
  waiting->second.commands.pop_front();
  const std::uint64_t number = ++m_lastNumber;
  waiting->second.underWay = number;
  m_daemon.Call(command.call, nullptr, [this, path, number, done = command.done](const Reply& reply) {
    OnReply(path, number, done, reply);
  });
}

void CommandQueue::OnReply(const std::string& path, std::uint64_t number, const ReplyHandler& done,
                           const Reply& reply) {
  const auto waiting = m_objects.find(path);
  if (waiting == m_objects.end() || waiting->second.underWay != number) {
    return;  // forgotten meanwhile
  }
  waiting->second.underWay = 0;
  if (done) {
    done(reply);
  }
  SendNext(path);
}

}  // namespace btservice::bluez
