#ifndef TESTS_TOOLS_BTCTL_H
#define TESTS_TOOLS_BTCTL_H

#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "support/BusDaemon.h"
#include "support/ChildProcess.h"
#include "support/InterfaceDescription.h"
#include "support/Recorder.h"
#include "support/Segments.h"

namespace bttest {

using Json = nlohmann::ordered_json;
using Words = std::vector<std::string>;

/// The phone of the shipped worlds.
constexpr char kPhone[] = "00:1A:7D:DA:71:13";

/// What a run of btctl left.
struct Ran {
  int code = -1;
  std::string output;
  std::string errors;

  /// Each line of the output, which must be JSON. Throws if one is not.
  std::vector<Json> Objects() const;
  /// The one object of the output, or of the errors.
  Json Object() const;
  Json Error() const;
};

/// The command line of btctl with these words.
Words CommandLine(const Words& words);
/// Runs btctl to its end.
Ran RunBtctl(const Words& words, const ChildProcess::Environment& changes = {});
/// What a btctl that was started left; waits for its end.
Ran Ended(ChildProcess& process);
/// Whether the process, while it lives, writes this to standard error.
bool WaitForErrors(ChildProcess& process, const std::string& text);

/// A bus without the service.
struct BtctlWithBus : testing::Test {
  // As on a system that has been up for a while, no segment has one of the smallest identifiers: a client
  // that is destroyed would remove it, mistaking the id for the identifier.
  BtctlWithBus() { MakeDummySegments(); }

  BusDaemon bus;
};

/// A bus and a service that records.
struct BtctlWithRecorder : BtctlWithBus {
  Recorder service;

  /// Lets a method answer yes: ones, and "x" for each text.
  void Accept(const std::string& method);
  void AcceptAll();
};

}  // namespace bttest

#endif
