#include <gtest/gtest.h>

#include "host/macos/Stage.h"
#include "host/macos/ViewDriver.h"
#include "host/macos/look/Conversions.h"
#include "kit/control/Window.h"
#include "kit/controls/choices/PopUpButton.h"

namespace tarnwell::host_macos {
namespace {

/// A pop-up button in a window that is not shown.
class PopUpButtonPeerTest : public testing::Test {
 protected:
  PopUpButtonPeerTest() {
    window.attach(stage.platform.host().peer(window));
    button.setItems({{.title = "Genie", .symbol = "tornado"}, {.title = "Scale"}});
    button.setSelectedIndex(1);
    button.attach(button.makePeer(stage.platform.host(), *window.peer()));
  }

  NSPopUpButton* shown() { return static_cast<NSPopUpButton*>(driver::view(button)); }

  Stage stage;
  kit::Window window{"window", "Window"};
  kit::PopUpButton button;
};

TEST_F(PopUpButtonPeerTest, aSymbolStandsBehindTheTitle) {
  auto* item = static_cast<NSMenuItem*>([shown() itemAtIndex:0]);
  NSAttributedString* title = [item attributedTitle];
  EXPECT_EQ(toString([title string]), "Genie \uFFFC");
  NSTextAttachment* symbol = [title attribute:NSAttachmentAttributeName
                                      atIndex:[title length] - 1
                               effectiveRange:nullptr];
  EXPECT_NE([symbol image], nil);
  EXPECT_EQ([item image], nil);
}

TEST_F(PopUpButtonPeerTest, aSymbolIsNoPartOfTheNameThatIsTold) {
  [shown() selectItemAtIndex:0];
  EXPECT_EQ(toString([shown() titleOfSelectedItem]), "Genie");
  EXPECT_EQ(toString([shown() itemTitleAtIndex:0]), "Genie");
}

TEST_F(PopUpButtonPeerTest, anEntryWithoutASymbolIsItsTitle) {
  EXPECT_EQ([[shown() itemAtIndex:1] attributedTitle], nil);
}

}  // namespace
}  // namespace tarnwell::host_macos
