#include "host/macos/menus/StatusItemPeer.h"

#include "host/macos/look/Conversions.h"
#include "host/macos/look/Symbols.h"

namespace tarnwell::host_macos {

StatusItemPeer::StatusItemPeer(kit::StatusItem& item)
    : item_(item),
      shown_([[NSStatusBar systemStatusBar] statusItemWithLength:item.length()]),
      clicked_([this] { click(); }),
      imageChanges_(item.button()->observe([this] { showImage(); })) {
  [button() setAccessibilityTitle:toNSString(item.title())];
  [button() setTarget:clicked_.target()];
  [button() setAction:ActionTarget::action()];
  // Which of them mean something the item decides.
  [button() sendActionOn:NSEventMaskLeftMouseUp | NSEventMaskRightMouseUp];
  showImage();
}

StatusItemPeer::~StatusItemPeer() { [[NSStatusBar systemStatusBar] removeStatusItem:shown_.get()]; }

void StatusItemPeer::menuChanged() {
  [shown_.get() setMenu:nil];
  menu_.reset();
  if (item_.menu()) {
    menu_.emplace(*item_.menu());
    [shown_.get() setMenu:menu_->menu()];
  }
}

void StatusItemPeer::popUp(kit::Menu& menu) {
  // At the icon the platform opens the item's own menu alone.
  const MenuMirror opened(menu);
  [shown_.get() setMenu:opened.menu()];
  [button() performClick:nil];
  [shown_.get() setMenu:menu_ ? menu_->menu() : nil];
}

void StatusItemPeer::showImage() {
  const auto& image = item_.button()->image();
  NSString* description = image.accessibilityDescription ? toNSString(*image.accessibilityDescription) : nil;
  NSImage* shown = imageOf(image.symbol, description);
  [shown setTemplate:YES];
  [button() setImage:shown];
}

void StatusItemPeer::click() {
  const bool right = [[NSApp currentEvent] type] == NSEventTypeRightMouseUp;
  item_.mouseUp(right ? kit::Event::Type::rightMouseUp : kit::Event::Type::leftMouseUp);
}

}  // namespace tarnwell::host_macos
