#include "RunningHeadUnit.h"

#include <sys/types.h>
#include <csignal>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFile>
#include <QTest>

namespace {

constexpr int kBoundMs = 30000;

/// One for the process: its address is read once by some.
bttest::BusDaemon& bus() {
  static bttest::BusDaemon daemon;
  return daemon;
}

QQuickItem* findIn(QQuickItem& item, const QString& name) {
  if (!item.isVisible()) {
    return nullptr;
  }
  if (item.objectName() == name) {
    return &item;
  }
  const auto children = item.childItems();
  for (QQuickItem* const child : children) {
    if (QQuickItem* const found = findIn(*child, name)) {
      return found;
    }
  }
  return nullptr;
}

/// Calls a control of the simulation, and waits for its answer.
QDBusMessage control(const char* interface, const QString& method, const QVariantList& arguments) {
  const QString name = QStringLiteral("a test's controls");
  QDBusMessage call = QDBusMessage::createMethodCall(
      QStringLiteral("com.zelk.linux.bluetooth"), QStringLiteral("/com/zelk/linux/bluetooth/sim"),
      QStringLiteral("com.zelk.linux.bluetooth.sim.") + QLatin1String(interface), method);
  call.setArguments(arguments);
  const QDBusMessage answer =
      QDBusConnection::connectToBus(QDBusConnection::SessionBus, name).call(call, QDBus::Block, kBoundMs);
  QDBusConnection::disconnectFromBus(name);
  return answer;
}

}  // namespace

QString deskWorld() { return QStringLiteral(HEADUNIT_DESK_WORLD); }

RunningHeadUnit::RunningHeadUnit(const QString& world, const Wishes& wishes)
    : m_world(world), m_application(wishes) {
  bus();
  QFile::remove(qEnvironmentVariable("MWP_PERSIST_FILE"));  // no settings of the test before
  m_service.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  startService();
  m_application.show();
}

RunningHeadUnit::~RunningHeadUnit() {
  letServiceGo();
  m_service.terminate();
  m_service.waitForFinished();
}

void RunningHeadUnit::startService() {
  m_service.waitForFinished();  // the one before, if it has just died
  m_service.start(QStringLiteral("/app/bin/btservice"),
                  {QStringLiteral("--no-state"), QStringLiteral("--world"), m_world,
                   QStringLiteral("--speed"), QStringLiteral("10")});
  m_service.waitForStarted();
}

void RunningHeadUnit::killService() {
  m_service.kill();
  m_service.waitForFinished();
}

void RunningHeadUnit::holdService() { kill(static_cast<pid_t>(m_service.processId()), SIGSTOP); }

void RunningHeadUnit::letServiceGo() {
  if (m_service.state() == QProcess::Running) {
    kill(static_cast<pid_t>(m_service.processId()), SIGCONT);
  }
}

void RunningHeadUnit::stopBus() { bus().Stop(); }

void RunningHeadUnit::startBus() { bus().Start(); }

bool RunningHeadUnit::outside(const QString& method, const QVariantList& arguments) {
  return control("Outside", method, arguments).arguments().value(0).toBool();
}

bool RunningHeadUnit::fault(const QString& method, const QVariantList& arguments) {
  return control("Faults", method, arguments).type() == QDBusMessage::ReplyMessage;
}

QQuickItem* RunningHeadUnit::find(const QString& name) {
  QQuickItem* item = window().contentItem();
  for (const QString& step : name.split(QLatin1Char('/'))) {
    item = item != nullptr ? findIn(*item, step) : nullptr;
  }
  return item;
}

QQuickItem* RunningHeadUnit::wait(const QString& name) {
  return waitFor([&] { return shows(name); }) ? find(name) : nullptr;
}

bool RunningHeadUnit::waitUntilAbove(const QString& name, const QString& other) {
  return waitFor([&] {
    const QQuickItem* const above = find(name);
    const QQuickItem* const below = find(other);
    return above != nullptr && below != nullptr && above->y() < below->y();
  });
}

QString RunningHeadUnit::text(const QString& name) {
  const QQuickItem* const item = find(name);
  return item != nullptr ? item->property("text").toString() : QString();
}

bool RunningHeadUnit::tap(const QString& name) {
  const auto place = [&] {
    const QQuickItem* const item = find(name);
    return item != nullptr && item->isEnabled() && item->width() > 0
               ? item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint()
               : QPoint(-1, -1);
  };
  // What has just changed is laid out with the next frame.
  QPoint middle(-1, -1);
  if (!waitFor([&] {
        middle = place();
        window().update();
        return middle.x() >= 0 && waitForFrames(1, [] { return true; }) && place() == middle;
      })) {
    qWarning("there is nothing to tap: %s", qPrintable(name));
    return false;
  }
  QTest::mouseClick(&window(), Qt::LeftButton, Qt::NoModifier, middle);
  return true;
}

bool RunningHeadUnit::waitFor(const std::function<bool()>& condition) {
  return QTest::qWaitFor(condition, kBoundMs);
}

bool RunningHeadUnit::waitForPhone() {
  return waitFor([this] { return bt().network()->phone() == kAda && bt().isFresh(); });
}

bool RunningHeadUnit::waitForFrames(int count, const std::function<bool()>& condition) {
  int frames = 0;
  bool held = true;
  QObject context;
  QObject::connect(&window(), &QQuickWindow::frameSwapped, &context, [&] {
    held = held && condition();
    ++frames;
  });
  return waitFor([&] { return !held || frames >= count; }) && held;
}
