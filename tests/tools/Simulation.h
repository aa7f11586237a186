#ifndef TESTS_TOOLS_SIMULATION_H
#define TESTS_TOOLS_SIMULATION_H

#include <optional>

#include "support/TemporaryDirectory.h"
#include "tools/Btctl.h"

namespace bttest {

/// The simulated service in one of its worlds. Time runs fast there.
struct WithSimulation : BtctlWithBus {
  /// Returns when the service answers.
  void Start(const std::string& world, const std::string& speed = "20");
  /// Runs a command that must work, and answers what it prints.
  std::string Output(const Words& words);
  /// A copy of a shipped world in which, however slow the machine, nothing happens by itself and nobody loses
  /// patience. Its file.
  std::string Quiet(const std::string& world);
  /// The phone of the world one-phone, connected, its phone book downloaded. It is quiet there.
  void StartWithPhone();

  TemporaryDirectory folder;
  std::optional<ChildProcess> service;
};

}  // namespace bttest

#endif
