#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "fixtures/ExpectDump.h"
#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"
#include "kit/controls/buttons/Button.h"
#include "kit/controls/text/RichText.h"
#include "updatewindows/UpdateWindows.h"
#include "view/Dump.h"
#include "view/values/PlainText.h"

namespace tarnwell::updatewindows {
namespace {

using updateclient::UserDriver;

/// What stands in the window, where a scenario says what it does.
class UpdatePagesTest : public testing::Test {
 protected:
  std::string picture() {
    const kit::Size& size = windows.panel().window().contentSize();
    return view::plainText(size.width) + " by " + view::plainText(size.height) + "\n" +
           view::dump(windows.panel().tree().root());
  }

  void showFound() {
    windows.showFound(item, UserDriver::Origin::user, [](UserDriver::Choice) {});
  }

  /// The first of that kind.
  template <class C>
  static C& control(UpdateWindows& of) {
    for (kit::Control* control : of.panel().window().controls()) {
      if (auto* found = dynamic_cast<C*>(control)) {
        return *found;
      }
    }
    throw std::out_of_range("there is none of that kind");
  }

  host_headless::HeadlessPlatform platform{{.name = "Tarnwell"}};
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
  UpdateWindows windows{*application, "1.0"};
  release::FeedItem item = {.version = "2.0"};
};

TEST_F(UpdatePagesTest, eachReadsAsDesigned) {
  std::string pictures;
  const auto add = [&](const std::string& name) { pictures += name + "\n" + picture() + "\n"; };
  windows.showPermission([](UserDriver::Permission) {});
  add("Permission");
  showFound();
  add("Found, without notes");
  item.readNotes = {{.runs = {{.text = "Notes"}}}};
  showFound();
  add("Found, with notes");
  windows.showDownloading(item, {});
  add("Download that begins");
  windows.showProgress(1'000'000, 4'000'000);
  add("Download");
  windows.showProgress(1'000'000, 0);
  add("Download of unknown length");
  windows.showVerifying(item, {});
  windows.showProgress(1'000'000, 4'000'000);
  add("Verifying, of which no progress is known");
  windows.showReady(item, UserDriver::Origin::user, [](UserDriver::Choice) {});
  add("Ready");
  windows.showFailure("It went wrong.", {}, [] {});
  add("Failure");
  fixtures::expectDump("updatewindows/UpdatePages.dump", pictures);
}

TEST_F(UpdatePagesTest, notesKeepTheirMarks) {
  using Style = release::NotesParagraph::Style;
  item.readNotes = {{.style = Style::heading, .level = 2, .runs = {{.text = "New"}}},
                    {.style = Style::item,
                     .level = 1,
                     .number = 3,
                     .runs = {{.text = "b", .isBold = true},
                              {.text = "i", .isItalic = true},
                              {.text = "c", .isCode = true},
                              {.text = "l", .link = "https://updates.invalid/"}}}};
  showFound();
  using Shown = kit::StyledText::Paragraph;
  EXPECT_EQ(control<kit::RichText>(windows).text(),
            (kit::StyledText{{{.style = Shown::Style::heading, .level = 2, .runs = {{.text = "New"}}},
                              {.style = Shown::Style::item,
                               .level = 1,
                               .number = 3,
                               .runs = {{.text = "b", .isBold = true},
                                        {.text = "i", .isItalic = true},
                                        {.text = "c", .isCode = true},
                                        {.text = "l", .link = "https://updates.invalid/"}}}}}));
}

TEST_F(UpdatePagesTest, anAnswerToWhatIsGoneIsNone) {
  int answers = 0;
  const kit::Action answer = [&answers] { ++answers; };
  windows.showChecking(answer);
  windows.dismiss();
  control<kit::Button>(windows).click();
  EXPECT_EQ(answers, 0);

  auto others = std::make_unique<UpdateWindows>(*application, "1.0");
  others->showChecking(answer);
  application->turn().perform([&] {
    kit::Window& window = others->panel().window();
    auto& cancel = control<kit::Button>(*others);
    others.reset();
    EXPECT_FALSE(window.isVisible());
    cancel.click();
  });
  EXPECT_EQ(answers, 0);
}

}  // namespace
}  // namespace tarnwell::updatewindows
