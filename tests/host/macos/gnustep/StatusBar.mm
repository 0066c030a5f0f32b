#include "host/macos/gnustep/StatusBar.h"

namespace {

TWStatusItem*& shownItem() {
  static TWStatusItem* item = nil;
  return item;
}

}  // namespace

@implementation TWStatusItem
+ (TWStatusItem*)item {
  return shownItem();
}
- (instancetype)init {
  self = [super init];
  if (self != nil) {
    button_ = [[NSStatusBarButton alloc] initWithFrame:NSMakeRect(0, 0, 22, 22)];
  }
  return self;
}
- (void)dealloc {
  [button_ release];
  [menu_ release];
  [super dealloc];
}
- (NSStatusBarButton*)button {
  return button_;
}
- (NSMenu*)menu {
  return menu_;
}
- (void)setMenu:(NSMenu*)menu {
  [menu retain];
  [menu_ release];
  menu_ = menu;
}
@end

@interface TWStatusBar : NSStatusBar
@end
@implementation TWStatusBar
- (NSStatusItem*)statusItemWithLength:(CGFloat)length {
  (void)length;
  shownItem() = [[[TWStatusItem alloc] init] autorelease];
  return shownItem();
}
- (void)removeStatusItem:(NSStatusItem*)item {
  if (item == shownItem()) {
    shownItem() = nil;
  }
}
@end

@implementation NSStatusBar (Tarnwell)
+ (NSStatusBar*)systemStatusBar {
  static NSStatusBar* bar = [[TWStatusBar alloc] init];
  return bar;
}
@end
