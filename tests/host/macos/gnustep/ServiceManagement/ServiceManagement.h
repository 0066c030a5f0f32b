#pragma once

#import <Foundation/Foundation.h>

/// Never registered: GNUstep has no login items.
@interface SMAppService : NSObject
+ (instancetype)mainAppService;
- (NSInteger)status;
- (BOOL)registerAndReturnError:(NSError**)error;
- (BOOL)unregisterAndReturnError:(NSError**)error;
@end
