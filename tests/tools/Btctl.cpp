#include "tools/Btctl.h"

#include <chrono>
#include <sstream>

namespace bttest {
namespace {

/// A value that means yes.
GVariant* Yes(const std::string& signature) {
  if (signature == "y") {
    return g_variant_new_byte(1);
  }
  if (signature == "b") {
    return g_variant_new_boolean(TRUE);
  }
  if (signature == "i") {
    return g_variant_new_int32(1);
  }
  if (signature == "u") {
    return g_variant_new_uint32(1);
  }
  if (signature == "s") {
    return g_variant_new_string("x");
  }
  return g_variant_new_parsed("[(byte 1, byte 1)]");  // a(yy)
}

}  // namespace

std::vector<Json> Ran::Objects() const {
  std::vector<Json> objects;
  std::istringstream lines(output);
  for (std::string line; std::getline(lines, line);) {
    objects.push_back(Json::parse(line));
  }
  return objects;
}

Json Ran::Object() const {
  const std::vector<Json> objects = Objects();
  return objects.size() == 1 ? objects.front() : Json("not one object: " + output);
}

Json Ran::Error() const { return Json::parse(errors); }

Words CommandLine(const Words& words) {
  Words line{BTCTL_EXECUTABLE};
  line.insert(line.end(), words.begin(), words.end());
  return line;
}

Ran RunBtctl(const Words& words, const ChildProcess::Environment& changes) {
  ChildProcess process(CommandLine(words), changes);
  return Ended(process);
}

Ran Ended(ChildProcess& process) {
  constexpr std::chrono::seconds kLongestRun{45};  // tens of thousands of contacts, under a sanitizer
  const int code = process.Wait(kLongestRun).value_or(-1);
  return {code, process.Output(), process.Errors()};
}

bool WaitForErrors(ChildProcess& process, const std::string& text) {
  return WaitUntil([&] { return process.Errors().find(text) != std::string::npos || !process.IsAlive(); }) &&
         process.Errors().find(text) != std::string::npos;
}

void BtctlWithRecorder::Accept(const std::string& method) {
  std::vector<GVariant*> values;
  for (const ArgumentDescription& out : BluetoothInterface().Method(method).out) {
    values.push_back(Yes(out.signature));
  }
  service.SetReply(method, g_variant_new_tuple(values.data(), values.size()));
}

void BtctlWithRecorder::AcceptAll() {
  for (const MethodDescription& method : BluetoothInterface().methods) {
    Accept(method.name);
  }
}

}  // namespace bttest
