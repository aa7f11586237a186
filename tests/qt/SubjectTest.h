#ifndef TESTS_QT_SUBJECTTEST_H
#define TESTS_QT_SUBJECTTEST_H

#include <QRegularExpression>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>
#include <algorithm>
#include <memory>

#include "BtService.h"
#include "KnownService.h"
#include "RowsWatch.h"

namespace bttest {

inline const QString kAdasAddress = QStringLiteral("00:1A:7D:DA:71:13");
inline const QString kBensAddress = QStringLiteral("00:1A:7D:DA:71:14");

/// What the tests of a subject share: a BtService over a service in memory. A warning fails a test.
class SubjectTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    m_fake = std::make_unique<KnownService>();
    m_bt = std::make_unique<btqt::BtService>(*m_fake);
  }
  void cleanup() {
    m_bt.reset();
    m_fake.reset();
  }

 protected:
  void settle() { m_fake->Settle(); }
  /// What has been asked for and is not one of the questions of the mirror: all of it, since the last time.
  QString asked() {
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
  int countOf(const char* request) const {
    const auto& requests = m_fake->Requests();
    return static_cast<int>(std::count(requests.begin(), requests.end(), request));
  }
  static QStringList column(btqt::RowsModel* model, const char* role) {
    QStringList texts;
    for (int row = 0; row < model->count(); ++row) {
      texts.append(model->get(row).value(QString::fromUtf8(role)).toString());
    }
    return texts;
  }

  std::unique_ptr<KnownService> m_fake;
  std::unique_ptr<btqt::BtService> m_bt;
};

}  // namespace bttest

#endif
