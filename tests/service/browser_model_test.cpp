#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr ItemRange kAll{0, 100};

class BrowserModelTest : public ModelTest {
 protected:
  void SetUp() override {
    PairBeforehand(kSmartphone);
    ConnectDevice(kSmartphone, BT_PROFILE_A2DP);
  }
  MusicControl& Music() { return Stack().Music(); }
  void Do(bool accepted) {
    ASSERT_TRUE(accepted);
    Pass(world.delays.browse);
  }
  std::vector<std::string> Names(BrowserScopeType scope) {
    std::vector<std::string> names;
    for (const BrowserItem& item : Music().Items(scope)) {
      names.push_back(item.name);
    }
    return names;
  }
};

TEST_F(BrowserModelTest, TheRootHoldsTheAlbums) {
  EXPECT_TRUE(Music().SupportsBrowsing());
  Do(Music().ToRootFolder(kAll));
  EXPECT_THAT(Names(BT_BROWSER_FILE_SYSTEM), ElementsAre("Harbour Lights", "Overdrive", "Kleine Stücke"));
  EXPECT_TRUE(Music().Items(BT_BROWSER_FILE_SYSTEM)[0].isFolder);
  EXPECT_TRUE(Music().IsRootFolder());
  EXPECT_THAT(log.Values(&BrowserPathChanged::success), ElementsAre(true));
  EXPECT_EQ(log.Count<BrowserItemsArrived>(), 1U);
}

TEST_F(BrowserModelTest, FoldersAreEnteredAndLeft) {
  Do(Music().FolderDown("f2", kAll));
  EXPECT_FALSE(Music().IsRootFolder());
  EXPECT_THAT(Names(BT_BROWSER_FILE_SYSTEM),
              ElementsAre("Ignition", "Slip Road", "Overdrive", "Tail Lights"));
  Do(Music().FolderUp(kAll));
  EXPECT_TRUE(Music().IsRootFolder());
  EXPECT_THAT(log.Values(&BrowserPathChanged::success), ElementsAre(true, true));
}

TEST_F(BrowserModelTest, AFolderThatDoesNotExistIsNotEntered) {
  Do(Music().FolderDown("f9", kAll));
  Do(Music().FolderUp(kAll));
  EXPECT_THAT(log.Values(&BrowserPathChanged::success), ElementsAre(false, false));
  EXPECT_EQ(log.Count<BrowserItemsArrived>(), 0U);
  EXPECT_TRUE(Music().IsRootFolder());
}

TEST_F(BrowserModelTest, OnlyTheItemsAskedForCome) {
  Do(Music().FolderDown("f1", {1, 2}));
  EXPECT_THAT(Names(BT_BROWSER_FILE_SYSTEM), ElementsAre("Lantern", "Harbour Lights"));
  Do(Music().ToRootFolder({99, 5}));
  EXPECT_THAT(Names(BT_BROWSER_FILE_SYSTEM), IsEmpty());
  EXPECT_FALSE(Music().ToRootFolder({-1, 5}));
  EXPECT_FALSE(Music().ToRootFolder({0, 0}));
}

TEST_F(BrowserModelTest, WordsAreFoundWhateverTheirCase) {
  Do(Music().Search("", "LIGHTS", kAll));
  EXPECT_THAT(Names(BT_BROWSER_SEARCH),
              ElementsAre("Low Tide", "Lantern", "Harbour Lights", "Gulls at Noon", "Tail Lights"));
  Do(Music().Search("f2", "lights", kAll));
  EXPECT_THAT(Names(BT_BROWSER_SEARCH), ElementsAre("Tail Lights"));
  EXPECT_FALSE(Music().Search("f9", "lights", kAll));
  EXPECT_FALSE(Music().Search("", "", kAll));
}

TEST_F(BrowserModelTest, TheItemsOfAFolderAreCounted) {
  Do(Music().CountFolder(""));
  Do(Music().CountFolder("f1"));
  EXPECT_THAT(log.Values(&BrowserFolderTotal::total), ElementsAre(3, 4));
  EXPECT_FALSE(Music().CountFolder("f9"));
}

TEST_F(BrowserModelTest, AFolderThatIsGoneMeanwhileHasNothing) {
  EXPECT_TRUE(Music().Search("f2", "lights", kAll));
  EXPECT_TRUE(Music().CountFolder("f1"));
  EXPECT_TRUE(Stack().FromOutside().SetTracks(kSmartphone, {}));
  Pass(world.delays.browse);
  EXPECT_THAT(Names(BT_BROWSER_SEARCH), IsEmpty());
  EXPECT_EQ(log.Count<BrowserItemsArrived>(), 1U);
  EXPECT_THAT(log.Values(&BrowserFolderTotal::total), ElementsAre(0));
}

TEST_F(BrowserModelTest, TheQueueIsListed) {
  Do(Music().BrowseQueue({0, 2}));
  EXPECT_THAT(Names(BT_BROWSER_NOW_PLAYING), ElementsAre("Low Tide", "Lantern"));
}

TEST_F(BrowserModelTest, ATrackIsPlayed) {
  Do(Music().PlayItem("o3", BT_BROWSER_FILE_SYSTEM));
  EXPECT_THAT(log.Values(&ItemPlayed::success), ElementsAre(true));
  EXPECT_EQ(Music().CurrentTrack()->title, "Overdrive");
  EXPECT_EQ(Music().CurrentTrack()->number, "3");
  EXPECT_EQ(Music().CurrentTrack()->count, "4");
  EXPECT_EQ(Music().Status(), BT_MUSIC_PLAYING);
}

TEST_F(BrowserModelTest, ATrackOfTheQueueIsPlayed) {
  Do(Music().PlayItem("h2", BT_BROWSER_NOW_PLAYING));
  EXPECT_EQ(Music().CurrentTrack()->title, "Lantern");
  EXPECT_EQ(Music().CurrentTrack()->count, "12");
}

TEST_F(BrowserModelTest, ATrackThatDoesNotExistIsNot) {
  Do(Music().PlayItem("zz", BT_BROWSER_FILE_SYSTEM));
  Do(Music().PlayItem("zz", BT_BROWSER_NOW_PLAYING));
  Do(Music().QueueItem("zz", BT_BROWSER_FILE_SYSTEM));
  EXPECT_THAT(log.Values(&ItemPlayed::success), ElementsAre(false, false));
  EXPECT_THAT(log.Values(&ItemQueued::success), ElementsAre(false));
}

TEST_F(BrowserModelTest, ATrackIsQueued) {
  Do(Music().QueueItem("k4", BT_BROWSER_FILE_SYSTEM));
  EXPECT_THAT(log.Values(&ItemQueued::success), ElementsAre(true));
  EXPECT_EQ(Music().CurrentTrack()->count, "13");
}

TEST_F(BrowserModelTest, TheQueueHasAnEnd) {
  constexpr int kMost = 10000;
  for (int i = 12; i < kMost; ++i) {
    Do(Music().QueueItem("k4", BT_BROWSER_FILE_SYSTEM));
  }
  EXPECT_EQ(Music().CurrentTrack()->count, "10000");
  EXPECT_TRUE(log.Of<ItemQueued>().back().success);
  Do(Music().QueueItem("k4", BT_BROWSER_FILE_SYSTEM));
  EXPECT_FALSE(log.Of<ItemQueued>().back().success);
  EXPECT_EQ(Music().CurrentTrack()->count, "10000");
}

TEST_F(BrowserModelTest, ItemsAreFetchedByScope) {
  Do(Music().FetchItems(BT_BROWSER_PLAYER_LIST));
  EXPECT_THAT(Names(BT_BROWSER_PLAYER_LIST), ElementsAre("Ada's phone"));
  EXPECT_FALSE(Music().FetchItems(static_cast<BrowserScopeType>(9)));
}

TEST_F(BrowserModelTest, ItemsThatWereReportedAreNotReportedAgain) {
  Do(Music().FolderDown("f1", kAll));
  ASSERT_EQ(log.Count<BrowserItemsArrived>(), 1U);
  for (int i = 0; i < 3; ++i) {
    Do(Music().FetchItems(BT_BROWSER_FILE_SYSTEM));
  }
  EXPECT_EQ(log.Count<BrowserItemsArrived>(), 1U);
  Do(Music().FetchItems(BT_BROWSER_SEARCH));
  Do(Music().FetchItems(BT_BROWSER_SEARCH));
  EXPECT_EQ(log.Count<BrowserItemsArrived>(), 2U) << "of each scope once, also if it is empty";
}

/// Fetches the items whenever it hears of them, as a screen does.
struct FetchingScreen : StackObserver {
  explicit FetchingScreen(SimulatedStack& aStack) : stack(aStack) { stack.AddObserver(*this); }
  void OnStackEvent(const StackEvent& event) override {
    if (std::holds_alternative<BrowserItemsArrived>(event)) {
      stack.Music().FetchItems(BT_BROWSER_FILE_SYSTEM);
    }
  }
  SimulatedStack& stack;
};

TEST_F(BrowserModelTest, AScreenThatFetchesItemsWhenItHearsOfThemDoesNotSpin) {
  FetchingScreen screen(Stack());
  Do(Music().ToRootFolder(kAll));
  Pass(world.delays.browse * 100);
  EXPECT_EQ(log.Count<BrowserItemsArrived>(), 1U);
}

TEST_F(BrowserModelTest, BrowsingReportsTheSameItemsEachTime) {
  for (int i = 0; i < 2; ++i) {
    Do(Music().ToRootFolder(kAll));
    Do(Music().Search("", "lights", kAll));
    Do(Music().BrowseQueue(kAll));
  }
  EXPECT_EQ(log.Count<BrowserItemsArrived>(), 6U);
}

TEST_F(BrowserModelTest, AQueueThatHasGrownIsReportedWhenItIsFetched) {
  Do(Music().BrowseQueue(kAll));
  Do(Music().QueueItem("k4", BT_BROWSER_FILE_SYSTEM));
  EXPECT_EQ(log.Count<BrowserItemsArrived>(), 1U);
  Do(Music().FetchItems(BT_BROWSER_NOW_PLAYING));
  Do(Music().FetchItems(BT_BROWSER_NOW_PLAYING));
  EXPECT_EQ(log.Count<BrowserItemsArrived>(), 2U);
  EXPECT_EQ(Names(BT_BROWSER_NOW_PLAYING).size(), 13U);
}

TEST_F(BrowserModelTest, WithoutAPlayerThereIsNothingToBrowse) {
  Music().FolderDown("f1", kAll);
  Stack().FromOutside().LoseLink(kSmartphone);
  Pass(1min);
  EXPECT_EQ(log.Count<BrowserPathChanged>(), 0U);
  EXPECT_FALSE(Music().ToRootFolder(kAll));
  EXPECT_FALSE(Music().IsRootFolder());
  EXPECT_FALSE(Music().PlayItem("h1", BT_BROWSER_FILE_SYSTEM));
}

}  // namespace
}  // namespace btservice
