#include "btctl/commands/Argument.h"

#include <algorithm>

#include <glib.h>

#include "btctl/words/Words.h"

namespace btctl {
namespace {

Argument Make(const std::string& name, const std::string& help, Meaning meaning) {
  Argument argument;
  argument.name = name;
  argument.help = help;
  argument.meaning = meaning;
  return argument;
}

}  // namespace

std::string Argument::Thing() const {
  std::string thing = name.substr(IsOption() ? 2 : 0);
  std::transform(thing.begin(), thing.end(), thing.begin(), [](char c) { return g_ascii_tolower(c); });
  return thing;
}

namespace arg {

Argument Address() { return Make("ADDRESS", "of the device, such as 00:1A:7D:DA:71:13", Meaning::ADDRESS); }

Argument Text(const std::string& name, const std::string& help) { return Make(name, help, Meaning::TEXT); }

Argument Whole(const std::string& name, const std::string& help) { return Make(name, help, Meaning::WHOLE); }

Argument Bytes(const std::string& name, const std::string& help) { return Make(name, help, Meaning::BYTES); }

Argument OneOf(const std::string& name, const WordTable& words) {
  std::string all;
  for (const EnumWord& word : words.Words()) {
    all += all.empty() ? word.text : std::string(", ") + word.text;
  }
  Argument argument = Make(name, all, Meaning::WORD);
  argument.words = &words;
  return argument;
}

Argument Switch() { return OneOf("SWITCH", SwitchWords()); }

Argument Flag(const std::string& name, const std::string& help) {
  Argument argument = Make(name, help, Meaning::WORD);
  argument.words = &SwitchWords();
  argument.isFlag = true;
  argument.isOptional = true;
  argument.preset = "off";
  return argument;
}

Argument Number() { return Make("NUMBER", "a telephone number, or the name of a contact", Meaning::NUMBER); }

Argument Contact() { return Make("CONTACT", "the id or the name of a contact", Meaning::CONTACT); }

Argument Fixed(const std::string& value) {
  Argument argument = Make("", "", Meaning::TEXT);
  argument.preset = value;
  argument.isFixed = true;
  return argument;
}

Argument Or(Argument argument, const std::string& preset) {
  argument.isOptional = true;
  argument.preset = preset;
  return argument;
}

}  // namespace arg
}  // namespace btctl
