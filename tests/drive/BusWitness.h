#ifndef TESTS_DRIVE_BUSWITNESS_H
#define TESTS_DRIVE_BUSWITNESS_H

#include <string>
#include <vector>

#include "glib/OwnedBus.h"

namespace btservice {

/// Hears, without the library, what the service says on the bus, as long as the main context is iterated.
class BusWitness {
 public:
  explicit BusWitness(GDBusConnection* connection);
  BusWitness(const BusWitness&) = delete;
  BusWitness& operator=(const BusWitness&) = delete;

  /// The signals of whoever owned the service's name when sending them, as a listener would note them:
  /// "OnCallStatusChanged(1, 5, 1)".
  const std::vector<std::string>& Signals() const { return m_signals; }
  /// How often the name went to an owner.
  int Owners() const { return m_owners; }

 private:
  static void OnOwnerChanged(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*,
                             GVariant* arguments, gpointer self);
  static void OnSignal(GDBusConnection*, const gchar* sender, const gchar*, const gchar*, const gchar* name,
                       GVariant* arguments, gpointer self);

  std::string m_owner;
  int m_owners = 0;
  std::vector<std::string> m_signals;
  OwnedSubscription m_ownerSubscription;
  OwnedSubscription m_signalSubscription;
};

}  // namespace btservice

#endif
