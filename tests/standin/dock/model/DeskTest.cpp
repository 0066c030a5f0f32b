#include "standin/dock/model/Desk.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace tarnwell::standin {
namespace {

constexpr std::size_t files = 0;
constexpr std::size_t letters = 1;
constexpr std::size_t notebook = 2;

int visibleCount(const Desk& desk, std::size_t application) {
  int count = 0;
  for (std::size_t i = 0; i < desk.applications()[application].documents.size(); ++i) {
    count += desk.isVisible({application, i}) ? 1 : 0;
  }
  return count;
}

TEST(DeskTest, eightApplicationsOfWhichThreeRunAndNoneHasAWindow) {
  const Desk desk;
  EXPECT_EQ(desk.applications().size(), 8U);
  int running = 0;
  for (std::size_t i = 0; i < desk.applications().size(); ++i) {
    running += desk.applications()[i].isRunning ? 1 : 0;
    EXPECT_EQ(visibleCount(desk, i), 0);
  }
  EXPECT_EQ(running, 3);
  EXPECT_EQ(desk.text(), R"(files running shown closed 90 120 closed 190 330
letters ended shown closed 140 90 closed 330 250
notebook running shown closed 120 160 closed 480 110 closed 350 360
almanac ended shown closed 220 140
album running shown closed 520 90 closed 620 320
tunes ended shown closed 410 200
atlas ended shown closed 300 150
console ended shown closed 160 210 closed 540 280
order
)");
}

TEST(DeskTest, whatIsNamedInTheOrderComesBehindWhatIsNot) {
  Desk desk;
  desk.restoreFrom(R"(files ended hidden minimized 99999 -99999 minimized 1 2
album running hidden minimized 3 4 open 5 6
order album 0 files 0
)");
  EXPECT_EQ(desk.minimized(), (std::vector<DocumentId>{{files, 1}, {4, 0}, {files, 0}}));
  EXPECT_EQ(desk.document({files, 0}).place, (Point{99999, -99999}));
  EXPECT_FALSE(desk.applications()[files].isHidden) << "only what runs can be";
  EXPECT_TRUE(desk.applications()[4].isHidden);
}

TEST(DeskTest, aClickLaunchesAndOpensTheDocuments) {
  Desk desk;
  desk.activate(letters, OthersOnActivation::stay);
  EXPECT_TRUE(desk.applications()[letters].isRunning);
  EXPECT_EQ(visibleCount(desk, letters), 2);
}

TEST(DeskTest, aHiddenApplicationHasNoVisibleWindowsUntilItIsClicked) {
  Desk desk;
  desk.activate(files, OthersOnActivation::stay);
  desk.close({files, 1});
  desk.hide(files);
  EXPECT_TRUE(desk.applications()[files].isHidden);
  EXPECT_EQ(visibleCount(desk, files), 0);
  desk.activate(files, OthersOnActivation::stay);
  EXPECT_FALSE(desk.applications()[files].isHidden);
  EXPECT_EQ(visibleCount(desk, files), 1);
}

TEST(DeskTest, singleApplicationModeHidesTheOthersThatRun) {
  Desk desk;
  desk.activate(files, OthersOnActivation::stay);
  desk.activate(notebook, OthersOnActivation::hide);
  EXPECT_EQ(visibleCount(desk, files), 0);
  EXPECT_EQ(visibleCount(desk, notebook), 3);
  EXPECT_TRUE(desk.applications()[files].isHidden);
  EXPECT_FALSE(desk.applications()[letters].isHidden);
  EXPECT_FALSE(desk.applications()[notebook].isHidden);
}

TEST(DeskTest, onlyWhatRunsCanBeHidden) {
  Desk desk;
  desk.hide(letters);
  EXPECT_FALSE(desk.applications()[letters].isHidden);
}

TEST(DeskTest, minimizedDocumentsKeepTheirOrder) {
  Desk desk;
  desk.activate(notebook, OthersOnActivation::stay);
  desk.minimize({notebook, 2});
  desk.minimize({notebook, 0});
  desk.minimize({notebook, 0});
  ASSERT_EQ(desk.minimized().size(), 2U);
  EXPECT_EQ(desk.minimized()[0], (DocumentId{notebook, 2}));
  EXPECT_EQ(visibleCount(desk, notebook), 1);
  desk.restore({notebook, 2});
  EXPECT_EQ(desk.minimized().size(), 1U);
  EXPECT_TRUE(desk.isVisible({notebook, 2}));
}

TEST(DeskTest, aClickBringsBackWhatWasMinimizedLastWhereNothingIsOpen) {
  Desk desk;
  desk.activate(files, OthersOnActivation::stay);
  desk.minimize({files, 0});
  desk.minimize({files, 1});
  desk.activate(files, OthersOnActivation::stay);
  EXPECT_FALSE(desk.isVisible({files, 0}));
  EXPECT_TRUE(desk.isVisible({files, 1}));
}

TEST(DeskTest, quittingClosesEverything) {
  Desk desk;
  desk.activate(files, OthersOnActivation::stay);
  desk.minimize({files, 0});
  desk.quit(files);
  EXPECT_FALSE(desk.applications()[files].isRunning);
  EXPECT_TRUE(desk.minimized().empty());
  EXPECT_EQ(visibleCount(desk, files), 0);
}

TEST(DeskTest, itsTextBringsEverythingBack) {
  Desk desk;
  desk.activate(notebook, OthersOnActivation::stay);
  desk.minimize({notebook, 1});
  desk.minimize({notebook, 0});
  desk.activate(letters, OthersOnActivation::stay);
  desk.minimize({letters, 0});
  desk.minimize({notebook, 2});
  desk.move({notebook, 0}, {12.5, 700});
  desk.hide(files);
  desk.quit(4);
  Desk other;
  other.restoreFrom(desk.text());
  EXPECT_EQ(other.text(), desk.text());
  EXPECT_EQ(other.minimized(), desk.minimized());
  EXPECT_EQ(other.document({notebook, 0}).place, (Point{12.5, 700}));
}

TEST(DeskTest, aPlaceThatIsRoundedToTheFarthestComesBack) {
  Desk desk;
  desk.move({files, 0}, {99999.97, -99999.97});
  Desk other;
  other.restoreFrom(desk.text());
  EXPECT_EQ(other.text(), desk.text());
  EXPECT_NE(other.text(), Desk().text());
}

TEST(DeskTest, aDamagedTextDoesNoHarm) {
  const std::string fresh = Desk().text();
  for (const char* text :
       {"", "\n\n", "nobody running shown", "files running shown open", "files running shown open x y",
        "files running shown ajar 1 1 open 1 1", "order", "order files", "order files 0 nobody 7 files",
        "files running shown open 1e99 1 open 1 1", "files running shown open 100001 1 open 1 1",
        "files running shown open 1 -100001 open 1 1", "files running shown open 1 1e99 open 1 1",
        "files running shown open 1 1 open 1", "order files 0 files 1"}) {
    Desk desk;
    desk.restoreFrom(text);
    EXPECT_EQ(desk.text(), fresh) << text;
  }
}

}  // namespace
}  // namespace tarnwell::standin
