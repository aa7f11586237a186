// Runs the tests that are written in QML. A warning of QML, or any other, fails them.

#include <QQmlEngine>
#include <QtQuickTest>
#include <atomic>

#include "FakePhone.h"

namespace {

std::atomic<int> t_warnings{0};
QtMessageHandler t_before = nullptr;

void countWarnings(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (type == QtWarningMsg || type == QtCriticalMsg) {
    ++t_warnings;
    fprintf(stderr, "A warning fails the test: %s\n", qPrintable(message));
  }
  if (t_before != nullptr) {
    t_before(type, context, message);
  }
}

/// Finds the modules that are built into the test.
class Setup : public QObject {
  Q_OBJECT

 public Q_SLOTS:
  void qmlEngineAvailable(QQmlEngine* engine) { engine->addImportPath(QStringLiteral("qrc:/qt/qml")); }
};

}  // namespace

int main(int argc, char** argv) {
  qmlRegisterType<bttest::FakePhone>("BtAsyncTest", 1, 0, "FakePhone");
  t_before = qInstallMessageHandler(countWarnings);
  Setup setup;
  const int failed = quick_test_main_with_setup(argc, argv, "qt", QUICK_TEST_SOURCE_DIR, &setup);
  return failed != 0 ? failed : t_warnings.load();
}

#include "quick_test.moc"
