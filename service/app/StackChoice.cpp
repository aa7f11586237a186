#include "service/app/StackChoice.h"

#include <algorithm>
#include <utility>

#include "service/app/ExitCodes.h"
#include "service/files/Quote.h"

namespace btservice {

StackChoice::StackChoice(std::vector<NamedStack> stacks) : m_stacks(std::move(stacks)) {
  m_help = "Use this Bluetooth stack: " + Names() +
           (m_stacks.size() > 1 ? "; the first by default" : ", the only one here");
}

std::string StackChoice::Names() const {
  std::string names;
  for (const NamedStack& stack : m_stacks) {
    names += (names.empty() ? "" : ", ") + stack.name;
  }
  return names;
}

std::string StackChoice::Description() const {
  std::string all;
  for (const NamedStack& stack : m_stacks) {
    all += stack.provider->Description();
  }
  return all;
}

std::vector<GOptionEntry> StackChoice::Options() {
  std::vector<GOptionEntry> all{{"stack", 0, 0, G_OPTION_ARG_STRING, m_asked.Out(), m_help.c_str(), "NAME"}};
  for (const NamedStack& stack : m_stacks) {
    const std::vector<GOptionEntry> its = stack.provider->Options();
    all.insert(all.end(), its.begin(), its.end());
  }
  return all;
}

std::optional<int> StackChoice::Check() {
  if (m_asked != nullptr) {
    const auto asked = std::find_if(m_stacks.begin(), m_stacks.end(),
                                    [this](const NamedStack& stack) { return stack.name == m_asked.get(); });
    if (asked == m_stacks.end()) {
      return FailUsage(("there is no stack " + Quote(m_asked.get()) + " here, only: " + Names()).c_str());
    }
    m_chosen = static_cast<std::size_t>(asked - m_stacks.begin());
  }
  for (const NamedStack& stack : m_stacks) {
    const std::string option = stack.provider.get() != &Chosen() ? stack.provider->OptionGiven() : "";
    if (!option.empty()) {
      return FailUsage((option + " is for the stack " + stack.name + ", which is not used").c_str());
    }
  }
  return Chosen().Check();
}

}  // namespace btservice
