// Paired and found devices, connections, and pairing.

#include "SubjectTest.h"

namespace {

using namespace btqt;
using namespace btasync;
using namespace bttest;
using std::chrono::milliseconds;

}  // namespace

class DevicesTest : public SubjectTest {
  Q_OBJECT

 private Q_SLOTS:
  void pairedDevicesAreRows();
  void pairingAndConnectingLastUntilTheyAreDone();
  void aFailedPairingHasItsReasonUntilTheNext();
  void aPairingThatIsRefusedAtOnceHasNotTheReasonOfTheOneBefore();
  void foundDevicesAreRows();
  void aMovedDeviceMoves();
  void aPairingAsksAPerson();
};

void DevicesTest::pairedDevicesAreRows() {
  Devices* const devices = m_bt->devices();
  RowsWatch watch(*devices->paired());
  settle();
  QCOMPARE(column(devices->paired(), "name"),
           QStringList({QStringLiteral("Ada's phone"), QStringLiteral("Ben's phone")}));
  QCOMPARE(watch.take(), QStringLiteral("+1 -0 >0 =0"));
  m_fake->Emit(ConnectionChanged{Address("00:1a:7d:da:71:14"), BT_PROFILE_HFP, BT_CONN_CONNECTED});
  settle();
  QCOMPARE(watch.take(), QStringLiteral("+0 -0 >0 =1"));
  const QVariantMap ben = devices->paired()->get(devices->paired()->rowOf(kBensAddress));
  QCOMPARE(ben[QStringLiteral("hfp")].toInt(), int{Devices::Connected});
  QCOMPARE(ben[QStringLiteral("a2dp")].toInt(), int{Devices::Disconnected});
  QCOMPARE(ben[QStringLiteral("connected")].toBool(), true);

  devices->connect(kBensAddress);
  QCOMPARE(asked(), QStringLiteral("Connect('00:1A:7D:DA:71:14', byte 0x03, byte 0x00)"));
  devices->disconnectProfile(kBensAddress, Devices::A2dp);
  QCOMPARE(asked(), QStringLiteral("DisConnect('00:1A:7D:DA:71:14', byte 0x02)"));
  m_fake->WillAccept(&Service::DeletePairedDevice).Emits(PairedDevicesDeleted{true});
  m_fake->WillAnswer(&Service::PairedDevices, std::vector<MWPTypeDevice>{Paired(kBen, "Ben's phone")});
  devices->remove(kAdasAddress);
  QCOMPARE(asked(), QStringLiteral("DeletePairDevice('00:1A:7D:DA:71:13', true)"));
  QCOMPARE(watch.take(), QStringLiteral("+0 -1 >0 =0"));
  devices->removeAll();
  QCOMPARE(asked(), QStringLiteral("DeletePairDeviceList()"));
  QVERIFY(watch.isInStep());
  QCOMPARE(watch.resets, 0);
}

void DevicesTest::pairingAndConnectingLastUntilTheyAreDone() {
  Devices* const devices = m_bt->devices();
  settle();
  Operation operation;
  m_fake->WillAccept(&Service::Pair)
      .Emits(PairChanged{BT_PAIR_PAIRING, BT_PAIR_REASON_NONE, kBen})
      .Emits(PairChanged{BT_PAIR_FAILED, BT_PAIR_REASON_REJECTED_REMOTE, kBen}, milliseconds(100));
  devices->pair(kBensAddress, &operation);
  m_fake->Advance(milliseconds(99));
  QVERIFY(operation.isUnderWay());
  m_fake->Advance(milliseconds(1));
  QCOMPARE(operation.result(), Operation::Refused);
  QCOMPARE(devices->pairFailure(), Devices::RejectedThere);

  m_fake->WillAccept(&Service::Connect)
      .Emits(ConnectionChanged{kBen, BT_PROFILE_HFP, BT_CONN_CONNECTED})
      .Emits(ConnectionChanged{kBen, BT_PROFILE_A2DP, BT_CONN_CONNECTED}, milliseconds(100));
  devices->connect(kBensAddress, &operation);
  m_fake->Advance(milliseconds(99));
  QVERIFY(operation.isUnderWay());
  m_fake->Advance(milliseconds(1));
  QCOMPARE(operation.result(), Operation::Accepted);
}

void DevicesTest::aFailedPairingHasItsReasonUntilTheNext() {
  Devices* const devices = m_bt->devices();
  settle();
  QSignalSpy changed(devices, &Devices::pairFailureChanged);
  QCOMPARE(devices->pairFailure(), Devices::NoFailure);
  const auto fails = [&](int reason) {
    m_fake->Emit(PairChanged{BT_PAIR_FAILED, static_cast<PairFailedReson>(reason), kBen});
    settle();
    return devices->pairFailure();
  };
  QCOMPARE(fails(BT_PAIR_REASON_AUTHENTICATION), Devices::Authentication);
  QCOMPARE(fails(BT_PAIR_REASON_LIST_FULL), Devices::ListFull);
  QCOMPARE(fails(BT_PAIR_REASON_NONE), Devices::UnknownFailure);
  QCOMPARE(fails(200), Devices::UnknownFailure);
  QCOMPARE(changed.count(), 3);
  m_fake->Emit(PairChanged{BT_PAIR_PAIRING, BT_PAIR_REASON_NONE, kBen});
  settle();
  QCOMPARE(devices->pairFailure(), Devices::NoFailure);
  QCOMPARE(fails(BT_PAIR_REASON_BUSY), Devices::Busy);
  m_fake->SetAvailability(Availability::Absent);
  settle();
  QCOMPARE(devices->pairFailure(), Devices::NoFailure);
}

void DevicesTest::aPairingThatIsRefusedAtOnceHasNotTheReasonOfTheOneBefore() {
  Devices* const devices = m_bt->devices();
  settle();
  m_fake->Emit(PairChanged{BT_PAIR_FAILED, BT_PAIR_REASON_AUTHENTICATION, kBen});
  settle();
  QCOMPARE(devices->pairFailure(), Devices::Authentication);
  QSignalSpy changed(devices, &Devices::pairFailureChanged);
  m_fake->WillRefuse(&Service::Pair);
  Operation operation;
  devices->pair(kBensAddress, &operation);
  settle();
  QCOMPARE(operation.result(), Operation::Refused);
  QCOMPARE(devices->pairFailure(), Devices::NoFailure);
  QCOMPARE(changed.count(), 1);
}

void DevicesTest::foundDevicesAreRows() {
  Devices* const devices = m_bt->devices();
  settle();
  RowsWatch watch(*devices->found());
  const Address carla("00:1A:7D:DA:71:15");
  const Address dora("00:1A:7D:DA:71:16");
  m_fake->Emit(ScanChanged{BT_SCAN_SCANNING});
  m_fake->Emit(DeviceFound{carla, "", BT_SUPPORT_NONE});
  settle();
  QCOMPARE(watch.take(), QStringLiteral("+1 -0 >0 =0"));
  m_fake->Emit(DeviceFound{carla, "Carla's phone", BT_SUPPORT_ANDROID_AUTO});
  m_fake->Emit(DeviceFound{kBen, "Ben's phone", BT_SUPPORT_NONE});  // which is paired
  m_fake->Emit(DeviceFound{dora, "Dora's phone", BT_SUPPORT_NONE});
  settle();
  QCOMPARE(watch.take(), QStringLiteral("+1 -0 >0 =1"));
  QCOMPARE(column(devices->found(), "name"),
           QStringList({QStringLiteral("Carla's phone"), QStringLiteral("Dora's phone")}));
  QCOMPARE(devices->found()->get(0)[QStringLiteral("support")].toInt(), int{Devices::AndroidAuto});
  m_fake->WillAnswer(&Service::PairedDevices, std::vector<MWPTypeDevice>{Paired(kAda, "Ada's phone")});
  m_fake->Emit(PairedDevicesDeleted{true});
  settle();
  QCOMPARE(devices->found()->rowOf(kBensAddress), 1);
  QCOMPARE(watch.resets, 0);
}

void DevicesTest::aMovedDeviceMoves() {
  Devices* const devices = m_bt->devices();
  settle();
  RowsWatch watch(*devices->paired());
  m_fake->WillAccept(&Service::MovePairedDevice).After(milliseconds(10));
  m_fake->WillAnswer(&Service::GetPairedDeviceIndex, 0).After(milliseconds(10));
  Operation operation;
  devices->move(kBensAddress, 0, &operation);
  settle();
  m_fake->WillAnswer(&Service::PairedDevices,
                     std::vector<MWPTypeDevice>{Paired(kBen, "Ben's phone"), Paired(kAda, "Ada's phone")});
  m_fake->Advance(milliseconds(10));
  QCOMPARE(operation.result(), Operation::Accepted);
  QCOMPARE(asked(), QStringLiteral("MovePairDevicePosion('00:1A:7D:DA:71:14', 0) "
                                   "GetPairListIndexByAddress('00:1A:7D:DA:71:14',)"));
  QCOMPARE(watch.take(), QStringLiteral("+0 -0 >1 =0"));
  QCOMPARE(devices->paired()->rowOf(kBensAddress), 0);
}

void DevicesTest::aPairingAsksAPerson() {
  Devices* const devices = m_bt->devices();
  settle();
  QSignalSpy changed(devices, &Devices::questionChanged);
  m_fake->Emit(DeviceFound{Address("00:1A:7D:DA:71:15"), "Carla's phone", BT_SUPPORT_NONE});
  m_fake->Emit(PairChanged{BT_PAIR_PAIRING, BT_PAIR_REASON_NONE, Address("00:1A:7D:DA:71:15")});
  settle();
  QCOMPARE(devices->pairing(), QStringLiteral("00:1A:7D:DA:71:15"));
  QCOMPARE(devices->question(), nullptr);
  m_fake->Emit(PairRequested{Address("00:1A:7D:DA:71:15"), "123456", false, BT_PAIR_REQUEST_CONFIRMATION});
  settle();
  QPointer<PairingQuestion> question = devices->question();
  QVERIFY(question != nullptr);
  QCOMPARE(changed.count(), 1);
  QCOMPARE(question->name(), QStringLiteral("Carla's phone"));
  QCOMPARE(question->digits(), QStringLiteral("123456"));
  QCOMPARE(question->kind(), PairingQuestion::Confirmation);

  m_fake->WillAccept(&Service::AnswerPair)
      .Emits(PairChanged{BT_PAIR_PAIRED, BT_PAIR_REASON_NONE, Address("00:1A:7D:DA:71:15")})
      .After(milliseconds(5));
  Operation operation;
  question->accept(&operation);
  settle();
  QCOMPARE(devices->question(), nullptr);
  QCOMPARE(devices->pairing(), QString());
  QCOMPARE(changed.count(), 2);
  QTRY_VERIFY(question == nullptr);
  QVERIFY2(operation.isUnderWay(), "the answer is followed beyond the question's end");
  m_fake->Advance(milliseconds(5));
  QCOMPARE(operation.result(), Operation::Accepted);

  m_fake->Emit(PairRequested{kAda, "", false, BT_PAIR_REQUEST_PIN_CODE});
  settle();
  QCOMPARE(devices->question()->name(), QStringLiteral("Ada's phone"));
  devices->question()->acceptWith(QStringLiteral("0000"));
  QCOMPARE(asked(), QStringLiteral("AnswerPair('', '00:1A:7D:DA:71:15', byte 0x00) "
                                   "AnswerPair('0000', '00:1A:7D:DA:71:13', byte 0x03)"));
  devices->question()->reject();
  QVERIFY(asked().startsWith(QLatin1String("RejectPair('00:1A:7D:DA:71:13'")));
  m_fake->SetAvailability(btasync::Availability::Absent);
  settle();
  QCOMPARE(devices->question(), nullptr);
}

QTEST_GUILESS_MAIN(DevicesTest)
#include "devices_test.moc"
