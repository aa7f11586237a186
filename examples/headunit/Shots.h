#ifndef EXAMPLES_HEADUNIT_SHOTS_H
#define EXAMPLES_HEADUNIT_SHOTS_H

#include <functional>
#include <vector>

#include <QImage>
#include <QObject>
#include <QString>
#include <QTimer>

#include "BtService.h"
#include "PhoneOnTheDesk.h"

class QQuickWindow;

/// Draws every screen into PNG files, one after the other: a screen is drawn once it shows what it is there
/// for and nothing on it changes any more.
class Shots : public QObject {
  Q_OBJECT

 public:
  Shots(QQuickWindow& window, PhoneOnTheDesk& phone, const QString& directory);

  /// Begins with the first screen.
  void take();

 Q_SIGNALS:
  /// All are drawn, or one could not be.
  void finished(bool success);

 private:
  struct Shot {
    QString name;
    std::function<void()> prepare;
    std::function<bool()> isReady;
  };

  void next();
  void look();
  bool write(const QImage& image, const QString& name);
  void open(int page);
  bool isDownloading();

  QQuickWindow& m_window;
  btqt::BtService& m_bt;
  PhoneOnTheDesk& m_phone;
  QString m_directory;
  std::vector<Shot> m_shots;
  std::size_t m_place = 0;  ///< of the shot that is taken
  int m_looks = 0;          ///< since it was prepared
  int m_looksForRest = 0;   ///< since there was something to draw
  QImage m_before;
  QTimer m_timer;
};

#endif
