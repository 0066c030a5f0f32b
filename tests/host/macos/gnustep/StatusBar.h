#pragma once

#import <AppKit/AppKit.h>

/// An entry of a status bar that holds what it is told and shows nothing, since GNUstep has none.
@interface TWStatusItem : NSStatusItem {
  NSStatusBarButton* button_;
  NSMenu* menu_;
}
/// The one that was made last and is there still; nil without one.
+ (TWStatusItem*)item;
@end
