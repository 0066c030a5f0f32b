#include <gtest/gtest.h>

#include <stdexcept>

#include "fixtures/ExpectDump.h"
#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"
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

  const kit::StyledText& notes() {
    for (kit::Control* control : windows.panel().window().controls()) {
      if (const auto* text = dynamic_cast<kit::RichText*>(control)) {
        return text->text();
      }
    }
    throw std::out_of_range("there are no notes");
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
  EXPECT_EQ(notes(), (kit::StyledText{{{.style = Shown::Style::heading, .level = 2, .runs = {{.text = "New"}}},
                                       {.style = Shown::Style::item,
                                        .level = 1,
                                        .number = 3,
                                        .runs = {{.text = "b", .isBold = true},
                                                 {.text = "i", .isItalic = true},
                                                 {.text = "c", .isCode = true},
                                                 {.text = "l", .link = "https://updates.invalid/"}}}}}));
}

}  // namespace
}  // namespace tarnwell::updatewindows
