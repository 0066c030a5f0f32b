#include "host/macos/controls/ControlPeers.h"
#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/Conversions.h"
#include "kit/control/Window.h"
#include "kit/controls/buttons/Button.h"

namespace tarnwell::host_macos {
namespace {

class ButtonPeer final : public PeerOf<kit::Button, NSButton> {
 public:
  ButtonPeer(kit::Button& button, NSView* parent) : PeerOf(button, makeView<NSButton>(), parent) {
    [view() setButtonType:NSButtonTypeMomentaryPushIn];
    connect([this] { press(); });
  }

 protected:
  void showState(kit::Aspect aspect) override {
    if (aspect == kit::Aspect::style) {
      const bool helps = control().bezelStyle() == kit::Button::BezelStyle::help;
      [view() setBezelStyle:helps ? NSBezelStyleHelpButton : NSBezelStylePush];
      [view() setHasDestructiveAction:control().role() == kit::Button::Role::destructive];
      // What the default button looks like comes with the key.
      [view() setKeyEquivalent:control().isDefault() ? @"\r" : @""];
    }
    // The round button has its sign, and takes a title for a longer one.
    const bool isRound = control().bezelStyle() == kit::Button::BezelStyle::help;
    [view() setTitle:isRound ? @"" : toNSString(control().title())];
  }

 private:
  // The platform presses a default button by itself when Return goes down. That commits what is being typed first, and
  // the window decides which button it means then.
  void press() {
    NSEvent* event = [NSApp currentEvent];
    const bool byReturn = control().isDefault() && [event type] == NSEventTypeKeyDown &&
                          [[event charactersIgnoringModifiers] isEqualToString:@"\r"];
    if (byReturn && control().window() != nullptr) {
      control().window()->keyDown({.charactersIgnoringModifiers = kit::returnKey});
    } else {
      control().click();
    }
  }
};

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::Button& button, NSView* parent) {
  return std::make_unique<ButtonPeer>(button, parent);
}

}  // namespace tarnwell::host_macos
