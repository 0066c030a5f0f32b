#include "host/macos/controls/ControlPeers.h"
#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/Conversions.h"
#include "host/macos/look/Symbols.h"
#include "kit/control/Window.h"
#include "kit/controls/choices/PopUpButton.h"

namespace tarnwell::host_macos {
namespace {

NSPopUpButton* makeButton() { return [[[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO] autorelease]; }

// The platform puts the image of an entry in front of its title.
NSAttributedString* titleWithSymbol(const kit::ChoiceControl::Item& item) {
  NSDictionary* look = [NSDictionary dictionaryWithObject:[NSFont menuFontOfSize:0] forKey:NSFontAttributeName];
  NSMutableAttributedString* title = [[[NSMutableAttributedString alloc] initWithString:toNSString(item.title + " ")
                                                                             attributes:look] autorelease];
  NSTextAttachment* symbol = [[[NSTextAttachment alloc] init] autorelease];
  [symbol setImage:imageOf(item.symbol, @"")];
  [title appendAttributedString:[NSAttributedString attributedStringWithAttachment:symbol]];
  return title;
}

NSMenuItem* makeItem(const kit::ChoiceControl::Item& item) {
  NSMenuItem* entry = [[[NSMenuItem alloc] initWithTitle:toNSString(item.title) action:nullptr
                                           keyEquivalent:@""] autorelease];
  if (!item.symbol.empty()) {
    [entry setAttributedTitle:titleWithSymbol(item)];
  }
  return entry;
}

class PopUpButtonPeer final : public PeerOf<kit::PopUpButton, NSPopUpButton> {
 public:
  PopUpButtonPeer(kit::PopUpButton& button, NSView* parent) : PeerOf(button, makeButton(), parent) {
    connect([this] { control().choose(static_cast<int>([view() indexOfSelectedItem])); });
    // A screen reader opens the menu without the click that would have committed what is being typed.
    [[NSNotificationCenter defaultCenter] addObserver:opens_.target()
                                             selector:ActionTarget::action()
                                                 name:NSPopUpButtonWillPopUpNotification
                                               object:view()];
  }
  ~PopUpButtonPeer() override { [[NSNotificationCenter defaultCenter] removeObserver:opens_.target()]; }

 protected:
  void showState(kit::Aspect aspect) override {
    if (aspect == kit::Aspect::title) {
      showItems();
    }
    if (aspect == kit::Aspect::title || aspect == kit::Aspect::value) {
      [view() selectItemAtIndex:control().selectedIndex()];
    }
  }

 private:
  // Through the menu: the button itself has no two items of the same title.
  void showItems() {
    [view() removeAllItems];
    for (const auto& item : control().items()) {
      [[view() menu] addItem:makeItem(item)];
    }
  }

  ActionTarget opens_{[this] { kit::afterCommit(control(), [] {}); }};
};

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::PopUpButton& button, NSView* parent) {
  return std::make_unique<PopUpButtonPeer>(button, parent);
}

}  // namespace tarnwell::host_macos
