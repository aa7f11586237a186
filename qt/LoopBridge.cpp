#include "LoopBridge.h"

#include <poll.h>

#include <QAbstractEventDispatcher>

namespace btqt {
namespace {

thread_local std::weak_ptr<LoopBridge> t_bridge;

}  // namespace

std::shared_ptr<LoopBridge> LoopBridge::ofThisThread() {
  QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
  if (dispatcher == nullptr) {
    qWarning("btqt: there is no event loop yet; make the application object first");
    return nullptr;
  }
  if (dispatcher->inherits("QEventDispatcherGlib")) {
    return nullptr;
  }
  std::shared_ptr<LoopBridge> bridge = t_bridge.lock();
  if (bridge == nullptr) {
    bridge.reset(new LoopBridge(*dispatcher));
    bridge->m_self = bridge;
    t_bridge = bridge;
  }
  return bridge;
}

LoopBridge::LoopBridge(QAbstractEventDispatcher& dispatcher) {
  m_due.setSingleShot(true);
  m_due.setTimerType(Qt::PreciseTimer);
  connect(&m_due, &QTimer::timeout, this, &LoopBridge::turn);
  // Before it waits, and also at each of its turns: a program that calls processEvents() never lets it wait.
  connect(&dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &LoopBridge::arm);
  connect(&dispatcher, &QAbstractEventDispatcher::awake, this, &LoopBridge::arm);
}

LoopBridge::~LoopBridge() = default;

void LoopBridge::arm() {
  m_descriptors.clear();
  int timeoutMs = -1;
  m_loop.Prepare(m_descriptors, timeoutMs);

  Notifiers wanted;
  for (const pollfd& descriptor : m_descriptors) {
    if ((descriptor.events & POLLIN) != 0) {
      take(m_notifiers, wanted, descriptor.fd, QSocketNotifier::Read);
    }
    if ((descriptor.events & POLLOUT) != 0) {
      take(m_notifiers, wanted, descriptor.fd, QSocketNotifier::Write);
    }
    if ((descriptor.events & POLLPRI) != 0) {
      take(m_notifiers, wanted, descriptor.fd, QSocketNotifier::Exception);
    }
  }
  m_notifiers = std::move(wanted);

  if (timeoutMs < 0) {
    m_due.stop();
  } else {
    m_due.start(timeoutMs);
  }
}

void LoopBridge::take(Notifiers& from, Notifiers& to, int descriptor, QSocketNotifier::Type type) {
  const Kind kind(descriptor, type);
  const auto known = from.find(kind);
  if (known != from.end()) {
    to[kind] = std::move(known->second);
    from.erase(known);
  } else if (to.count(kind) == 0) {
    auto notifier = std::make_unique<QSocketNotifier>(descriptor, type);
    connect(notifier.get(), &QSocketNotifier::activated, this, &LoopBridge::turn);
    to[kind] = std::move(notifier);
  }
}

void LoopBridge::turn() {
  // What is called may destroy the last service of this thread, or run a loop of its own inside.
  const std::shared_ptr<LoopBridge> self = m_self.lock();
  if (self == nullptr) {
    return;
  }
  poll(m_descriptors.data(), m_descriptors.size(), 0);
  m_loop.Dispatch(m_descriptors);
  if (self.use_count() > 1) {
    arm();  // a loop that is never idle does not come to wait
  }
}

}  // namespace btqt
