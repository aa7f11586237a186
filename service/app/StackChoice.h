#ifndef SERVICE_APP_STACKCHOICE_H
#define SERVICE_APP_STACKCHOICE_H

#include <memory>
#include <string>
#include <vector>

#include "glib/Owned.h"
#include "service/app/StackProvider.h"

namespace btservice {

/// A stack that a program was built with, by the name that the option --stack has for it.
struct NamedStack {
  std::string name;
  std::unique_ptr<StackProvider> provider;
};

/// The stacks of a program that was built with one or several, of which the command line chooses one: it is
/// used, or the service does not start. None ever takes the place of another by itself.
class StackChoice : public StackProvider {
 public:
  /// stacks: at least one, and the first is the one that is used unless another is asked for.
  explicit StackChoice(std::vector<NamedStack> stacks);

  std::string Summary() const override { return m_stacks.front().provider->Summary(); }
  std::string Description() const override;
  std::vector<GOptionEntry> Options() override;
  /// Refuses a stack that is not there, and options of one that is not used.
  std::optional<int> Check() override;
  std::optional<int> Prepare() override { return Chosen().Prepare(); }

  double Speed() const override { return Chosen().Speed(); }
  bool Export(ServiceBus& bus) override { return Chosen().Export(bus); }
  ProvidedStack MakeStack(const ServiceParts& parts, const StackStart& start) override {
    return Chosen().MakeStack(parts, start);
  }

 private:
  StackProvider& Chosen() const { return *m_stacks[m_chosen].provider; }
  std::string Names() const;

  std::vector<NamedStack> m_stacks;
  std::size_t m_chosen = 0;
  std::string m_help;  ///< of the option: GLib keeps only a pointer
  OwnedText m_asked;   ///< what the option says; null if it was not given
};

}  // namespace btservice

#endif
