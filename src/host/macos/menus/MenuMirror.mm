#include "host/macos/menus/MenuMirror.h"

#include <algorithm>
#include <utility>

#include "host/macos/look/Conversions.h"
#include "kit/application/Application.h"

@implementation TWMenuDelegate
- (instancetype)initWithMirror:(tarnwell::host_macos::MenuMirror*)mirror {
  self = [super init];
  if (self != nil) {
    mirror_ = mirror;
  }
  return self;
}
- (void)cut {
  mirror_ = nullptr;
}
- (void)choose:(id)sender {
  if (mirror_ != nullptr) {
    mirror_->choose([static_cast<NSMenuItem*>(sender) tag]);
  }
}
- (BOOL)validateMenuItem:(NSMenuItem*)item {
  return mirror_ != nullptr && mirror_->canChoose([item tag]);
}
- (void)menuNeedsUpdate:(NSMenu*)menu {
  (void)menu;
  if (mirror_ != nullptr) {
    mirror_->needsUpdate();
  }
}
- (void)menuWillOpen:(NSMenu*)menu {
  (void)menu;
  if (mirror_ != nullptr) {
    mirror_->opened();
  }
}
- (void)menuDidClose:(NSMenu*)menu {
  (void)menu;
  if (mirror_ != nullptr) {
    mirror_->closed();
  }
}
@end

namespace tarnwell::host_macos {
namespace {

kit::ResponderChain* responders() {
  return kit::Application::isThere() ? &kit::Application::shared().responders() : nullptr;
}

}  // namespace

MenuMirror::MenuMirror(kit::Menu& source)
    : source_(source),
      menu_(Retained<NSMenu*>::adopt([[NSMenu alloc] initWithTitle:toNSString(source.title())])),
      delegate_(Retained<TWMenuDelegate*>::adopt([[TWMenuDelegate alloc] initWithMirror:this])),
      changes_(source.observe([this] { rebuild(); })) {
  [menu_.get() setDelegate:delegate_.get()];
  rebuild();
}

MenuMirror::~MenuMirror() {
  [delegate_.get() cut];
  [menu_.get() setDelegate:nil];
}

void MenuMirror::needsUpdate() {
  if (kit::ResponderChain* chain = responders()) {
    chain->menuNeedsUpdate(source_);
  }
}

void MenuMirror::opened() {
  if (kit::ResponderChain* chain = responders()) {
    chain->menuOpens(source_);
  }
}

void MenuMirror::closed() {
  if (kit::ResponderChain* chain = responders()) {
    chain->menuCloses(source_);
  }
}

void MenuMirror::choose(NSInteger index) {
  if (kit::ResponderChain* chain = responders()) {
    chain->choose(source_.items().at(static_cast<std::size_t>(index)));
  }
}

bool MenuMirror::canChoose(NSInteger index) const {
  const kit::ResponderChain* chain = responders();
  return chain != nullptr && chain->canChoose(*source_.items().at(static_cast<std::size_t>(index)));
}

void MenuMirror::rebuild() {
  [[menu_.get() itemArray] makeObjectsPerformSelector:@selector(setSubmenu:) withObject:nil];
  [menu_.get() removeAllItems];
  Mirrors before = std::exchange(submenus_, {});
  NSInteger index = 0;
  for (const auto& item : source_.items()) {
    NSMenuItem* entry = item->isSeparator() ? [NSMenuItem separatorItem] : makeEntry(*item, index);
    if (item->submenu()) {
      addSubmenu(entry, *item->submenu(), before);
    }
    [menu_.get() addItem:entry];
    ++index;
  }
}

// One that stood here before stays the same: the platform may have put entries into it.
void MenuMirror::addSubmenu(NSMenuItem* entry, kit::Menu& source, Mirrors& before) {
  const auto known = std::find_if(before.begin(), before.end(),
                                  [&source](const auto& mirror) { return mirror && &mirror->source_ == &source; });
  submenus_.push_back(known != before.end() ? std::move(*known) : std::make_unique<MenuMirror>(source));
  [entry setSubmenu:submenus_.back()->menu()];
}

NSMenuItem* MenuMirror::makeEntry(const kit::MenuItem& item, NSInteger index) {
  const bool isPlatforms = item.isPlatforms();
  NSMenuItem* entry = [[[NSMenuItem alloc]
      initWithTitle:toNSString(item.title())
             action:isPlatforms ? NSSelectorFromString(toNSString(item.action())) : @selector(choose:)
      keyEquivalent:toNSString(item.keyEquivalent().key)] autorelease];
  [entry setKeyEquivalentModifierMask:item.keyEquivalent().modifierFlags];
  [entry setTag:index];
  // What is the platform's goes to what it finds in its own responder chain.
  [entry setTarget:isPlatforms ? nil : delegate_.get()];
  return entry;
}

}  // namespace tarnwell::host_macos
