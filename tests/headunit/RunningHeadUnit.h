#ifndef TESTS_HEADUNIT_RUNNINGHEADUNIT_H
#define TESTS_HEADUNIT_RUNNINGHEADUNIT_H

#include <functional>
#include <memory>

#include <QProcess>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>

#include "Application.h"
#include "BtService.h"

/// btservice in a world, and the head unit. Qt Test's functions fail the test; what is asked here gives false
/// or null.
class RunningHeadUnit {
 public:
  explicit RunningHeadUnit(const QString& world, const Wishes& wishes = {});
  ~RunningHeadUnit();

  void startService();
  /// As a crash ends it.
  void killService();

  QQuickWindow& window() { return m_application.window(); }
  btqt::BtService& bt() { return *window().property("bt").value<btqt::BtService*>(); }
  PhoneOnTheDesk& phone() { return m_application.phone(); }

  void open(int page) { window().setProperty("page", page); }
  /// A visible item with this objectName; null if there is none.
  QQuickItem* find(const QString& name);
  /// Waits until there is one and taps it; false if none comes.
  bool tap(const QString& name);
  /// Waits for a condition, with a bound.
  bool waitFor(const std::function<bool()>& condition);

 private:
  QString m_world;
  QProcess m_service;
  Application m_application;
};

#endif
