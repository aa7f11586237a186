#ifndef BENCH_HARNESS_PROGRAMS_H
#define BENCH_HARNESS_PROGRAMS_H

#include <string>
#include <vector>

#include <gio/gio.h>

#include "glib/Owned.h"

/// Where a program is that is installed beside this one. A path of its own stays as it is.
std::string PathOfProgram(const std::string& name);

/// Starts a program that is installed beside this one, or one by its path. Throws std::runtime_error if it
/// cannot be started.
OwnedObject<GSubprocess> StartProgram(const std::string& name, const std::vector<std::string>& arguments,
                                      GSubprocessFlags flags);

/// Runs a program as StartProgram does and answers what it prints. Throws std::runtime_error if
/// it fails.
std::string RunProgram(const std::string& name, const std::vector<std::string>& arguments = {});

#endif
