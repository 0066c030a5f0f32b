#import <ServiceManagement/ServiceManagement.h>

@implementation SMAppService
+ (instancetype)mainAppService {
  return nil;
}
- (NSInteger)status {
  return 0;
}
- (BOOL)registerAndReturnError:(NSError**)error {
  (void)error;
  return NO;
}
- (BOOL)unregisterAndReturnError:(NSError**)error {
  (void)error;
  return NO;
}
@end
