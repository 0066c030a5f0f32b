#pragma once

#import <AppKit/AppKit.h>

/// A workspace without a browser: it keeps the addresses that it was to open. GNUstep's own starts services and waits.
@interface TWWorkspace : NSWorkspace
/// What was opened since the last call, one after the other.
+ (NSString*)openedAddresses;
@end
