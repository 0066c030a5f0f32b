#include "host/qt/panels/UpdatePanels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QTextBrowser>
#include <optional>
#include <string>
#include <vector>

#include "fixtures/WaitFor.h"
#include "host/headless/HeadlessPlatform.h"
#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/panels/PanelButton.h"
#include "host/qt/panels/PanelCheckBox.h"
#include "kit/application/Application.h"

namespace tarnwell::host_qt {
namespace {

using release::FeedItem;
using testing::ElementsAre;
using testing::IsEmpty;
using updateclient::UserDriver;

class UpdatePanelsTest : public testing::Test {
 protected:
  UpdatePanelsTest() : panels(*application, testHost().theme(), "1.0") {}

  std::vector<std::string> asked() { return std::exchange(platform.journal(), {}).lines(); }

  /// The window on the screen; null for none.
  static UpdatePanel* window() {
    driver::settle();
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* panel = dynamic_cast<UpdatePanel*>(widget);
      if (panel != nullptr && panel->isVisible()) {
        return panel;
      }
    }
    return nullptr;
  }

  template <class W>
  static std::vector<W*> parts() {
    std::vector<W*> found;
    for (QWidget* widget : window()->findChildren<QWidget*>()) {
      W* part = dynamic_cast<W*>(widget);
      if (part != nullptr && part->isVisible()) {
        found.push_back(part);
      }
    }
    return found;
  }

  static std::vector<std::string> texts() {
    std::vector<std::string> texts;
    for (const QLabel* label : parts<QLabel>()) {
      texts.push_back(label->text().toStdString());
    }
    return texts;
  }

  static std::vector<std::string> buttons() {
    std::vector<std::string> titles;
    for (const PanelButton* button : parts<PanelButton>()) {
      titles.push_back(button->text().toStdString());
    }
    return titles;
  }

  static void press(const std::string& title) {
    for (PanelButton* button : parts<PanelButton>()) {
      if (button->text().toStdString() == title) {
        button->click();
        driver::settle();
        return;
      }
    }
    FAIL() << "there is no button " << title;
  }

  static void key(Qt::Key key) {
    driver::keyTo(*window(), key);
    driver::settle();
  }

  void showFound(UserDriver::Origin origin = UserDriver::Origin::user) {
    panels.showFound(item, origin, [this](UserDriver::Choice choice) {
      choices.push_back(choice);
      events += application->turn().isPerforming() ? 1 : 0;
    });
  }

  FeedItem item = {.title = "Spring release", .version = "12", .shownVersion = "1.2", .notes = "<p>Notes</p>"};
  std::vector<UserDriver::Choice> choices;
  host_headless::HeadlessPlatform platform{{.name = "Tarnwell"}};
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
  int events = 0;
  int answers = 0;
  kit::Action answer = [this] { ++answers; };
  UpdatePanels panels;
};

TEST_F(UpdatePanelsTest, anUpdateThatWasFoundSaysWhatItIs) {
  showFound();
  EXPECT_THAT(texts(), ElementsAre("Spring release", "Tarnwell 1.2 is available; you have 1.0."));
  EXPECT_THAT(buttons(), ElementsAre("Skip This Version", "Remind Me Later", "Install Update"));
  EXPECT_EQ(parts<QTextBrowser>().at(0)->toPlainText(), "Notes");
}

TEST_F(UpdatePanelsTest, eachButtonGivesItsAnswerOnceAndTheWindowGoes) {
  for (const auto& [title, choice] : {std::pair("Skip This Version", UserDriver::Choice::skip),
                                      std::pair("Remind Me Later", UserDriver::Choice::remindLater),
                                      std::pair("Install Update", UserDriver::Choice::install)}) {
    choices.clear();
    showFound();
    press(title);
    EXPECT_THAT(choices, ElementsAre(choice));
    EXPECT_EQ(window(), nullptr);
  }
  EXPECT_EQ(events, 3);
}

TEST_F(UpdatePanelsTest, returnInstallsAndClosingRemindsLater) {
  showFound();
  key(Qt::Key_Return);
  showFound();
  key(Qt::Key_Escape);
  showFound();
  window()->close();
  EXPECT_THAT(choices, ElementsAre(UserDriver::Choice::install, UserDriver::Choice::remindLater,
                                   UserDriver::Choice::remindLater));
  EXPECT_EQ(window(), nullptr);
}

TEST_F(UpdatePanelsTest, aCriticalUpdateCannotBeSkipped) {
  item.isCritical = true;
  showFound();
  EXPECT_THAT(buttons(), ElementsAre("Remind Me Later", "Install Update"));
  EXPECT_EQ(texts().at(1), "Tarnwell 1.2 is available; you have 1.0. This is an important update.");
}

TEST_F(UpdatePanelsTest, whatThereIsOnlyToReadIsNotInstalled) {
  item.isInformational = true;
  showFound();
  EXPECT_THAT(buttons(), ElementsAre("Skip This Version", "Remind Me Later", "Learn More"));
}

TEST_F(UpdatePanelsTest, textsOfTheFeedAreNoMarkupAndOfBearableLength) {
  item.title = "<b>bold</b>\n" + std::string(5000, 'x');
  item.shownVersion = std::string(5000, '9');
  showFound();
  for (const QLabel* label : parts<QLabel>()) {
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_LT(label->text().size(), 130);
  }
  EXPECT_EQ(texts().at(0).rfind("<b>bold</b> x", 0), 0U);
  EXPECT_EQ(window()->width(), 500);
}

TEST_F(UpdatePanelsTest, withoutNotesTheirPageIsALink) {
  item.notes.clear();
  item.releaseNotesLink = "https://tarnwell.example/notes";
  showFound();
  ASSERT_EQ(texts().size(), 3U);
  emit parts<QLabel>().at(2)->linkActivated("https://tarnwell.example/notes");
  EXPECT_THAT(asked(), ElementsAre("open https://tarnwell.example/notes"));
  item.releaseNotesLink = "file:///etc/passwd";
  showFound();
  EXPECT_EQ(texts().size(), 2U);
}

TEST_F(UpdatePanelsTest, linksInNotesOpenInTheBrowser) {
  item.notes = "<p><a href='https://tarnwell.example/a'>a</a></p>";
  showFound();
  emit parts<QTextBrowser>().at(0)->anchorClicked(QUrl("https://tarnwell.example/a"));
  EXPECT_THAT(asked(), ElementsAre("open https://tarnwell.example/a"));
  EXPECT_NE(window(), nullptr);
}

TEST_F(UpdatePanelsTest, aBackgroundCheckDoesNotTakeTheKeyboard) {
  showFound(UserDriver::Origin::schedule);
  EXPECT_TRUE(window()->testAttribute(Qt::WA_ShowWithoutActivating));
  showFound(UserDriver::Origin::user);
  EXPECT_FALSE(window()->testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST_F(UpdatePanelsTest, theQuestionAboutPermissionDoesNotTakeTheKeyboard) {
  panels.showPermission([](UserDriver::Permission /*permission*/) {});
  EXPECT_TRUE(window()->testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST_F(UpdatePanelsTest, permissionIsGivenWithAndWithoutDownloads) {
  std::optional<UserDriver::Permission> given;
  const auto ask = [&] { panels.showPermission([&](UserDriver::Permission permission) { given = permission; }); };
  ask();
  EXPECT_THAT(buttons(), ElementsAre("Don’t Check", "Check Automatically"));
  key(Qt::Key_Return);
  EXPECT_TRUE(given->checks && !given->downloads);
  ask();
  parts<PanelCheckBox>().at(0)->click();
  press("Check Automatically");
  EXPECT_TRUE(given->checks && given->downloads);
  ask();
  parts<PanelCheckBox>().at(0)->click();
  key(Qt::Key_Escape);
  EXPECT_TRUE(!given->checks && !given->downloads);
}

TEST_F(UpdatePanelsTest, checkingCanBeCancelled) {
  panels.showChecking(answer);
  EXPECT_THAT(texts(), ElementsAre("Checking for updates…"));
  EXPECT_EQ(parts<QProgressBar>().at(0)->maximum(), 0);
  press("Cancel");
  panels.showChecking(answer);
  key(Qt::Key_Escape);
  EXPECT_EQ(answers, 2);
  EXPECT_EQ(window(), nullptr);
}

TEST_F(UpdatePanelsTest, aDownloadShowsHowFarItIs) {
  panels.showDownloading(item, answer);
  EXPECT_THAT(texts(), ElementsAre("Downloading Tarnwell 1.2…", "Connecting…"));
  panels.showProgress(3'200'000, 10'000'000);
  EXPECT_EQ(texts().at(1), "3.2 MB of 10 MB");
  const QProgressBar* bar = parts<QProgressBar>().at(0);
  EXPECT_NEAR(double(bar->value()) / bar->maximum(), 0.32, 0.001);
  press("Cancel");
  EXPECT_EQ(answers, 1);
  panels.showProgress(4'000'000, 10'000'000);
  EXPECT_EQ(window(), nullptr);
}

TEST_F(UpdatePanelsTest, verifyingAndInstallingCanBeCancelled) {
  panels.showVerifying(item, answer);
  EXPECT_THAT(texts(), ElementsAre("Verifying Tarnwell 1.2…"));
  EXPECT_EQ(parts<QProgressBar>().at(0)->maximum(), 0);
  EXPECT_EQ(parts<QProgressBar>().at(0)->accessibleName(), "Verifying");
  press("Cancel");
  panels.showInstalling(item, answer);
  EXPECT_THAT(texts(), ElementsAre("Installing Tarnwell 1.2…"));
  EXPECT_EQ(parts<QProgressBar>().at(0)->maximum(), 0);
  key(Qt::Key_Escape);
  EXPECT_EQ(answers, 2);
  EXPECT_EQ(window(), nullptr);
}

TEST_F(UpdatePanelsTest, whatIsLeftToDoIsSaidWithoutCoveringTheInstaller) {
  using updateclient::HandOver;
  panels.showHandedOver(item, HandOver::opened, UserDriver::Origin::schedule, answer);
  EXPECT_TRUE(window()->testAttribute(Qt::WA_ShowWithoutActivating));
  EXPECT_THAT(texts(), ElementsAre("The installer has been opened",
                                   "Go on there to install Tarnwell 1.2. When that is done, quit Tarnwell and start it "
                                   "again."));
  EXPECT_THAT(buttons(), ElementsAre("OK"));
  press("OK");
  panels.showHandedOver(item, HandOver::replaced, UserDriver::Origin::user, answer);
  EXPECT_FALSE(window()->testAttribute(Qt::WA_ShowWithoutActivating));
  EXPECT_THAT(texts(), ElementsAre("Tarnwell 1.2 is installed", "Quit Tarnwell and start it again to use it."));
  key(Qt::Key_Return);
  EXPECT_EQ(answers, 2);
  EXPECT_EQ(window(), nullptr);
}

TEST_F(UpdatePanelsTest, oneThingIsOnTheScreenAtATime) {
  panels.showChecking(answer);
  const UpdatePanel* first = window();
  panels.showDownloading(item, answer);
  panels.showReady(item, UserDriver::Origin::user, [this](UserDriver::Choice choice) {
    choices.push_back(choice);
    events += application->turn().isPerforming() ? 1 : 0;
  });
  EXPECT_EQ(window(), first);
  EXPECT_EQ(texts().at(0), "Tarnwell 1.2 is ready to install");
  EXPECT_EQ(answers, 0);
  panels.dismiss();
  EXPECT_EQ(window(), nullptr);
  EXPECT_THAT(choices, IsEmpty());
}

TEST_F(UpdatePanelsTest, whatAnAnswerShowsStays) {
  panels.showChecking([this] { panels.showUpToDate("1.0", answer); });
  press("Cancel");
  EXPECT_THAT(texts(), ElementsAre("Tarnwell is up to date", "Version 1.0 is the newest one."));
  key(Qt::Key_Return);
  EXPECT_EQ(answers, 1);
  EXPECT_EQ(window(), nullptr);
}

TEST_F(UpdatePanelsTest, aFailureOffersToTryAgainWhereThatCanHelp) {
  int retries = 0;
  panels.showFailure("The server does not answer.", answer, [&] { ++retries; });
  EXPECT_THAT(texts(), ElementsAre("Tarnwell could not be updated", "The server does not answer."));
  EXPECT_THAT(buttons(), ElementsAre("Close", "Try Again"));
  key(Qt::Key_Return);
  EXPECT_EQ(retries, 1);
  panels.showFailure("There is no feed.", answer, {});
  EXPECT_THAT(buttons(), ElementsAre("OK"));
  press("OK");
  EXPECT_EQ(answers, 1);
}

TEST_F(UpdatePanelsTest, keysThatItHasNoUseForGoToTheApplication) {
  int keys = 0;
  const auto entry = kit::MenuItem::create("Quit", {}, "q");
  entry->setHandler([&keys] { ++keys; });
  application->mainMenu().addItem(kit::MenuItem::withSubmenu("Tarnwell", std::make_shared<kit::Menu>()));
  application->mainMenu().items().front()->submenu()->addItem(entry);
  panels.showChecking(answer);
  QKeyEvent quit(QEvent::KeyPress, Qt::Key_Q, Qt::ControlModifier);
  QApplication::sendEvent(window(), &quit);
  EXPECT_EQ(keys, 1);
  EXPECT_NE(window(), nullptr);
}

TEST_F(UpdatePanelsTest, aScreenReaderIsToldEverything) {
  showFound();
  EXPECT_EQ(window()->accessibleDescription(), "Spring release\nTarnwell 1.2 is available; you have 1.0.");
  EXPECT_EQ(parts<QTextBrowser>().at(0)->accessibleName(), "Release notes");
  panels.showDownloading(item, answer);
  EXPECT_EQ(parts<QProgressBar>().at(0)->accessibleName(), "Download");
}

TEST_F(UpdatePanelsTest, lightAndDarkAreFollowed) {
  item.notes = "<p><a href='https://tarnwell.example/a'>a</a></p>";
  showFound();
  testHost().theme().setColorScheme(ColorScheme::dark);
  driver::settle();
  const QColor dark = window()->grab().toImage().pixelColor(3, 3);
  EXPECT_EQ(dark, testHost().theme().palette().window);
  EXPECT_TRUE(parts<QTextBrowser>().at(0)->toHtml().contains(testHost().theme().palette().accentOnWindow.name()));
  testHost().theme().setColorScheme(ColorScheme::light);
  driver::settle();
  EXPECT_NE(window()->grab().toImage().pixelColor(3, 3), dark);
}

}  // namespace
}  // namespace tarnwell::host_qt
