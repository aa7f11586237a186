// Rows for the commands that command_rows.cpp does not have, made from the commands' own arguments and from
// the interface description.

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "btctl/composed/AllCommands.h"
#include "btctl/words/WordTable.h"
#include "support/GlibHelpers.h"
#include "support/InterfaceDescription.h"
#include "tools/command_rows.h"

namespace bttest {
namespace {

/// An argument as it is given on the command line, and as it arrives.
struct Sample {
  std::string text;
  int number = 0;
};

Sample SampleOf(const btctl::Argument& argument) {
  switch (argument.meaning) {
    case btctl::Meaning::ADDRESS:
      return {"00:1A:7D:DA:71:13"};
    case btctl::Meaning::WHOLE:
      return {"7", 7};
    case btctl::Meaning::WORD: {
      const EnumWord& word = argument.words->Words().back();
      return {word.text, word.value};
    }
    case btctl::Meaning::TEXT:
      return {"some text"};
    default:
      throw std::logic_error("write a row for this command into command_rows.cpp: its argument " +
                             argument.name + " says too little");
  }
}

GVariant* AsVariant(const Sample& sample, const std::string& signature) {
  if (signature == "s") {
    return g_variant_new_string(sample.text.c_str());
  }
  if (signature == "b") {
    return g_variant_new_boolean(sample.number);
  }
  return signature == "y" ? g_variant_new_byte(static_cast<guint8>(sample.number))
                          : g_variant_new_int32(sample.number);
}

/// The call of a method with the samples for its arguments.
std::string CallText(const MethodDescription& method, const std::vector<Sample>& samples) {
  if (samples.size() != method.in.size()) {
    throw std::logic_error("write a row for " + method.name +
                           " into command_rows.cpp: its command has other arguments than the method");
  }
  std::vector<GVariant*> values;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    values.push_back(AsVariant(samples[i], method.in[i].signature));
  }
  return method.name + ToText(OwnedVariant(g_variant_new_tuple(values.data(), values.size())).get());
}

CommandRow DerivedRow(const btctl::Command& command) {
  CommandRow row;
  std::istringstream path(command.path);
  for (std::string word; path >> word;) {
    row.words.push_back(word);
  }
  std::vector<Sample> samples;
  for (const btctl::Argument& argument : command.arguments) {
    const Sample sample = SampleOf(argument);
    if (argument.IsOption()) {
      row.words.push_back(argument.name);
    }
    row.words.push_back(sample.text);
    samples.push_back(sample);
  }
  const std::string& method = command.methods.front();  // "MWPBtCom::Pair"
  row.calls.push_back(CallText(BluetoothInterface().Method(method.substr(method.rfind(':') + 1)), samples));
  return row;
}

bool HasRow(const std::string& path) {
  return std::any_of(CommandRows().begin(), CommandRows().end(), [&](const CommandRow& row) {
    std::string words;
    for (const std::string& word : row.words) {
      words += word + " ";
    }
    return words.rfind(path + " ", 0) == 0;
  });
}

}  // namespace

const std::vector<CommandRow>& AllCommandRows() {
  static const std::vector<CommandRow> rows = [] {
    std::vector<CommandRow> all = CommandRows();
    for (const btctl::Command& command : btctl::AllCommands()) {
      if (command.methods.size() == 1 && !HasRow(command.path)) {
        all.push_back(DerivedRow(command));
      }
    }
    return all;
  }();
  return rows;
}

}  // namespace bttest
