// With the simulated service, on whichever loop Qt has.

#include <sys/types.h>
#include <csignal>

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <memory>

#include "BtService.h"

namespace {

using namespace btqt;

constexpr int kBound = 20000;  // milliseconds; far above what it takes
constexpr int kWhile = 1500;   // milliseconds; more than the second at which others look again and again

const QString kAdasAddress = QStringLiteral("00:1A:7D:DA:71:13");

class LoopTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase();
  void init();
  void cleanup();
  void itIsTheLoopThatTheTestIsAbout();
  void everythingIsShown();
  void eventsAndAnswersArrive();
  void deadlinesPass();
  void itWaitsWhileNothingHappens();
  void itHasNoThreadOfItsOwn();
  void theServiceDiesAndComesBack();
  void aNestedLoopRunsItToo();
  void theServiceObjectGoesInItsOwnCallback();
  void twoServicesShareABridge();

 private:
  void startService();
  void stopService();
  static QStringList threadsOfTheProgram();

  std::unique_ptr<QProcess> m_process;
  std::unique_ptr<BtService> m_bt;
};

void LoopTest::initTestCase() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }

void LoopTest::startService() {
  m_process = std::make_unique<QProcess>();
  m_process->setProcessChannelMode(QProcess::ForwardedChannels);
  m_process->start(QStringLiteral("/app/bin/btservice"),
                   {QStringLiteral("--world"), QStringLiteral("one-phone"), QStringLiteral("--speed"),
                    QStringLiteral("20")});
  QVERIFY(m_process->waitForStarted());
}

void LoopTest::stopService() {
  if (m_process != nullptr) {
    m_process->kill();
    m_process->waitForFinished();
    m_process.reset();
  }
}

void LoopTest::init() {
  QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
  m_bt = std::make_unique<BtService>();
  startService();
}

void LoopTest::cleanup() {
  m_bt.reset();
  stopService();
}

void LoopTest::itIsTheLoopThatTheTestIsAbout() {
  const bool isGlibs = QAbstractEventDispatcher::instance()->inherits("QEventDispatcherGlib");
  QCOMPARE(isGlibs, qEnvironmentVariableIntValue("QT_NO_GLIB") == 0);
}

void LoopTest::everythingIsShown() {
  m_bt->adapter();
  m_bt->devices();
  m_bt->calls();
  m_bt->network();
  m_bt->music();
  m_bt->contacts();
  m_bt->callLogs();
  m_bt->download();
  QTRY_VERIFY_WITH_TIMEOUT(m_bt->isFresh(), kBound);
  QCOMPARE(m_bt->availability(), BtService::Present);
  QCOMPARE(m_bt->adapter()->name(), QStringLiteral("Head Unit"));
  QTRY_VERIFY_WITH_TIMEOUT(m_bt->devices()->paired()->rowOf(kAdasAddress) >= 0, kBound);
}

void LoopTest::eventsAndAnswersArrive() {
  Adapter* const adapter = m_bt->adapter();
  QTRY_VERIFY_WITH_TIMEOUT(m_bt->isFresh(), kBound);
  QTRY_COMPARE_WITH_TIMEOUT(adapter->power(), Adapter::PowerOn, kBound);
  Operation operation;
  adapter->setPower(false, &operation);
  QTRY_COMPARE_WITH_TIMEOUT(operation.result(), Operation::Accepted, kBound);
  QTRY_COMPARE_WITH_TIMEOUT(adapter->power(), Adapter::PowerOff, kBound);
  adapter->setPower(false, &operation);
  QTRY_COMPARE_WITH_TIMEOUT(operation.result(), Operation::Refused, kBound);
}

void LoopTest::deadlinesPass() {
  // The service is stopped, and cannot answer.
  QTRY_COMPARE_WITH_TIMEOUT(m_bt->availability(), BtService::Present, kBound);
  kill(static_cast<pid_t>(m_process->processId()), SIGSTOP);
  Operation operation;
  operation.setDeadline(50);
  m_bt->adapter()->setPower(false, &operation);
  QTRY_COMPARE_WITH_TIMEOUT(operation.result(), Operation::Failed, kBound);
  QCOMPARE(operation.reason(), Operation::TimedOut);
}

void LoopTest::itWaitsWhileNothingHappens() {
  // A service that is stopped reports nothing, and nobody asks: the loop must not go round and round.
  everythingIsShown();
  if (QTest::currentTestFailed()) {
    return;
  }
  kill(static_cast<pid_t>(m_process->processId()), SIGSTOP);
  const auto turnsOfTheLoop = [this] {
    int turns = 0;
    const auto counted = connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this,
                                 [&turns] { ++turns; });
    QEventLoop loop;
    QTimer::singleShot(kWhile, &loop, &QEventLoop::quit);
    loop.exec();
    disconnect(counted);
    return turns;
  };
  // Once what was under way has come to an end, nothing wakes it but the timer that ends the loop.
  QVERIFY(QTest::qWaitFor([&] { return turnsOfTheLoop() == 1; }, kBound));
}

QStringList LoopTest::threadsOfTheProgram() {
  // GLib has one that reads from the bus, and some to lend; Qt Test has one that ends tests that hang. All
  // others have the name of the program, unless they have chosen another one.
  QStringList names;
  const QStringList ofOthers{QStringLiteral("gdbus"), QStringLiteral("gmain"),
                             QStringLiteral("QtTest Watchdog")};
  for (const QString& task :
       QDir(QStringLiteral("/proc/self/task")).entryList(QDir::NoDotAndDotDot | QDir::Dirs)) {
    QFile file(QStringLiteral("/proc/self/task/%1/comm").arg(task));
    const QString name =
        file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
    // Empty: it has ended.
    if (!name.isEmpty() && !ofOthers.contains(name) && !name.startsWith(QStringLiteral("pool"))) {
      names += name;
    }
  }
  return names;
}

void LoopTest::itHasNoThreadOfItsOwn() {
  everythingIsShown();
  // A thread of GLib's has the name of the program, too, until it has set its own.
  QTRY_COMPARE_WITH_TIMEOUT(threadsOfTheProgram(), QStringList{QStringLiteral("qt_loop_test")}, kBound);
}

void LoopTest::theServiceDiesAndComesBack() {
  m_bt->adapter();
  QTRY_VERIFY_WITH_TIMEOUT(m_bt->isFresh(), kBound);
  stopService();
  QTRY_COMPARE_WITH_TIMEOUT(m_bt->availability(), BtService::Absent, kBound);
  QVERIFY(!m_bt->isFresh());
  startService();
  QTRY_VERIFY_WITH_TIMEOUT(m_bt->isFresh(), kBound);
}

void LoopTest::aNestedLoopRunsItToo() {
  Operation outer;
  Operation inner;
  QTRY_COMPARE_WITH_TIMEOUT(m_bt->availability(), BtService::Present, kBound);
  bool isInnerDone = false;
  connect(&outer, &Operation::finished, this, [&] {
    QEventLoop loop;
    connect(&inner, &Operation::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(kBound, &loop, &QEventLoop::quit);
    m_bt->adapter()->startScan(&inner);
    loop.exec();
    isInnerDone = inner.result() != Operation::None;
  });
  m_bt->adapter()->setPower(true, &outer);
  QTRY_VERIFY_WITH_TIMEOUT(outer.result() != Operation::None, kBound);
  QTRY_VERIFY_WITH_TIMEOUT(isInnerDone, kBound);
}

void LoopTest::theServiceObjectGoesInItsOwnCallback() {
  Operation operation;
  connect(&operation, &Operation::finished, this, [this] { m_bt.reset(); });
  m_bt->adapter()->setPower(false, &operation);
  QTRY_VERIFY_WITH_TIMEOUT(m_bt == nullptr, kBound);
}

void LoopTest::twoServicesShareABridge() {
  BtService other;
  QTRY_COMPARE_WITH_TIMEOUT(other.availability(), BtService::Present, kBound);
  m_bt.reset();
  Operation operation;
  other.adapter()->startScan(&operation);
  QTRY_VERIFY_WITH_TIMEOUT(operation.result() != Operation::None, kBound);
}

}  // namespace

QTEST_GUILESS_MAIN(LoopTest)
#include "loop_test.moc"
