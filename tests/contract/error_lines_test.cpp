// The line that a failed request logs leads to the request: its line number is one of the adapter's method,
// not of what carries all of them out.

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "contract/AdapterCalls.h"
#include "ipc/BtProxy.h"
#include "support/LogCapture.h"

namespace bttest {
namespace {

/// The method of the adapter that each line of a source belongs to, empty above the first; by line number.
std::vector<std::string> MethodsOfLines(const std::filesystem::path& source) {
  const std::string scope = "BtClientIpcAdapter::";
  std::vector<std::string> methods{""};
  std::string method;
  std::ifstream file(source);
  for (std::string line; std::getline(file, line);) {
    // A definition begins in the first column; comments and what is inside of one do not count.
    const std::size_t at = line.find(scope);
    if (at != std::string::npos && line[0] != ' ' && line[0] != '/') {
      const std::size_t name = at + scope.size();
      method = line.substr(name, line.find('(', name) - name);
    }
    methods.push_back(method);
  }
  return methods;
}

TEST(ErrorLine, OfEachFailedRequestIsALineOfItsOwnMethod) {
  const std::set<std::string> silent{"GetPhoneConnectionState", "GetMediaConnectionState", "StopMusic"};
  std::vector<std::vector<std::string>> sources;
  for (const auto& file : std::filesystem::directory_iterator(BTTEST_IPC_SOURCES)) {
    if (file.path().filename().string().rfind("BtClientIpcAdapter", 0) == 0) {
      sources.push_back(MethodsOfLines(file.path()));
    }
  }
  g_BtProxy = nullptr;
  BtClientIpcAdapter adapter;
  for (const MethodDescription& method : BluetoothInterface().methods) {
    const auto call = AdapterCalls().find(method.name);
    if (call == AdapterCalls().end()) {
      continue;
    }
    const OwnedVariant arguments(MakeTuple(method.in, 0));
    Out out(method.out);
    LogCapture log;
    call->second(adapter, In(arguments.get()), out);
    EXPECT_EQ(log.OfLevel(100).size(), silent.count(method.name) != 0 ? 0u : 1u) << method.name;
    for (const LogRecord& error : log.OfLevel(100)) {
      bool isItsOwn = false;
      for (const std::vector<std::string>& source : sources) {
        const auto line = static_cast<std::size_t>(error.line);
        isItsOwn = isItsOwn || (line < source.size() && source[line] == method.name);
      }
      EXPECT_TRUE(isItsOwn) << error;
    }
  }
}

}  // namespace
}  // namespace bttest
