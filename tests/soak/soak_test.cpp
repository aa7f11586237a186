// What the soak takes for a loss, and a short soak.

#include <gtest/gtest.h>

#include "soak/EventSequence.h"
#include "soak/Outages.h"
#include "soak/Soak.h"

namespace btsoak {
namespace {

TEST(EventSequence, BeginsAnywhereAndGoesOnByOne) {
  EventSequence sequence;
  EXPECT_EQ(sequence.Hear({3, 7, 2, false}), "");
  EXPECT_EQ(sequence.Hear({3, 8, 2, true}), "");
  EXPECT_EQ(sequence.Hear({4, 1, 8, false}), "") << "the next service begins anew";
  EXPECT_EQ(sequence.Hear({4, 2, 8, false}), "");
}

TEST(EventSequence, NoticesWhatIsMissingTwiceOrInTheWrongPlace) {
  for (const NumberedEvent& wrong :
       {NumberedEvent{3, 9, 2, false}, NumberedEvent{3, 7, 2, false}, NumberedEvent{3, 6, 2, false},
        NumberedEvent{4, 2, 7, false}, NumberedEvent{5, 1, 7, false}, NumberedEvent{2, 8, 0, false}}) {
    EventSequence sequence;
    sequence.Hear({3, 7, 2, false});
    EXPECT_NE(sequence.Hear(wrong), "") << wrong.Text();
  }
}

TEST(EventSequence, NoticesWhatThePreviousServiceHasSentAndNobodyHeard) {
  EventSequence sequence;
  sequence.Hear({3, 7, 2, false});
  EXPECT_NE(sequence.Hear({4, 1, 8, false}), "") << "number 8 of service 3 is missing";
  EventSequence other;
  other.Hear({3, 9, 2, false});
  EXPECT_EQ(other.Hear({4, 1, 8, false}), "") << "number 9 was sent and not confirmed";
}

TEST(NumberedEvent, IsReadFromItsText) {
  const std::optional<NumberedEvent> event = NumberedEvent::From(NumberedEvent{3, 14, 15, true}.Text());
  ASSERT_TRUE(event);
  EXPECT_EQ(event->service, 3);
  EXPECT_EQ(event->number, 14);
  EXPECT_EQ(event->sureBefore, 15);
  EXPECT_TRUE(event->mark);
  EXPECT_FALSE(NumberedEvent::From(NumberedEvent{3, 14, 15, false}.Text())->mark);
  EXPECT_FALSE(NumberedEvent::From("Nordnetz"));
}

TEST(Outages, ExplainWhatHasFailedWhileTheyLasted) {
  Outages outages;
  EXPECT_FALSE(outages.Explain(0, 1000));
  outages.Begin(100);
  EXPECT_TRUE(outages.Explain(5000, 6000)) << "it goes on";
  outages.End(200);
  outages.Begin(400);
  outages.End(500);
  EXPECT_FALSE(outages.Explain(10, 99));
  EXPECT_TRUE(outages.Explain(10, 100));
  EXPECT_TRUE(outages.Explain(150, 160));
  EXPECT_TRUE(outages.Explain(200, 300));
  EXPECT_FALSE(outages.Explain(201, 399));
  EXPECT_TRUE(outages.Explain(300, 600));
  EXPECT_FALSE(outages.Explain(501, 600));
}

TEST(SoakResult, IsOnlyGoodIfEverythingHasHappenedAndNothingIsLost) {
  SoakResult result;
  result.sum.calls = result.sum.deliveries = 1;
  result.faults.fill(1);
  EXPECT_TRUE(result.IsGood());
  result.lossCount = 1;
  EXPECT_FALSE(result.IsGood());
  result.lossCount = 0;

  result.sum.calls = 0;
  EXPECT_EQ(result.Omissions(), std::vector<std::string>{"calls over the bus"});
  EXPECT_FALSE(result.IsGood());
  result.sum.calls = 1;
  result.sum.deliveries = 0;
  EXPECT_EQ(result.Omissions(), std::vector<std::string>{"deliveries to listeners"});
  result.sum.deliveries = 1;
  for (int fault = 0; fault < FAULTS; ++fault) {
    result.faults[fault] = 0;
    EXPECT_EQ(result.Omissions(), std::vector<std::string>{kFaultTexts[fault]});
    EXPECT_FALSE(result.IsGood());
    result.faults[fault] = 1;
  }
}

TEST(Soak, OfSomeSecondsMeetsEachFaultAndLosesNothing) {
  const SoakResult result = Soak(std::chrono::seconds(1)).Run();
  for (const std::string& loss : result.losses) {
    ADD_FAILURE() << loss;
  }
  EXPECT_EQ(result.lossCount, 0);
  for (int fault = 0; fault < FAULTS; ++fault) {
    EXPECT_GE(result.faults[fault], 2) << "fault " << fault << ", once on each bus";
  }
  EXPECT_GT(result.sum.calls, 0);
  EXPECT_GT(result.sum.deliveries, 0);
  EXPECT_GT(result.sum.listeners, 0);
  EXPECT_GE(result.sum.late, 200) << "what was delayed";
  EXPECT_GT(result.sum.failed, 40) << "what was refused, and what there was nobody for";
  EXPECT_EQ(result.segmentsAtEnd, 8);
}

}  // namespace
}  // namespace btsoak
