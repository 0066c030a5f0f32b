#include "host/macos/system/DescriptorWatch.h"

#import <CoreFoundation/CoreFoundation.h>

#include <memory>
#include <utility>

namespace tarnwell::host_macos {
namespace {

class Watch {
 public:
  Watch(int descriptor, kit::Action readable) : readable_(std::move(readable)) {
    const CFFileDescriptorContext context = {0, this, nullptr, nullptr, nullptr};
    source_ = CFFileDescriptorCreate(nullptr, descriptor, false, told, &context);
    CFRunLoopSourceRef inLoop = CFFileDescriptorCreateRunLoopSource(nullptr, source_, 0);
    // Also while a menu is open or the mouse is held down.
    CFRunLoopAddSource(CFRunLoopGetMain(), inLoop, kCFRunLoopCommonModes);
    CFRelease(inLoop);
    CFFileDescriptorEnableCallBacks(source_, kCFFileDescriptorReadCallBack);
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch() {
    CFFileDescriptorInvalidate(source_);
    CFRelease(source_);
  }

 private:
  static void told(CFFileDescriptorRef source, CFOptionFlags /*types*/, void* watch) {
    // What it does may end the watch.
    CFRetain(source);
    const kit::Action readable = static_cast<Watch*>(watch)->readable_;
    readable();
    // It tells once; one that was ended takes this for nothing.
    CFFileDescriptorEnableCallBacks(source, kCFFileDescriptorReadCallBack);
    CFRelease(source);
  }

  kit::Action readable_;
  CFFileDescriptorRef source_ = nullptr;
};

}  // namespace

kit::Subscription watchDescriptor(int descriptor, kit::Action readable) {
  auto watch = std::make_shared<Watch>(descriptor, std::move(readable));
  return kit::Subscription([watch]() mutable { watch.reset(); });
}

}  // namespace tarnwell::host_macos
