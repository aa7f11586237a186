#ifndef SERVICE_BLUEZ_BLUEZPROVIDER_H
#define SERVICE_BLUEZ_BLUEZPROVIDER_H

#include <string>

#include "service/app/StackProvider.h"

namespace btservice::bluez {

/// The stack over BlueZ. It has no options and nothing of its own on the session bus.
class BluezProvider : public StackProvider {
 public:
  std::string Summary() const override;
  std::string Description() const override;
  ProvidedStack MakeStack(const ServiceParts& parts, const StackStart& start) override;
};

}  // namespace btservice::bluez

#endif
