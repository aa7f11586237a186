// Runs the tests that are written in QML. A warning of QML, or any other, fails them.

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

}  // namespace

int main(int argc, char** argv) {
  qmlRegisterType<bttest::FakePhone>("BtAsyncTest", 1, 0, "FakePhone");
  t_before = qInstallMessageHandler(countWarnings);
  const int failed = quick_test_main(argc, argv, "qt", QUICK_TEST_SOURCE_DIR);
  return failed != 0 ? failed : t_warnings.load();
}
