// Every event of libbtasync: from the signal of a service in another process to the callback.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "contract/WireValues.h"
#include "tests/async/AsyncFixture.h"
#include "tests/async/EventTable.h"

namespace {

using btasync::Availability;
using btasync::Scope;
using btasync::Service;
using bttest::Arguments;
using bttest::BluetoothInterface;
using bttest::EventRow;
using bttest::EventTable;
using bttest::RunUntil;
using bttest::ToText;

/// Notes all events, as texts.
class AsyncEvents : public testing::Test {
 protected:
  AsyncEvents() {
    for (const EventRow& row : EventTable()) {
      row.subscribe(service, scope, [this, structure = row.structure](const bttest::Fields& fields) {
        noted.push_back(structure + TextOf(fields));
      });
    }
    EXPECT_TRUE(bttest::WaitFor(service, Availability::Present));
    EXPECT_TRUE(bttest::Wait(service.GetPowerStatus()).Accepted());  // the bus has the subscriptions by now
  }

  static std::string TextOf(const bttest::Fields& fields) {
    std::string text;
    for (const bttest::Field& field : fields) {
      text += " " + field.text;
    }
    return text;
  }

  /// What has to be noted of a signal. A yes or no may travel as a byte.
  static std::string Expected(const EventRow& row, GVariant* values) {
    bttest::Fields fields;
    const Arguments& arguments = BluetoothInterface().Signal(row.signal).arguments;
    const std::vector<std::string> texts = bttest::TextsOf(values);
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const bool isYesOrNo = kYesOrNoBytes.count(row.signal + "." + arguments[i].name) != 0;
      fields.push_back({isYesOrNo && texts[i] != "0" ? "1" : texts[i], isYesOrNo});
    }
    return row.structure + TextOf(fields);
  }

  /// Values of other types than the signal's: each of them exchanged, one too many, one missing.
  static std::vector<OwnedVariant> WrongValues(const Arguments& arguments) {
    std::vector<OwnedVariant> wrong;
    Arguments others = arguments;
    others.push_back({"more", "i"});
    wrong.push_back(OwnedVariant(bttest::MakeTuple(others, 0)));
    if (!arguments.empty()) {
      others = arguments;
      others.pop_back();
      wrong.push_back(OwnedVariant(bttest::MakeTuple(others, 0)));
    }
    for (std::size_t i = 0; i < arguments.size(); ++i) {
      for (const char* const type : {"s", "y", "b", "i", "u", "v", "(yy)"}) {
        if (type != arguments[i].signature) {
          others = arguments;
          others[i].signature = type;
          wrong.push_back(OwnedVariant(bttest::MakeTuple(others, 0)));
        }
      }
    }
    return wrong;
  }

  /// Arguments that the structures have as a bool, though they travel as a byte.
  static const std::set<std::string> kYesOrNoBytes;

  bttest::BusDaemon bus;
  bttest::Recorder recorder;
  Service service;
  std::vector<std::string> noted;
  Scope scope;
};

const std::set<std::string> AsyncEvents::kYesOrNoBytes{
    "OnDeletePairStatusChanged.bStatus", "OnBtCapabilityChanged.status", "OnVoiceStatusChanged.bStart"};

TEST_F(AsyncEvents, CarryEveryValueOfTheirSignal) {
  for (const EventRow& row : EventTable()) {
    SCOPED_TRACE(row.structure);
    const Arguments& arguments = BluetoothInterface().Signal(row.signal).arguments;
    for (int variety = 0; variety < bttest::kVarieties; ++variety) {
      const OwnedVariant values = OwnedVariant(bttest::MakeTuple(arguments, variety));
      noted.clear();
      recorder.Emit(row.signal, values.get());
      ASSERT_TRUE(RunUntil([&] { return !noted.empty(); })) << "of " << ToText(values.get());
      EXPECT_THAT(noted, testing::ElementsAre(Expected(row, values.get())));
    }
  }
}

TEST_F(AsyncEvents, AreDroppedIfTheirSignalHasOtherTypesAndDisturbNothingElse) {
  for (const EventRow& row : EventTable()) {
    SCOPED_TRACE(row.structure);
    const Arguments& arguments = BluetoothInterface().Signal(row.signal).arguments;
    noted.clear();
    for (const OwnedVariant& wrong : WrongValues(arguments)) {
      recorder.EmitRaw(row.signal, wrong.get());
    }
    const OwnedVariant right = OwnedVariant(bttest::MakeTuple(arguments, 0));
    recorder.Emit(row.signal, right.get());
    ASSERT_TRUE(RunUntil([&] { return !noted.empty(); }));
    EXPECT_THAT(noted, testing::ElementsAre(Expected(row, right.get())));
  }
  EXPECT_TRUE(bttest::Wait(service.GetPowerStatus()).Accepted());
}

TEST_F(AsyncEvents, AreDroppedIfAVariantHoldsAnythingButBytes) {
  for (GVariant* const held : {g_variant_new_string("text"), g_variant_new("(ay)", nullptr),
                               g_variant_new_array(G_VARIANT_TYPE("i"), nullptr, 0)}) {
    recorder.EmitRaw("OnSppReceiveBufferChanged", g_variant_new("(sv)", "00:1A:7D:DA:71:13", held));
  }
  recorder.Emit("OnAudioTrackChanged", g_variant_new("()"));
  ASSERT_TRUE(RunUntil([&] { return !noted.empty(); }));
  EXPECT_THAT(noted, testing::ElementsAre("TrackChanged"));
}

TEST_F(AsyncEvents, OfSignalsThatNobodyKnowsAreNone) {
  recorder.EmitRaw("OnSomethingElse", g_variant_new("(i)", 5));
  recorder.Emit("OnAudioTrackChanged", g_variant_new("()"));
  ASSERT_TRUE(RunUntil([&] { return !noted.empty(); }));
  EXPECT_THAT(noted, testing::ElementsAre("TrackChanged"));
}

}  // namespace
