#ifndef TESTS_HEADUNIT_RUNNINGHEADUNIT_H
#define TESTS_HEADUNIT_RUNNINGHEADUNIT_H

#include <functional>
#include <memory>

#include <QProcess>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>
#include <QVariantList>

#include "Application.h"
#include "BtService.h"
#include "support/BusDaemon.h"

/// The pages of the head unit.
enum Page { PHONE, CONTACTS, MUSIC, SETTINGS };

inline const QString kAda = QStringLiteral("00:1A:7D:DA:71:13");
inline const QString kBen = QStringLiteral("00:1A:7D:DA:71:14");
inline const QString kCarla = QStringLiteral("00:1A:7D:DA:71:15");

/// Two paired phones, of which Ben's is out of range, and Carla's, which is not paired. Nothing happens there
/// by itself.
QString deskWorld();

/// btservice in a world, and the head unit, on the bus of this process. Qt Test's functions fail the test;
/// what is asked here gives false or null.
class RunningHeadUnit {
 public:
  explicit RunningHeadUnit(const QString& world = deskWorld(), const Wishes& wishes = {});
  ~RunningHeadUnit();

  void startService();
  /// As a crash ends it.
  void killService();
  /// From now on the service neither answers nor reports anything, and keeps what it is asked for, until it
  /// is let go.
  void holdService();
  void letServiceGo();
  /// As a crash ends it.
  void stopBus();
  /// At the same address.
  void startBus();

  QQuickWindow& window() { return m_application.window(); }
  btqt::BtService& bt() { return *window().property("bt").value<btqt::BtService*>(); }
  PhoneOnTheDesk& phone() { return m_application.phone(); }
  /// What a person, a phone or the network does: one of the simulation's controls, as
  /// com.zelk.linux.bluetooth.sim.xml describes them. Whether it happened.
  bool outside(const QString& method, const QVariantList& arguments);
  /// What only a simulation can do. Whether it was taken on.
  bool fault(const QString& method, const QVariantList& arguments);

  void open(int page) { window().setProperty("page", page); }
  /// A visible item with this objectName; null if there is none. "row/button": the button in the row.
  QQuickItem* find(const QString& name);
  bool shows(const QString& name) { return find(name) != nullptr; }
  /// Waits for such an item; null if none comes.
  QQuickItem* wait(const QString& name);
  /// Waits until one is above the other.
  bool waitUntilAbove(const QString& name, const QString& other);
  /// The text of such an item; empty if there is none.
  QString text(const QString& name);
  /// Waits until there is one that is enabled and stands still, and taps it; false if none comes.
  bool tap(const QString& name);
  /// Waits for a condition, with a bound.
  bool waitFor(const std::function<bool()>& condition);
  /// Waits until the calls of Ada's phone go through the head unit.
  bool waitForPhone();
  /// Waits until so many frames have been shown; false if the condition does not hold at one of them.
  bool waitForFrames(int count, const std::function<bool()>& condition);

 private:
  QString m_world;
  QProcess m_service;
  Application m_application;
};

#endif
