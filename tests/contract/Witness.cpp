#include "contract/Witness.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>

namespace bttest {
namespace {

/// The lines of the file, without comments, each with those that continue it.
std::vector<std::string> ReadLines() {
  std::ifstream file(BTTEST_WITNESS);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') {
      continue;
    }
    if (line[0] == ' ' && !lines.empty()) {
      lines.back() += line.substr(line.find_first_not_of(' ') - 1);
    } else {
      lines.push_back(line);
    }
  }
  return lines;
}

/// A signal that the library does not even subscribe to.
bool IsForNobody(const std::string& kind, const std::string& place) {
  return kind == "nobody" && place == "-";
}

Witness Read() {
  Witness witness;
  std::map<int, std::string> places;
  for (const std::string& line : ReadLines()) {
    const std::size_t blank = line.find(' ');
    const std::string what = line.substr(0, blank);
    const std::string rest = line.substr(blank + 1);
    const std::string name = rest.substr(0, rest.find_first_of("( "));
    const std::size_t end = rest.find(')');
    std::istringstream columns(rest.substr(what == "event" ? name.size() : end + 1));
    std::string kind;
    std::string slot;
    std::string place;
    if (what == "method" || what == "uncalled") {
      witness.methods.push_back(rest);
      if (what == "uncalled") {
        witness.uncalled.push_back(name);
      }
    } else if (what == "signal" && columns >> kind >> slot >> place &&
               (IsForNobody(kind, place) || places.emplace(std::stoi(place), name).second)) {
      witness.signals.push_back(rest.substr(0, end + 1));
      if (kind != "nobody") {
        witness.events.push_back({name, kind, std::stoi(slot)});
      }
      const std::size_t by = rest.find(" by ", end);
      const std::size_t open = rest.find('(', end);
      if (by != std::string::npos && open != std::string::npos) {
        witness.causes.push_back(
            {name, rest.substr(by + 4, open - by - 4), rest.substr(open + 1, rest.rfind(')') - open - 1)});
      }
    } else if (what == "event" && columns >> kind >> slot) {
      witness.events.push_back({name, kind, std::stoi(slot)});
    } else {
      throw std::runtime_error("witness.txt: this line cannot be read, or gives a place twice: " + line);
    }
  }
  for (const auto& [place, name] : places) {
    witness.subscribed.push_back(name);
  }
  return witness;
}

bool Contains(const std::vector<std::string>& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

}  // namespace

const Witness& TheWitness() {
  static const Witness witness = Read();
  return witness;
}

std::string Differences(const std::vector<std::string>& witnessed, const std::vector<std::string>& declared) {
  std::string text;
  for (const std::string& line : witnessed) {
    if (!Contains(declared, line)) {
      text += "\n  in tests/contract/witness.txt, and not declared: " + line;
    }
  }
  for (const std::string& line : declared) {
    if (!Contains(witnessed, line)) {
      text += "\n  declared, and not in tests/contract/witness.txt: " + line;
    }
  }
  for (std::size_t i = 0; text.empty() && i < witnessed.size(); ++i) {
    if (witnessed[i] != declared[i]) {
      text = "\n  declared at another place: " + witnessed[i] + "; there is " + declared[i];
    }
  }
  return text;
}

}  // namespace bttest
