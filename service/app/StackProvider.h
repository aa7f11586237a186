#ifndef SERVICE_APP_STACKPROVIDER_H
#define SERVICE_APP_STACKPROVIDER_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <glib.h>

#include "ipc/ShareMemory/SegmentOwner.h"
#include "service/app/ServiceBus.h"
#include "service/frontend/AnswerGate.h"
#include "service/stack/BluetoothStack.h"
#include "service/time/Scheduler.h"

namespace btservice {

/// What the service lends to a stack. All of it outlives the stack.
struct ServiceParts {
  Scheduler& scheduler;
  SegmentOwner& segments;
  ServiceBus& bus;
};

/// A stack, and what may stand between calls and their answers while it lives.
struct ProvidedStack {
  std::unique_ptr<BluetoothStack> stack;
  AnswerGate* gate = nullptr;  ///< null: every call is answered as it should be. Lives as long as the stack
};

/// A kind of stack that a program can be built with, and what it brings along: options, objects on the bus.
/// It outlives everything else in the process. All of it is called on the thread of the main loop.
class StackProvider {
 public:
  virtual ~StackProvider() = default;

  /// What the program is, for its help: "Simulates ...".
  virtual std::string Summary() const = 0;
  /// More for the help, about the options below. Empty, or it ends with an empty line.
  virtual std::string Description() const { return ""; }
  /// Options of its own. What they point to is the provider's, and filled in by the time of Check.
  virtual std::vector<GOptionEntry> Options() { return {}; }
  /// One of these that was given, such as "--world"; empty if none was. Asked where another stack is used,
  /// for which they say nothing.
  virtual std::string OptionGiven() const { return ""; }
  /// Looks at its options. Nothing if the service can start, else the exit code; what there is to say has
  /// been said.
  virtual std::optional<int> Check() { return std::nullopt; }
  /// Reads what it needs in order to start. As Check, and called after it.
  virtual std::optional<int> Prepare() { return std::nullopt; }

  /// How fast the service's clock runs.
  virtual double Speed() const { return 1; }
  /// Puts objects of its own on the bus, beside the service's. False if the bus does not take them.
  virtual bool Export(ServiceBus& /*bus*/) { return true; }
  /// The stack. Called once, when the process owns the service's name.
  virtual ProvidedStack MakeStack(const ServiceParts& parts, const StackStart& start) = 0;
};

/// The provider of this program: which one is linked decides. That of btservice is a StackChoice.
std::unique_ptr<StackProvider> MakeStackProvider();

}  // namespace btservice

#endif
