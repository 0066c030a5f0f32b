#import <AppKit/AppKit.h>
#import <CoreFoundation/CoreFoundation.h>

#include <cstdint>
#include <initializer_list>

namespace {

void* asData(int descriptor) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(descriptor)); }

}  // namespace

@interface TWDescriptorSource : NSObject <RunLoopEvents> {
  int descriptor_;
  CFFileDescriptorCallBack told_;
  void* info_;
}
- (instancetype)initWithDescriptor:(int)descriptor told:(CFFileDescriptorCallBack)told info:(void*)info;
- (void)watch;
/// It is not watched again.
- (void)invalidate;
@end

@implementation TWDescriptorSource
- (instancetype)initWithDescriptor:(int)descriptor told:(CFFileDescriptorCallBack)told info:(void*)info {
  self = [super init];
  if (self != nil) {
    descriptor_ = descriptor;
    told_ = told;
    info_ = info;
  }
  return self;
}
- (void)watch {
  if (told_ != nullptr) {
    for (NSString* mode : {NSDefaultRunLoopMode, NSEventTrackingRunLoopMode}) {
      [[NSRunLoop mainRunLoop] addEvent:asData(descriptor_) type:ET_RDESC watcher:self forMode:mode];
    }
  }
}
- (void)stopWatching {
  for (NSString* mode : {NSDefaultRunLoopMode, NSEventTrackingRunLoopMode}) {
    [[NSRunLoop mainRunLoop] removeEvent:asData(descriptor_) type:ET_RDESC forMode:mode all:YES];
  }
}
- (void)invalidate {
  [self stopWatching];
  told_ = nullptr;
}
- (void)receivedEvent:(void*)data type:(RunLoopEventType)type extra:(void*)extra forMode:(NSString*)mode {
  (void)data;
  (void)type;
  (void)extra;
  (void)mode;
  [self stopWatching];
  told_(self, kCFFileDescriptorReadCallBack, info_);
}
@end

CFFileDescriptorRef CFFileDescriptorCreate(const void* /*allocator*/, int descriptor, bool /*closesAtEnd*/,
                                           CFFileDescriptorCallBack told, const CFFileDescriptorContext* context) {
  return [[TWDescriptorSource alloc] initWithDescriptor:descriptor told:told info:context->info];
}

CFRunLoopSourceRef CFFileDescriptorCreateRunLoopSource(const void* /*allocator*/, CFFileDescriptorRef source,
                                                       long /*order*/) {
  return [source retain];
}

void CFFileDescriptorEnableCallBacks(CFFileDescriptorRef source, CFOptionFlags /*types*/) { [source watch]; }

void CFFileDescriptorInvalidate(CFFileDescriptorRef source) { [source invalidate]; }

CFRunLoopRef CFRunLoopGetMain() { return nullptr; }

// It is watched from when its call-backs are enabled.
void CFRunLoopAddSource(CFRunLoopRef /*loop*/, CFRunLoopSourceRef /*source*/, const char* /*mode*/) {}

void CFRetain(CFFileDescriptorRef source) { [source retain]; }

void CFRelease(CFFileDescriptorRef source) { [source release]; }
