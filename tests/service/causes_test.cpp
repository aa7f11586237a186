// What the witness says makes the simulation send a signal does so. tests/conformance has a cause for every
// other signal that reaches an application.

#include <algorithm>

#include <gtest/gtest.h>

#include "contract/Witness.h"
#include "support/GlibHelpers.h"
#include "support/InterfaceDescription.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

class WitnessedCausesTest : public testing::Test {
 protected:
  void Perform(const bttest::Witness::Cause& cause) {
    const auto& methods = bttest::BluetoothInterface().methods;
    const bool isRequest = std::any_of(methods.begin(), methods.end(),
                                       [&](const auto& method) { return method.name == cause.method; });
    const bttest::MethodDescription& method =
        (isRequest ? bttest::BluetoothInterface() : bttest::InterfaceOfControl(cause.method))
            .Method(cause.method);
    const std::string text = "(" + cause.arguments + (method.in.size() == 1 ? ",)" : ")");
    OwnedError error;
    const OwnedVariant arguments(g_variant_parse(G_VARIANT_TYPE(bttest::TupleSignature(method.in).c_str()),
                                                 text.c_str(), nullptr, nullptr, error.Out()));
    bttest::ThrowIfSet(error, cause.method + text);
    isRequest ? service.Call(cause.method, arguments.get())
              : service.CallControl(cause.method, arguments.get());
  }

  RunningService service{{"--speed", "50", "--world", BTTEST_FULL_WORLD}};
};

TEST_F(WitnessedCausesTest, LeadToTheirSignals) {
  ASSERT_TRUE(service.WaitFor("OnPBDownloadStatus (byte 0x03, byte 0x06)"));
  ASSERT_FALSE(bttest::TheWitness().causes.empty());
  for (const bttest::Witness::Cause& cause : bttest::TheWitness().causes) {
    service.ForgetSignals();
    Perform(cause);
    EXPECT_TRUE(service.WaitFor(cause.signal + " "))
        << cause.signal << " after " << cause.method << "(" << cause.arguments << ")";
  }
}

}  // namespace
}  // namespace btservice
