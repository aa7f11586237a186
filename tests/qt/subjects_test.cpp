// What the subjects of a service show, and what they ask for.

#include <QSignalSpy>
#include <QTest>
#include <memory>

#include "BtService.h"
#include "KnownService.h"
#include "RowsWatch.h"

namespace {

using namespace btqt;
using namespace btasync;
using btqt::Download;
using bttest::CallsOf;
using bttest::Contact;
using bttest::kAda;
using bttest::kBen;
using bttest::Log;
using bttest::Paired;
using bttest::RowsWatch;
using bttest::Slot;
using std::chrono::milliseconds;
using Answered = btasync::Availability;

const QString kAdasAddress = QStringLiteral("00:1A:7D:DA:71:13");
const QString kBensAddress = QStringLiteral("00:1A:7D:DA:71:14");

class SubjectsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void theServiceSaysWhetherItIsThere();
  void onlyWhatIsUsedIsSubscribed();
  void subjectsOfOneTurnShareAReport();
  void theAdapterShowsAndAsks();
  void propertiesChangeWhenTheServiceSaysSo();
  void pairedDevicesAreRows();
  void pairingAndConnectingLastUntilTheyAreDone();
  void foundDevicesAreRows();
  void aMovedDeviceMoves();
  void aPairingAsksAPerson();
  void callsAreRows();
  void callsVanishWithTheService();
  void theNetworkIsShown();
  void musicIsShownAndControlled();
  void positionsComeOnlyWhenWanted();
  void contactsAreSortedAndFiltered();
  void fiveThousandContacts();
  void callLogsByType();
  void theDownloadIsShown();

 private:
  void settle() { m_fake->Settle(); }
  /// What has been asked for and is not one of the questions of the mirror: all of it, since the last time.
  QString asked();
  int countOf(const char* request) const;
  QStringList column(RowsModel* model, const char* role) const;

  std::unique_ptr<bttest::KnownService> m_fake;
  std::unique_ptr<BtService> m_bt;
};

QString SubjectsTest::asked() {
  m_fake->Settle();
  QStringList texts;
  for (const std::string& request : m_fake->Requests()) {
    const QString text = QString::fromStdString(request);
    static const QRegularExpression kQuestions(QStringLiteral(
        "^(Get(?!PairListIndex)|PairedDevices|CurrentCalls|Contacts|FavoriteContacts|CallLogs|Reg)"));
    if (!kQuestions.match(text).hasMatch()) {
      texts.append(text);
    }
  }
  m_fake->ForgetRequests();
  return texts.join(QLatin1Char(' '));
}

int SubjectsTest::countOf(const char* request) const {
  const auto& requests = m_fake->Requests();
  return static_cast<int>(std::count(requests.begin(), requests.end(), request));
}

QStringList SubjectsTest::column(RowsModel* model, const char* role) const {
  QStringList texts;
  for (int row = 0; row < model->count(); ++row) {
    texts.append(model->get(row).value(QString::fromUtf8(role)).toString());
  }
  return texts;
}

void SubjectsTest::init() {
  QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
  m_fake = std::make_unique<bttest::KnownService>();
  m_bt = std::make_unique<BtService>(*m_fake);
}

void SubjectsTest::cleanup() {
  m_bt.reset();
  m_fake.reset();
}

void SubjectsTest::theServiceSaysWhetherItIsThere() {
  QSignalSpy changed(m_bt.get(), &BtService::availabilityChanged);
  QCOMPARE(m_bt->availability(), BtService::Unknown);
  QVERIFY(!m_bt->isFresh());
  m_bt->adapter();
  settle();
  QCOMPARE(m_bt->availability(), BtService::Present);
  QVERIFY(m_bt->isFresh());
  QCOMPARE(changed.count(), 1);
  m_fake->SetAvailability(Answered::Absent);
  settle();
  QCOMPARE(m_bt->availability(), BtService::Absent);
  QVERIFY(!m_bt->isFresh());
  QVERIFY(!m_bt->adapter()->isFresh());
  QCOMPARE(m_bt->adapter()->name(), QStringLiteral("Head Unit"));  // greyed, and still there
  m_fake->SetAvailability(Answered::Present);
  settle();
  QVERIFY(m_bt->isFresh());
  m_bt->music();
  QVERIFY2(!m_bt->isFresh(), "a subject that has just been made knows nothing yet");
  settle();
  QVERIFY(m_bt->isFresh());
}

void SubjectsTest::onlyWhatIsUsedIsSubscribed() {
  settle();
  QVERIFY(m_fake->Requests().empty());
  QVERIFY(!m_fake->IsAwaited<PowerChanged>());
  m_bt->adapter();
  settle();
  QVERIFY(m_fake->IsAwaited<PowerChanged>());
  QVERIFY(!m_fake->IsAwaited<CallStatusChanged>());
  QVERIFY(!m_fake->IsAwaited<MusicChanged>());
  QCOMPARE(countOf("CurrentCalls()"), 0);
  QCOMPARE(m_bt->adapter(), m_bt->adapter());
}

void SubjectsTest::subjectsOfOneTurnShareAReport() {
  settle();
  m_bt->adapter();
  m_bt->devices();
  m_bt->calls();
  m_bt->network();
  m_bt->download();
  settle();
  QCOMPARE(countOf("GetBluetoothServiceStatus()"), 1);
  QVERIFY(m_bt->isFresh());
  m_fake->ForgetRequests();
  m_fake->SetAvailability(Answered::Absent);
  m_fake->SetAvailability(Answered::Present);
  settle();
  QCOMPARE(countOf("GetBluetoothServiceStatus()"), 1);
}

void SubjectsTest::theAdapterShowsAndAsks() {
  Adapter* const adapter = m_bt->adapter();
  settle();
  QCOMPARE(adapter->power(), Adapter::PowerOn);
  QCOMPARE(adapter->name(), QStringLiteral("Head Unit"));
  QCOMPARE(adapter->address(), QStringLiteral("00:1B:DC:00:00:01"));
  QVERIFY(adapter->isDiscoverable());
  QVERIFY(!adapter->isScanning());
  m_fake->Emit(ScanChanged{BT_SCAN_SCANNING});
  m_fake->Emit(AttributeChanged{BT_ATTR_LOCAL_NAME, "Jörgs Auto"});
  settle();
  QVERIFY(adapter->isScanning());
  QCOMPARE(adapter->name(), QStringLiteral("Jörgs Auto"));

  adapter->setPower(false);
  QCOMPARE(asked(), QStringLiteral("SetPower(byte 0x00,)"));
  adapter->startScan();
  QCOMPARE(asked(), QStringLiteral("SetScanAction(true,)"));
  adapter->stopScan();
  QCOMPARE(asked(), QStringLiteral("SetScanAction(false,)"));
  adapter->setName(QStringLiteral("Jörg"));
  QCOMPARE(asked(), QStringLiteral("SetAttribute(byte 0x00, 'Jörg')"));
  adapter->setDiscoverable(true);
  QCOMPARE(asked(), QStringLiteral("SetCapability(byte 0x09, byte 0x01)"));
}

void SubjectsTest::propertiesChangeWhenTheServiceSaysSo() {
  Adapter* const adapter = m_bt->adapter();
  settle();
  QSignalSpy changed(adapter, &Adapter::powerChanged);
  m_fake->WillAccept(&Service::SetPower)
      .Emits(PowerChanged{BT_POWER_TURNING_OFF})
      .Emits(PowerChanged{BT_POWER_OFF}, milliseconds(100));
  adapter->setPower(false);
  QCOMPARE(adapter->power(), Adapter::PowerOn);
  settle();
  QCOMPARE(adapter->power(), Adapter::PowerTurningOff);
  m_fake->Advance(milliseconds(100));
  QCOMPARE(adapter->power(), Adapter::PowerOff);
  QCOMPARE(changed.count(), 2);
  m_fake->Emit(PowerChanged{BT_POWER_OFF});
  settle();
  QCOMPARE(changed.count(), 2);
}

void SubjectsTest::pairedDevicesAreRows() {
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

void SubjectsTest::pairingAndConnectingLastUntilTheyAreDone() {
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

  m_fake->WillAccept(&Service::Connect)
      .Emits(ConnectionChanged{kBen, BT_PROFILE_HFP, BT_CONN_CONNECTED})
      .Emits(ConnectionChanged{kBen, BT_PROFILE_A2DP, BT_CONN_CONNECTED}, milliseconds(100));
  devices->connect(kBensAddress, &operation);
  m_fake->Advance(milliseconds(99));
  QVERIFY(operation.isUnderWay());
  m_fake->Advance(milliseconds(1));
  QCOMPARE(operation.result(), Operation::Accepted);
}

void SubjectsTest::foundDevicesAreRows() {
  Devices* const devices = m_bt->devices();
  settle();
  RowsWatch watch(*devices->found());
  m_fake->Emit(ScanChanged{BT_SCAN_SCANNING});
  m_fake->Emit(DeviceFound{kAda, "", BT_SUPPORT_NONE});
  settle();
  QCOMPARE(watch.take(), QStringLiteral("+1 -0 >0 =0"));
  m_fake->Emit(DeviceFound{kAda, "Ada's phone", BT_SUPPORT_ANDROID_AUTO});
  m_fake->Emit(DeviceFound{kBen, "Ben's phone", BT_SUPPORT_NONE});
  settle();
  QCOMPARE(watch.take(), QStringLiteral("+1 -0 >0 =1"));
  QCOMPARE(column(devices->found(), "name"),
           QStringList({QStringLiteral("Ada's phone"), QStringLiteral("Ben's phone")}));
  QCOMPARE(devices->found()->get(0)[QStringLiteral("support")].toInt(), int{Devices::AndroidAuto});
  QCOMPARE(watch.resets, 0);
}

void SubjectsTest::aMovedDeviceMoves() {
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

void SubjectsTest::aPairingAsksAPerson() {
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
  m_fake->SetAvailability(Answered::Absent);
  settle();
  QCOMPARE(devices->question(), nullptr);
}

void SubjectsTest::callsAreRows() {
  Calls* const calls = m_bt->calls();
  settle();
  RowsWatch watch(*calls->model());
  QVERIFY(calls->incoming().value<std::nullptr_t>() == nullptr && !calls->incoming().toMap().size());
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

void SubjectsTest::callsVanishWithTheService() {
  m_fake->WillAnswer(&Service::CurrentCalls, CallsOf({Slot(1, BT_CALL_INCOMING, "110")}));
  Calls* const calls = m_bt->calls();
  settle();
  QCOMPARE(calls->model()->count(), 1);
  QVERIFY(!calls->incoming().toMap().isEmpty());
  RowsWatch watch(*calls->model());
  QSignalSpy incoming(calls, &Calls::incomingChanged);
  m_fake->SetAvailability(Answered::Absent);
  settle();
  QCOMPARE(calls->model()->count(), 0);
  QVERIFY(calls->incoming().toMap().isEmpty());
  QCOMPARE(incoming.count(), 1);
  QVERIFY(!calls->isFresh());
  QCOMPARE(watch.take(), QStringLiteral("+0 -1 >0 =0"));
}

void SubjectsTest::theNetworkIsShown() {
  Network* const network = m_bt->network();
  settle();
  m_fake->Emit(OperatorChanged{"Küstenfunk"});
  m_fake->Emit(NetworkChanged{true});
  m_fake->Emit(SignalChanged{4});
  m_fake->Emit(RoamingChanged{true});
  m_fake->Emit(BatteryChanged{2});
  settle();
  QCOMPARE(network->phone(), kAdasAddress);
  QCOMPARE(network->operatorName(), QStringLiteral("Küstenfunk"));
  QVERIFY(network->isAvailable());
  QCOMPARE(network->signal(), 4);
  QVERIFY(network->isRoaming());
  QCOMPARE(network->battery(), 2);
  QVERIFY(network->isFresh());
}

void SubjectsTest::musicIsShownAndControlled() {
  Music* const music = m_bt->music();
  settle();
  QCOMPARE(music->state(), Music::Playing);
  QCOMPARE(music->title(), QStringLiteral("Low Tide"));
  QCOMPARE(music->artist(), QStringLiteral("The Estuaries"));
  QCOMPARE(music->album(), QStringLiteral("Shoreline"));
  QCOMPARE(music->length(), 167000);
  QCOMPARE(music->repeat(), Music::RepeatOff);
  QCOMPARE(music->shuffle(), Music::ShuffleAll);
  QCOMPARE(music->repeatModes(), QList<int>({1, 2, 3}));
  QCOMPARE(music->shuffleModes(), QList<int>({1, 2}));

  // Whoever hears of the title sees the artist that belongs to it.
  QString seen;
  QSignalSpy changed(music, &Music::trackChanged);
  connect(music, &Music::trackChanged, this,
          [&] { seen = music->title() + QLatin1Char('/') + music->album(); });
  MWPTypeMediaInfo track = bttest::KnownService::Track("Ebb");
  track.album = "Moon";
  m_fake->WillAnswer(&Service::GetMediaInfo, track);
  m_fake->Emit(TrackChanged{});
  settle();
  QCOMPARE(seen, QStringLiteral("Ebb/Moon"));
  QCOMPARE(changed.count(), 1);

  music->play();
  QVERIFY(asked().startsWith(QLatin1String("PlayMusic(")));
  music->pause();
  QVERIFY(asked().startsWith(QLatin1String("StopMusic(")));
  music->next();
  QVERIFY(asked().startsWith(QLatin1String("NextMusic(")));
  music->previous();
  QVERIFY(asked().startsWith(QLatin1String("PreviousMusic(")));
  music->wind(Music::WindForward);
  QVERIFY(asked().startsWith(QLatin1String("StartFastForward(")));
  music->wind(Music::WindStop);
  QVERIFY(asked().startsWith(QLatin1String("StopFastForward(")));
  music->wind(Music::WindBackward);
  QVERIFY(asked().startsWith(QLatin1String("StartFastReverse(")));
  m_fake->Emit(MusicChanged{BT_MUSIC_FAST_REVERSE});
  settle();
  music->wind(Music::WindStop);
  QVERIFY(asked().startsWith(QLatin1String("StopFastReverse(")));
  music->setRepeat(Music::RepeatAll);
  QCOMPARE(asked(), QStringLiteral("SetCurPlayMode((byte 0x02, byte 0x03),)"));
  QCOMPARE(music->repeat(), Music::RepeatOff);
  m_fake->WillAnswer(&Service::GetPlayModes, std::vector<MWPTypePlayMode>{{2, 3}, {3, 1}});
  m_fake->Emit(PlayModeChanged{});
  settle();
  QCOMPARE(music->repeat(), Music::RepeatAll);
  QCOMPARE(music->shuffle(), Music::ShuffleOff);
}

void SubjectsTest::positionsComeOnlyWhenWanted() {
  Music* const music = m_bt->music();
  settle();
  QVERIFY(!m_fake->IsAwaited<PositionChanged>());
  QCOMPARE(music->position(), 0);
  music->setPositionWanted(true);
  settle();
  QVERIFY(m_fake->IsAwaited<PositionChanged>());
  QCOMPARE(music->position(), 1000);
  QCOMPARE(music->length(), 180000);
  m_fake->Emit(PositionChanged{2000, 180000});
  settle();
  QCOMPARE(music->position(), 2000);
  QSignalSpy wanted(music, &Music::positionWantedChanged);
  music->setPositionWanted(false);
  QCOMPARE(wanted.count(), 1);
  QVERIFY(!m_fake->IsAwaited<PositionChanged>());
  QCOMPARE(music->position(), 0);
  QCOMPARE(music->length(), 167000);
}

void SubjectsTest::contactsAreSortedAndFiltered() {
  Contacts* const contacts = m_bt->contacts();
  RowsWatch watch(*contacts->model());
  settle();
  QCOMPARE(contacts->count(), 4);
  const auto names = [&] { return column(contacts->model(), "name").join(QLatin1Char('|')); };
  const auto filtered = [&](const char* filter) {
    contacts->setFilter(QString::fromUtf8(filter));
    return names();
  };
  QStringList sorted = column(contacts->model(), "name");
  QCOMPARE(QSet<QString>(sorted.begin(), sorted.end()).size(), 4);
  QVERIFY(sorted.indexOf(QStringLiteral("Ada Arndt")) < sorted.indexOf(QStringLiteral("Ben Baker")));
  QVERIFY(sorted.indexOf(QStringLiteral("Ben Baker")) < sorted.indexOf(QStringLiteral("Jörg Jäger")));
  const QVariantMap joerg = contacts->model()->get(contacts->model()->rowOf(QStringLiteral("4")));
  QCOMPARE(joerg[QStringLiteral("section")].toString(), QStringLiteral("J"));
  const QVariantMap number = joerg[QStringLiteral("numbers")].toList().value(0).toMap();
  QCOMPARE(number[QStringLiteral("number")].toString(), QStringLiteral("+49170000004"));
  QCOMPARE(number[QStringLiteral("kind")].toInt(), int{Contacts::Mobile});
  const QVariantMap doctors = contacts->model()->get(contacts->model()->rowOf(QStringLiteral("7")));
  QCOMPARE(doctors[QStringLiteral("section")].toString(), QStringLiteral("A"));

  QCOMPARE(filtered("jorg"), QStringLiteral("Jörg Jäger"));
  QCOMPARE(filtered("JÄ"), QStringLiteral("Jörg Jäger"));
  QCOMPARE(filtered("bak be"), QStringLiteral("Ben Baker"));
  QCOMPARE(filtered("116117"), QStringLiteral("Ärzte am Hafen"));
  QCOMPARE(filtered("aker"), QString());
  QCOMPARE(contacts->count(), 4);
  QCOMPARE(filtered("").count(QLatin1Char('|')), 3);
  QVERIFY(watch.isInStep());

  QCOMPARE(column(contacts->favourites(), "name"), QStringList(QStringLiteral("Ben Baker")));
  watch.take();
  contacts->setFavourite(1, true);
  QVERIFY(asked().startsWith(QLatin1String("SetContactFavorite(1")));
  QCOMPARE(contacts->favourites()->count(), 1);
  m_fake->WillAnswer(&Service::FavoriteContacts, std::vector<MWPTypeContact>{Contact(1, "Ada", "Arndt", ""),
                                                                             Contact(2, "Ben", "Baker", "")});
  m_fake->Emit(FavoriteChanged{1, true});
  settle();
  QCOMPARE(watch.take(), QStringLiteral("+0 -0 >0 =1"));
  QCOMPARE(contacts->favourites()->count(), 2);
  contacts->remove(1);
  QVERIFY(asked().startsWith(QLatin1String("DeleteContactById(1")));
  QCOMPARE(watch.resets, 0);
}

void SubjectsTest::fiveThousandContacts() {
  std::vector<MWPTypeContact> book;
  for (int id = 1; id <= 5000; ++id) {
    const std::string name = std::to_string(10000 + id * 7 % 5000);
    book.push_back(Contact(id, "First" + name, "Family" + name, "+49" + name));
  }
  m_fake->WillAnswer(&Service::Contacts, book);
  Contacts* const contacts = m_bt->contacts();
  RowsWatch watch(*contacts->model());
  settle();
  QCOMPARE(contacts->model()->count(), 5000);
  QCOMPARE(watch.take(), QStringLiteral("+1 -0 >0 =0"));
  contacts->setFilter(QStringLiteral("first149"));
  QCOMPARE(contacts->model()->count(), 100);
  contacts->setFilter(QString());
  QCOMPARE(contacts->model()->count(), 5000);
  QVERIFY(watch.isInStep());
  watch.take();

  // One of them gets a name that is further down, another one another number.
  book[0].strText1 = "Zoe";
  book[2].listNumbers.front().vecValues = {"110"};
  m_fake->WillAnswer(&Service::Contacts, book);
  m_fake->Emit(PhoneBookDeleted{true});
  settle();
  QCOMPARE(watch.take(), QStringLiteral("+0 -0 >1 =2"));
  QCOMPARE(contacts->model()->rowOf(QStringLiteral("1")), 4999);
  QCOMPARE(watch.resets, 0);
}

void SubjectsTest::callLogsByType() {
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

void SubjectsTest::theDownloadIsShown() {
  Download* const download = m_bt->download();
  settle();
  QCOMPARE(download->state(), Download::Idle);
  download->start();
  QCOMPARE(asked(), QStringLiteral("StartPhoneBookDownload(byte 0x06,)"));
  QCOMPARE(download->state(), Download::Idle);
  m_fake->Emit(DownloadChanged{BT_PBAP_DOWNLOADING, BT_PBAP_PHONE_BOOK});
  m_fake->Emit(DownloadProgress{40, 120});
  settle();
  QCOMPARE(download->state(), Download::Downloading);
  QCOMPARE(download->type(), Download::PhoneBook);
  QCOMPARE(download->done(), 40);
  QCOMPARE(download->total(), 120);
  download->stop();
  QVERIFY(asked().startsWith(QLatin1String("StopPhoneBookDownload(")));
  download->startOnly(Download::MissedCalls);
  QCOMPARE(asked(), QStringLiteral("StartPhoneBookDownload(byte 0x03,)"));
  m_fake->SetAvailability(Answered::Absent);
  settle();
  QCOMPARE(download->state(), Download::Idle);
  QCOMPARE(download->done(), 0);
}

}  // namespace

QTEST_GUILESS_MAIN(SubjectsTest)
#include "subjects_test.moc"
