#ifndef EXAMPLES_HEADUNIT_APPLICATION_H
#define EXAMPLES_HEADUNIT_APPLICATION_H

#include <memory>

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QString>

#include "PhoneOnTheDesk.h"
#include "PseudoTranslator.h"
#include "Shots.h"

class QQuickWindow;

/// What a person asked for on the command line.
struct Wishes {
  bool withPhone = false;
  bool light = false;
  bool pseudo = false;
  QString shots;  ///< a directory; empty: none
};

/// The head unit: its window, and what is put behind it.
class Application : public QObject {
  Q_OBJECT

 public:
  explicit Application(const Wishes& wishes);

  /// Shows the window; false, with a line on stderr, if it cannot be shown.
  bool show();
  /// Once it is shown.
  QQuickWindow& window() const;
  PhoneOnTheDesk& phone() { return m_phone; }

 private:
  Wishes m_wishes;
  PseudoTranslator m_translator;
  PhoneOnTheDesk m_phone;
  QQmlApplicationEngine m_engine;
  std::unique_ptr<Shots> m_shots;
};

#endif
