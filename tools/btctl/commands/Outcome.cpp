#include "btctl/commands/Outcome.h"

namespace btctl {

Condition Is(const std::string& field, const std::string& value) { return {field, value, std::nullopt}; }

Condition IsArgument(const std::string& field, std::size_t argument) { return {field, "", argument}; }

}  // namespace btctl
