// The download of the phone book.

#include "SubjectTest.h"

namespace {

using namespace btqt;
using namespace btasync;
using namespace bttest;
using btqt::Download;

}  // namespace

class DownloadTest : public SubjectTest {
  Q_OBJECT

 private Q_SLOTS:
  void theDownloadIsShown();
};

void DownloadTest::theDownloadIsShown() {
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
  m_fake->SetAvailability(btasync::Availability::Absent);
  settle();
  QCOMPARE(download->state(), Download::Idle);
  QCOMPARE(download->done(), 0);
}

QTEST_GUILESS_MAIN(DownloadTest)
#include "download_test.moc"
