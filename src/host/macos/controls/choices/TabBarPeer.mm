#include "host/macos/controls/Container.h"
#include "host/macos/controls/ControlPeers.h"
#include "host/macos/look/Conversions.h"
#include "host/macos/look/Retained.h"
#include "host/macos/look/Symbols.h"
#include "kit/control/Window.h"
#include "kit/controls/choices/TabBar.h"

using tarnwell::host_macos::imageOf;
using tarnwell::host_macos::toNSString;
namespace kit = tarnwell::kit;

/// Makes the items of a toolbar, whose identifiers are their numbers, and hears of clicks; cut when the control goes.
@interface TWTabDelegate : NSObject <NSToolbarDelegate> {
  kit::TabBar* bar_;
}
- (instancetype)initWithBar:(kit::TabBar*)bar;
- (void)cut;
- (void)chooseTab:(id)sender;
@end

namespace {

NSString* identifierOf(int index) { return [NSString stringWithFormat:@"%d", index]; }

}  // namespace

@implementation TWTabDelegate
- (instancetype)initWithBar:(kit::TabBar*)bar {
  self = [super init];
  if (self != nil) {
    bar_ = bar;
  }
  return self;
}
- (void)cut {
  bar_ = nullptr;
}
- (NSArray*)identifiers {
  NSMutableArray* identifiers = [NSMutableArray array];
  const int count = bar_ != nullptr ? static_cast<int>(bar_->items().size()) : 0;
  for (int index = 0; index < count; ++index) {
    [identifiers addObject:identifierOf(index)];
  }
  return identifiers;
}
- (NSArray*)toolbarAllowedItemIdentifiers:(NSToolbar*)toolbar {
  (void)toolbar;
  return [self identifiers];
}
- (NSArray*)toolbarDefaultItemIdentifiers:(NSToolbar*)toolbar {
  (void)toolbar;
  return [self identifiers];
}
- (NSArray*)toolbarSelectableItemIdentifiers:(NSToolbar*)toolbar {
  (void)toolbar;
  return [self identifiers];
}
- (NSToolbarItem*)toolbar:(NSToolbar*)toolbar
        itemForItemIdentifier:(NSString*)identifier
    willBeInsertedIntoToolbar:(BOOL)inserted {
  (void)toolbar;
  (void)inserted;
  const auto index = static_cast<std::size_t>([identifier intValue]);
  if (bar_ == nullptr || index >= bar_->items().size()) {
    return nil;
  }
  const auto& tab = bar_->items()[index];
  NSToolbarItem* item = [[[NSToolbarItem alloc] initWithItemIdentifier:identifier] autorelease];
  [item setLabel:toNSString(tab.title)];
  [item setImage:imageOf(tab.symbol)];
  [item setTarget:self];
  [item setAction:@selector(chooseTab:)];
  return item;
}
- (BOOL)validateToolbarItem:(NSToolbarItem*)item {
  (void)item;
  return bar_ != nullptr && bar_->isEnabled();
}
- (void)chooseTab:(id)sender {
  if (bar_ != nullptr) {
    // A screen reader presses without the click that would have ended what is being typed.
    kit::TabBar* bar = bar_;
    const int index = [[static_cast<NSToolbarItem*>(sender) itemIdentifier] intValue];
    kit::afterCommit(*bar, [bar, index] { bar->choose(index); });
  }
}
@end

namespace tarnwell::host_macos {
namespace {

/// The tabs stand in the toolbar of the window, as in the settings of other programs.
class TabBarPeer final : public kit::Peer {
 public:
  TabBarPeer(kit::TabBar& bar, NSWindow* window)
      : bar_(bar),
        window_(window),
        delegate_(Retained<TWTabDelegate*>::adopt([[TWTabDelegate alloc] initWithBar:&bar])) {
    [window setToolbarStyle:NSWindowToolbarStylePreference];
  }
  ~TabBarPeer() override {
    [delegate_.get() cut];
    [toolbar_.get() setDelegate:nil];
    [window_.get() setToolbar:nil];
  }

  void show(kit::Aspect aspect) noexcept override {
    if (aspect == kit::Aspect::title) {
      showTabs();
    }
    if (aspect == kit::Aspect::enabled) {
      [toolbar_.get() validateVisibleItems];
    }
    if (aspect == kit::Aspect::title || aspect == kit::Aspect::value) {
      const int selected = bar_.selectedIndex();
      [toolbar_.get() setSelectedItemIdentifier:selected >= 0 ? identifierOf(selected) : nil];
    }
  }
  void place(const kit::Rect& /*frame*/) noexcept override {}
  std::optional<kit::Measurement> measure(kit::Proposal /*proposal*/) const override { return kit::Measurement{}; }

 private:
  // A toolbar asks for its items once, and has those of another one of its identifier.
  void showTabs() {
    [toolbar_.get() setDelegate:nil];
    NSString* identifier = [[NSProcessInfo processInfo] globallyUniqueString];
    toolbar_ = Retained<NSToolbar*>::adopt([[NSToolbar alloc] initWithIdentifier:identifier]);
    [toolbar_.get() setAllowsUserCustomization:NO];
    [toolbar_.get() setDisplayMode:NSToolbarDisplayModeIconAndLabel];
    [toolbar_.get() setDelegate:delegate_.get()];
    [window_.get() setToolbar:toolbar_.get()];
  }

  kit::TabBar& bar_;
  Retained<NSWindow*> window_;
  Retained<TWTabDelegate*> delegate_;
  Retained<NSToolbar*> toolbar_;
};

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::TabBar& bar, NSView* parent) {
  return std::make_unique<TabBarPeer>(bar, [parent window]);
}

}  // namespace tarnwell::host_macos
