#include "Shots.h"

#include <QDir>
#include <QImage>
#include <QQuickWindow>
#include <QTextStream>
#include <QTimer>
#include <QVariant>

namespace {

const char* const kScreens[] = {"phone", "contacts", "music", "settings"};
constexpr int kPages = 4;
/// Nothing on a screen changes for so long once it is there.
constexpr int kSettledMs = 1500;

}  // namespace

Shots::Shots(QQuickWindow& window, const QString& directory) : m_window(window), m_directory(directory) {}

void Shots::take() { next(); }

void Shots::next() {
  if (++m_page == kPages) {
    Q_EMIT finished(true);
    return;
  }
  m_window.setProperty("page", m_page);
  QTimer::singleShot(kSettledMs, this, &Shots::draw);
}

void Shots::draw() {
  const QString file = QDir(m_directory).filePath(QLatin1String(kScreens[m_page]) + QLatin1String(".png"));
  if (!QDir().mkpath(m_directory) || !m_window.grabWindow().save(file)) {
    QTextStream(stderr) << "headunit: cannot write " << file << Qt::endl;
    Q_EMIT finished(false);
    return;
  }
  QTextStream(stdout) << file << Qt::endl;
  next();
}
