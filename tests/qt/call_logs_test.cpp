// The call logs.

#include "SubjectTest.h"

namespace {

using namespace btqt;
using namespace btasync;
using namespace bttest;

}  // namespace

class CallLogsTest : public SubjectTest {
  Q_OBJECT

 private Q_SLOTS:
  void callLogsByType();
};

void CallLogsTest::callLogsByType() {
  CallLogs* const logs = m_bt->callLogs();
  settle();
  QCOMPARE(column(logs->all(), "name").join(QLatin1Char('|')), QStringLiteral("Carla|Ben|Ada"));
  QCOMPARE(column(logs->missed(), "name"), QStringList(QStringLiteral("Carla")));
  QCOMPARE(column(logs->outgoing(), "name"), QStringList(QStringLiteral("Ben")));
  QCOMPARE(column(logs->incoming(), "name"), QStringList(QStringLiteral("Ada")));
  QCOMPARE(logs->all()->get(0)[QStringLiteral("seconds")].toInt(), 17);
  RowsWatch watch(*logs->all());
  m_fake->WillAnswer(&Service::CallLogs, std::vector<MWPTypeCallLog>{Log(4, CALL_LOG_MISSED, "Dora"),
                                                                     Log(3, CALL_LOG_MISSED, "Carla"),
                                                                     Log(2, CALL_LOG_OUTGOING, "Ben")});
  m_fake->Emit(CallLogsChanged{});
  settle();
  QCOMPARE(watch.take(), QStringLiteral("+1 -1 >0 =0"));
  QCOMPARE(logs->missed()->count(), 2);
  logs->remove(3);
  QVERIFY(asked().startsWith(QLatin1String("DeleteCallLogById(3")));
  logs->clear(CallLogs::Missed);
  QVERIFY(asked().startsWith(QLatin1String("ClearCallLog(")));
}

QTEST_GUILESS_MAIN(CallLogsTest)
#include "call_logs_test.moc"
