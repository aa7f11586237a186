// The service's side of the contract: every method is answered, nothing else of the library is used. It looks
// at the wire and at the executable, which tests/conformance cannot see: that knows the library alone.

#include <algorithm>
#include <set>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "recorder/ZeroValue.h"
#include "support/InterfaceDescription.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

using testing::IsEmpty;

GVariant* ZeroArguments(const std::string& signature) { return ZeroValue(G_VARIANT_TYPE(signature.c_str())); }

TEST(ServiceContractTest, EveryMethodIsAnsweredWithItsSignature) {
  RunningService service;
  for (const bttest::MethodDescription& method : bttest::BluetoothInterface().methods) {
    const std::string in = bttest::TupleSignature(method.in);
    const OwnedVariant reply = service.Call(method.name, ZeroArguments(in));
    EXPECT_EQ(g_variant_get_type_string(reply.get()), bttest::TupleSignature(method.out)) << method.name;
  }
}

TEST(ServiceContractTest, EveryMethodIsAnsweredBeforeAndAfterPowerUp) {
  RunningService service({"--speed", "100"});
  ASSERT_TRUE(service.WaitFor("OnOpenBtStatusChanged (byte 0x01,)"));
  for (const bttest::MethodDescription& method : bttest::BluetoothInterface().methods) {
    EXPECT_NO_THROW(service.Call(method.name, ZeroArguments(bttest::TupleSignature(method.in))))
        << method.name;
  }
}

/// The names that nm lists for a file.
std::set<std::string> Symbols(const std::string& option, const std::string& file) {
  bttest::ChildProcess nm({"nm", "-D", "-C", "--format=posix", option, file});
  EXPECT_EQ(nm.Wait(), 0) << nm.Errors();
  std::set<std::string> names;
  std::istringstream lines(nm.Output());
  for (std::string line; std::getline(lines, line);) {
    // "name type value size"; a demangled name may hold blanks.
    for (const char* const type :
         {" U ", " T ", " W ", " V ", " D ", " B ", " R ", " w ", " v ", " u ", " U"}) {
      const std::size_t end = line.rfind(type);
      if (end != std::string::npos) {
        names.insert(line.substr(0, end));
        break;
      }
    }
  }
  EXPECT_FALSE(names.empty()) << file;
  return names;
}

TEST(ServiceContractTest, OfTheLibraryOnlyTheBindingsAndTheVariantHelpersAreUsed) {
  const std::set<std::string> imports = Symbols("--undefined-only", kExecutable);
  const std::set<std::string> exports = Symbols("--defined-only", BTTEST_LIBRARY);
  std::vector<std::string> used;
  std::set_intersection(imports.begin(), imports.end(), exports.begin(), exports.end(),
                        std::back_inserter(used));
  const bttest::InterfaceDescription& interface = bttest::BluetoothInterface();
  EXPECT_GE(used.size(), interface.methods.size() + interface.signals.size())
      << "the completion of each method and the emission of each signal at least";
  std::vector<std::string> others;
  std::copy_if(used.begin(), used.end(), std::back_inserter(others), [](const std::string& name) {
    return name.rfind("com_zelk_linux_bluetooth_", 0) != 0 && name.rfind("bt_build_variant_data", 0) != 0 &&
           name.rfind("bt_extract_variant_data", 0) != 0 && name.rfind("ShareMemory::", 0) != 0;
  });
  EXPECT_THAT(others, IsEmpty());
}

}  // namespace
}  // namespace btservice
