#ifndef TOOLS_BTCTL_COMMANDS_ARGUMENT_H
#define TOOLS_BTCTL_COMMANDS_ARGUMENT_H

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace btctl {

class WordTable;

/// What an argument of a command means: how it is read, and what the shell offers to complete it with.
enum class Meaning {
  TEXT,
  ADDRESS,  ///< of a device
  NUMBER,   ///< a telephone number, or the name of a contact who has one
  CONTACT,  ///< the id of a contact, or its name
  WHOLE,    ///< a whole number
  WORD,     ///< one of a table
  BYTES,    ///< hexadecimal digits
  EVENT,    ///< the name of an event
  CONTROL,  ///< the name of a control of the simulated service
};

/// One argument of a command: a place on the command line, or an option if its name begins with "--".
struct Argument {
  std::string name;
  std::string help;
  Meaning meaning = Meaning::TEXT;
  const WordTable* words = nullptr;  ///< for Meaning::WORD
  std::string preset;                ///< taken if it is not given
  bool isOptional = false;
  bool isFlag = false;   ///< an option without a value: "on" if it is there, "off" if not
  bool isMany = false;   ///< may be given several times
  bool isFixed = false;  ///< always the preset: the command itself says it

  bool IsOption() const { return name.rfind("--", 0) == 0; }
  /// What a message calls it: "profile" for "--profile".
  std::string Thing() const;
};

/// The arguments that many commands have, and the ways to make others.
namespace arg {

Argument Address();
Argument Text(const std::string& name, const std::string& help);
Argument Whole(const std::string& name, const std::string& help);
Argument Bytes(const std::string& name, const std::string& help);
Argument OneOf(const std::string& name, const WordTable& words);
Argument Switch();
Argument Flag(const std::string& name, const std::string& help);
Argument Number();
Argument Contact();
Argument Fixed(const std::string& value);
/// The same argument, but one that need not be given.
Argument Or(Argument argument, const std::string& preset);

}  // namespace arg

/// The values given for the arguments of a command, in the order of its arguments.
class Given {
 public:
  using Values = std::vector<std::string>;

  explicit Given(std::vector<Values> values) : m_values(std::move(values)) {}

  /// The value of an argument that is given once; empty if it was not given.
  std::string operator[](std::size_t argument) const {
    const Values& values = m_values.at(argument);
    return values.empty() ? std::string() : values.front();
  }
  const Values& All(std::size_t argument) const { return m_values.at(argument); }
  bool Has(std::size_t argument) const { return !m_values.at(argument).empty(); }
  void Set(std::size_t argument, const std::string& value) { m_values.at(argument) = {value}; }

 private:
  std::vector<Values> m_values;
};

}  // namespace btctl

#endif
