#ifndef EXAMPLES_HEADUNIT_SHOTS_H
#define EXAMPLES_HEADUNIT_SHOTS_H

#include <QObject>
#include <QString>

class QQuickWindow;

/// Draws every screen into PNG files, one after the other: a screen is drawn once what it shows is fresh and
/// nothing on it has changed for a while.
class Shots : public QObject {
  Q_OBJECT

 public:
  Shots(QQuickWindow& window, const QString& directory);

  /// Begins with the first screen.
  void take();

 Q_SIGNALS:
  /// All are drawn, or one could not be.
  void finished(bool success);

 private:
  void next();
  void draw();

  QQuickWindow& m_window;
  QString m_directory;
  int m_page = -1;
};

#endif
