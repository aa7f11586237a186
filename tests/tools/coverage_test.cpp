// What the command table, the words and the events cover, held against the public headers: a method, value or
// event that is added there must be added here.

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "tools/Btctl.h"

namespace bttest {
namespace {

std::string Header(const std::string& name) {
  std::ifstream file(BT_PUBLIC_HEADERS "/" + name + ".h");
  std::stringstream text;
  text << file.rdbuf();
  return std::regex_replace(text.str(), std::regex("//[^\n]*"), "");
}

/// The parts of a text that the first group of an expression matches.
std::vector<std::string> AllMatches(const std::string& text, const std::string& expression) {
  std::vector<std::string> matches;
  const std::regex regex(expression);
  for (std::sregex_iterator at(text.begin(), text.end(), regex), end; at != end; ++at) {
    matches.push_back((*at)[1]);
  }
  return matches;
}

TEST(Coverage, EveryFacadeMethodHasACommand) {
  std::map<std::string, int> declared;
  for (const std::string facade :
       {"MWPBtCom", "MWPBtPhone", "MWPBtMedia", "MWPBtPbap", "MWPBtMessage", "MWPBtSpp", "MWPBtBle"}) {
    const auto methods = AllMatches(Header(facade), "\n  (?:int|void|std::string|MWPType\\w+) (\\w+)\\(");
    ASSERT_FALSE(methods.empty()) << facade;
    for (std::string method : methods) {
      ++declared[method.insert(0, facade + "::")];
    }
  }
  EXPECT_EQ(declared["MWPBtMessage::GetMessageCount"], 2) << "the one that is overloaded";

  std::set<std::string> reached;
  for (const Json& command : RunBtctl({"commands", "--json"}).Objects()) {
    const std::vector<std::string> methods = command["methods"];
    reached.insert(methods.begin(), methods.end());
  }
  std::map<std::string, int> reachedByName;
  for (const std::string& method : reached) {
    ++reachedByName[method.substr(0, method.find('/'))];  // the overload is marked by its number of arguments
  }
  for (const auto& [method, count] : declared) {
    EXPECT_EQ(reachedByName[method], count) << method << " is declared, and no command calls it";
  }
  for (const auto& [method, count] : reachedByName) {
    EXPECT_EQ(declared.count(method), 1U) << method << " has a command, and is not declared";
  }
}

TEST(Coverage, EveryValueOfEveryEnumerationHasAWordOfItsOwn) {
  const std::string header = Header("MWPBtType");
  std::map<std::string, std::set<int>> declared;
  for (const std::string& name : AllMatches(header, "enum (\\w+) : int")) {
    const auto body = AllMatches(header, "enum " + name + " : int \\{([^}]*)\\}");
    for (const std::string& value : AllMatches(body.at(0), "= (\\d+)")) {
      declared[name].insert(std::stoi(value));
    }
  }
  ASSERT_FALSE(declared.empty());

  std::map<std::string, std::set<int>> known;
  std::map<std::string, std::set<std::string>> words;
  for (const Json& word : RunBtctl({"words", "--json"}).Objects()) {
    const std::string full = word["enumeration"];
    const std::string name = full.substr(full.rfind(':') == std::string::npos ? 0 : full.rfind(':') + 1);
    known[name].insert(word["value"].get<int>());
    EXPECT_TRUE(words[name].insert(word["word"]).second) << full << " has two values called " << word["word"];
  }
  for (const auto& [enumeration, values] : declared) {
    EXPECT_EQ(known[enumeration], values)
        << enumeration << ": protocol/Words*.cpp has the words for its values";
  }
}

TEST(Coverage, EveryEventOfEveryListenerIsKnown) {
  std::vector<std::string> declared;
  for (const std::string kind : {"Com", "Phone", "Media", "Pbap", "Message", "Spp", "Ble"}) {
    const auto events = AllMatches(Header("IMWPBt" + kind + "Listener"), "virtual void (\\w+)\\(");
    declared.insert(declared.end(), events.begin(), events.end());
  }
  std::vector<std::string> known;
  for (const Json& event : RunBtctl({"events", "--json"}).Objects()) {
    known.push_back(event["event"]);
  }
  for (const std::string& event : declared) {
    EXPECT_EQ(std::count(known.begin(), known.end(), event), 1)
        << event << " is declared, and tools/btctl/events/ListenerClasses.h does not have it";
  }
  EXPECT_EQ(known, declared) << "in this order";
}

}  // namespace
}  // namespace bttest
