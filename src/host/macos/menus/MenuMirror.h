#pragma once

#import <AppKit/AppKit.h>

#include <memory>
#include <vector>

#include "host/macos/look/Retained.h"
#include "kit/menus/Menu.h"

namespace tarnwell::host_macos {
class MenuMirror;
}

/// What the platform asks and tells of a menu, and the target of its entries.
@interface TWMenuDelegate : NSObject <NSMenuDelegate, NSMenuItemValidation> {
  tarnwell::host_macos::MenuMirror* mirror_;
}
- (instancetype)initWithMirror:(tarnwell::host_macos::MenuMirror*)mirror;
- (void)cut;
- (void)choose:(id)sender;
@end

namespace tarnwell::host_macos {

/// The platform's menu with the entries of `source`, which is borrowed. The platform may ask it for anything at any
/// time, also when there is no application any more.
class MenuMirror {
 public:
  explicit MenuMirror(kit::Menu& source);
  MenuMirror(const MenuMirror&) = delete;
  MenuMirror& operator=(const MenuMirror&) = delete;
  ~MenuMirror();

  NSMenu* menu() const { return menu_.get(); }

  // What the platform tells.

  void needsUpdate();
  void opened();
  void closed();
  void choose(NSInteger index);
  bool canChoose(NSInteger index) const;

 private:
  using Mirrors = std::vector<std::unique_ptr<MenuMirror>>;

  void rebuild();
  NSMenuItem* makeEntry(const kit::MenuItem& item, NSInteger index);
  void addSubmenu(NSMenuItem* entry, kit::Menu& source, Mirrors& before);

  kit::Menu& source_;
  Retained<NSMenu*> menu_;
  Retained<TWMenuDelegate*> delegate_;
  Mirrors submenus_;
  kit::Subscription changes_;
};

}  // namespace tarnwell::host_macos
