#ifndef TESTS_HEADUNIT_HEADUNITTEST_H
#define TESTS_HEADUNIT_HEADUNITTEST_H

#include <QObject>
#include <QRegularExpression>
#include <QTest>

/// What the tests of the head unit share: a warning, of QML or of any other, fails a test.
class HeadUnitTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); }
};

#endif
