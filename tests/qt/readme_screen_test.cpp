// The screen of qt/README.md, as it is written there, with the simulated service.

#include <QFile>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QTest>
#include <memory>

#include "BtService.h"

namespace {

constexpr int kBound = 20000;  // milliseconds; far above what it takes

QByteArray exampleOfReadme() {
  QFile file(QStringLiteral(QT_README));
  if (!file.open(QIODevice::ReadOnly)) {
    return QByteArray();
  }
  static const QRegularExpression block(QStringLiteral("```qml\\n(.*?)```"),
                                        QRegularExpression::DotMatchesEverythingOption);
  return block.match(QString::fromUtf8(file.readAll())).captured(1).toUtf8();
}

}  // namespace

class ReadmeScreenTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase();
  void cleanupTestCase();
  void theScreenShowsTheTitleAndSwitchesThePower();

 private:
  QProcess m_service;
};

void ReadmeScreenTest::initTestCase() {
  m_service.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  m_service.start(QStringLiteral("/app/bin/btservice"),
                  {QStringLiteral("--no-state"), QStringLiteral("--world"), QStringLiteral("one-phone"),
                   QStringLiteral("--speed"), QStringLiteral("10")});
  QVERIFY(m_service.waitForStarted());
}

void ReadmeScreenTest::cleanupTestCase() {
  m_service.kill();
  m_service.waitForFinished();
}

void ReadmeScreenTest::theScreenShowsTheTitleAndSwitchesThePower() {
  QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
  QQuickWindow window;
  QQmlEngine engine;
  QQmlComponent component(&engine);
  component.setData(exampleOfReadme(), QUrl());
  const std::unique_ptr<QObject> made(component.create());
  auto* const screen = qobject_cast<QQuickItem*>(made.get());
  QVERIFY2(screen != nullptr, qPrintable(component.errorString()));
  screen->setParentItem(window.contentItem());
  window.resize(screen->size().toSize());
  window.show();
  QVERIFY(QTest::qWaitForWindowExposed(&window));

  const QQuickItem* text = nullptr;
  const auto children = screen->childItems();
  for (const QQuickItem* const child : children) {
    text = child->inherits("QQuickText") ? child : text;
  }
  QVERIFY(text != nullptr);
  QTRY_VERIFY_WITH_TIMEOUT(!text->property("text").toString().isEmpty() && text->opacity() == 1, kBound);
  auto* const bt = screen->findChild<btqt::BtService*>();
  QVERIFY(bt != nullptr);
  QTRY_COMPARE_WITH_TIMEOUT(bt->adapter()->power(), btqt::Adapter::PowerOn, kBound);
  QTest::mouseClick(&window, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
  QTRY_COMPARE_WITH_TIMEOUT(bt->adapter()->power(), btqt::Adapter::PowerOff, kBound);
}

QTEST_MAIN(ReadmeScreenTest)
#include "readme_screen_test.moc"
