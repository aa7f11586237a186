// The calls, and what can be done with them.

#include "SubjectTest.h"

namespace {

using namespace btqt;
using namespace btasync;
using namespace bttest;

}  // namespace

class CallsTest : public SubjectTest {
  Q_OBJECT

 private Q_SLOTS:
  void callsAreRows();
  void callsVanishWithTheService();
};

void CallsTest::callsAreRows() {
  Calls* const calls = m_bt->calls();
  settle();
  RowsWatch watch(*calls->model());
  QVERIFY(calls->incoming().value<std::nullptr_t>() == nullptr && calls->incoming().toMap().empty());
  QVERIFY(!calls->canSwap());

  m_fake->WillAnswer(&Service::CurrentCalls, CallsOf({Slot(1, BT_CALL_ACTIVE, "110")}));
  m_fake->Emit(CallStatusChanged{1, BT_CALL_ACTIVE, 1});
  settle();
  QCOMPARE(watch.take(), QStringLiteral("+1 -0 >0 =0"));
  m_fake->Emit(CallTimeChanged{7, 1, true});
  settle();
  QCOMPARE(watch.take(), QStringLiteral("+0 -0 >0 =1"));
  QCOMPARE(calls->model()->get(0)[QStringLiteral("seconds")].toInt(), 7);

  // A second one rings, and is accepted: the first one is held, and below it.
  m_fake->WillAnswer(&Service::CurrentCalls,
                     CallsOf({Slot(1, BT_CALL_ACTIVE, "110"), Slot(2, BT_CALL_WAITING, "112")}));
  m_fake->Emit(CallStatusChanged{2, BT_CALL_WAITING, 2});
  m_fake->Emit(CallActionChanged{BT_CALL_HOLD_ACTIVE, true});
  settle();
  QCOMPARE(calls->incoming().toMap()[QStringLiteral("number")].toString(), QStringLiteral("112"));
  QCOMPARE(calls->incoming().toMap()[QStringLiteral("state")].toInt(), int{Calls::Waiting});
  QVERIFY(calls->canSwap());
  QVERIFY(!calls->canMerge());
  watch.take();
  m_fake->WillAnswer(&Service::CurrentCalls,
                     CallsOf({Slot(2, BT_CALL_ACTIVE, "112"), Slot(1, BT_CALL_HELD, "110")}));
  m_fake->Emit(CallStatusChanged{2, BT_CALL_ACTIVE, 2});
  m_fake->Emit(CallActionChanged{BT_CALL_CONFERENCE, true});
  settle();
  QCOMPARE(watch.moves, 1);
  QVERIFY(watch.isInStep());
  QVERIFY(calls->canMerge());
  QVERIFY(calls->incoming().toMap().isEmpty());
  QCOMPARE(calls->count(), 2);

  calls->swap();
  QCOMPARE(asked(), QStringLiteral("MultipleWayCall(byte 0x02, 0)"));
  calls->merge();
  QCOMPARE(asked(), QStringLiteral("MultipleWayCall(byte 0x03, 0)"));
  calls->dial(QStringLiteral("110"));
  QCOMPARE(asked(), QStringLiteral("DialCall('110',)"));
  calls->redial();
  QCOMPARE(asked(), QStringLiteral("RedialCall()"));
  calls->accept();
  QCOMPARE(asked(), QStringLiteral("AcceptCall()"));
  calls->reject();
  QCOMPARE(asked(), QStringLiteral("RejectCall()"));
  calls->hangUp();
  QCOMPARE(asked(), QStringLiteral("TerminateCall()"));
  calls->sendTone(QStringLiteral("#"));
  QCOMPARE(asked(), QStringLiteral("SendDTMF(byte 0x23,)"));
  calls->setPrivacy(true);
  QCOMPARE(asked(), QStringLiteral("SetAudioPrivacy(true,)"));
  QVERIFY(!calls->isPrivate());
  m_fake->WillAnswer(&Service::GetAudioIsPrivacy, true);
  m_fake->Emit(AudioChanged{BT_AUDIO_DISCONNECTED});
  m_fake->Emit(CodecChanged{BT_CODEC_MSBC});
  settle();
  QVERIFY(calls->isPrivate());
  QCOMPARE(calls->codec(), Calls::Msbc);
  QCOMPARE(watch.resets, 0);
}

void CallsTest::callsVanishWithTheService() {
  m_fake->WillAnswer(&Service::CurrentCalls, CallsOf({Slot(1, BT_CALL_INCOMING, "110")}));
  Calls* const calls = m_bt->calls();
  settle();
  QCOMPARE(calls->model()->count(), 1);
  QVERIFY(!calls->incoming().toMap().isEmpty());
  RowsWatch watch(*calls->model());
  QSignalSpy incoming(calls, &Calls::incomingChanged);
  m_fake->SetAvailability(btasync::Availability::Absent);
  settle();
  QCOMPARE(calls->model()->count(), 0);
  QVERIFY(calls->incoming().toMap().isEmpty());
  QCOMPARE(incoming.count(), 1);
  QVERIFY(!calls->isFresh());
  QCOMPARE(watch.take(), QStringLiteral("+0 -1 >0 =0"));
}

QTEST_GUILESS_MAIN(CallsTest)
#include "calls_test.moc"
