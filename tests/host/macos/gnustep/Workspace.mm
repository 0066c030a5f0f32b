#include "host/macos/gnustep/Workspace.h"

namespace {

NSMutableString* opened() {
  static NSMutableString* addresses = [[NSMutableString alloc] init];
  return addresses;
}

}  // namespace

@implementation TWWorkspace
+ (NSString*)openedAddresses {
  NSString* addresses = [[opened() copy] autorelease];
  [opened() setString:@""];
  return addresses;
}
- (BOOL)openURL:(NSURL*)address {
  [opened() appendString:[address absoluteString]];
  return YES;
}
@end

@implementation NSWorkspace (Tarnwell)
+ (NSWorkspace*)sharedWorkspace {
  static NSWorkspace* workspace =
      static_cast<NSWorkspace*>(NSAllocateObject([TWWorkspace class], 0, NSDefaultMallocZone()));
  return workspace;
}
@end
