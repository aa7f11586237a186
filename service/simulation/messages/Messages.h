#ifndef SERVICE_SIMULATION_MESSAGES_MESSAGES_H
#define SERVICE_SIMULATION_MESSAGES_MESSAGES_H

#include <string>

#include "service/simulation/devices/Connections.h"

namespace btservice {

/// The messages of a phone: fetched when it connects, and what happens to them after that.
class Messages {
 public:
  Messages(ModelContext& context, Connections& connections);

  // What happens at the phone, reported before it returns. False if it is not connected or has no such
  // message.

  /// A new one comes. The phone keeps it in any case; false: it is not connected, and nothing is reported.
  bool Arrive(RemoteDevice& device, const MessageData& message);
  /// Anything but an arrival happens to a message.
  bool Happen(RemoteDevice& device, const std::string& handle, MsgStatus status);
  /// The phone reports that a message was marked as read, or could not be.
  bool SetProperty(RemoteDevice& device, const std::string& handle, bool success);

 private:
  void Load(RemoteDevice& device, int done);
  static bool Has(const RemoteDevice& device, const std::string& handle);

  ModelContext& m_context;
  Timer m_load;
  RemoteDevice* m_loading = nullptr;
};

}  // namespace btservice

#endif
