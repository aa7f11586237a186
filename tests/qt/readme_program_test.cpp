// The program of qt/README.md, as it is written there, with the simulated service: it runs until its window
// has a title.

#include <QApplication>
#include <QLabel>
#include <QProcess>
#include <QTimer>

// CMake takes it from the README. It is a function here.
#define main readmeMain
#include "readme_program.cpp"  // NOLINT(bugprone-suspicious-include)
#undef main

namespace {

constexpr int kLookMs = 50;
constexpr int kMostLooks = 400;  // 20 seconds, far more than it takes

void watch() {
  QCoreApplication* const application = QCoreApplication::instance();
  auto* const service = new QProcess(application);
  service->setProcessChannelMode(QProcess::ForwardedErrorChannel);
  service->start(QStringLiteral("/app/bin/btservice"),
                 {QStringLiteral("--no-state"), QStringLiteral("--world"), QStringLiteral("one-phone"),
                  QStringLiteral("--speed"), QStringLiteral("10")});
  QObject::connect(application, &QCoreApplication::aboutToQuit, service, [service] {
    service->kill();
    service->waitForFinished();
  });

  auto* const look = new QTimer(application);
  QObject::connect(look, &QTimer::timeout, look, [looks = 0]() mutable {
    const auto widgets = QApplication::topLevelWidgets();
    for (const QWidget* const widget : widgets) {
      const auto* const label = qobject_cast<const QLabel*>(widget);
      if (label != nullptr && label->isVisible() && label->text() == QStringLiteral("Low Tide")) {
        QCoreApplication::exit(EXIT_SUCCESS);
        return;
      }
    }
    if (++looks == kMostLooks) {
      qWarning("the window shows no title");
      QCoreApplication::exit(EXIT_FAILURE);
    }
  });
  look->start(kLookMs);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(watch)

int main(int argc, char** argv) { return readmeMain(argc, argv); }
