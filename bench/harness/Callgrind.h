#ifndef BENCH_HARNESS_CALLGRIND_H
#define BENCH_HARNESS_CALLGRIND_H

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <gio/gio.h>

#include "glib/Owned.h"

// Programs that run under valgrind's tool callgrind, which counts their instructions. They are installed
// beside this one. Whatever fails throws std::runtime_error.
//
// The functions of the C library that look at strings and copy memory differ from processor to processor, and
// in their number of instructions most of all: a counted program gets the ones that every processor has.

/// Throws unless valgrind is installed.
void RequireCallgrind();

/// Instructions of the main thread, by the names that the program has given to its parts (CountedPart.h).
using PartCosts = std::map<std::string, double>;

/// What a part has cost. Throws if it was not counted, or nothing was counted in it: the functions at which
/// counting begins may have other names now.
double CostOfPart(const PartCosts& costs, const std::string& part);

/// Runs a program that counts parts of itself until it ends.
PartCosts CountParts(const std::string& name);

/// Runs a program until it ends by itself, and counts all of it: its start, with the work of the dynamic
/// linker, all its threads, and its end.
double CountRun(const std::string& name, const std::vector<std::string>& arguments = {});

/// A program that runs until it is ended. All its threads count: which of them releases what they share is a
/// matter of timing, so that only all together have a cost.
class CountedProcess {
 public:
  explicit CountedProcess(const std::string& name, const std::vector<std::string>& arguments = {});
  ~CountedProcess();
  CountedProcess(const CountedProcess&) = delete;
  CountedProcess& operator=(const CountedProcess&) = delete;

  /// Ends it by SIGTERM, and answers what was counted.
  double End();

 private:
  struct Output;

  std::unique_ptr<Output> m_output;
  OwnedObject<GSubprocess> m_process;
};

#endif
