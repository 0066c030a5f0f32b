#pragma once

// Descriptors in the run loop, as far as the host watches them. Everything else is Foundation's.

@class TWDescriptorSource;
using CFFileDescriptorRef = TWDescriptorSource*;
using CFRunLoopSourceRef = TWDescriptorSource*;
using CFRunLoopRef = const void*;
using CFOptionFlags = unsigned long;
using CFFileDescriptorCallBack = void (*)(CFFileDescriptorRef, CFOptionFlags, void*);

struct CFFileDescriptorContext {
  long version;
  void* info;
  void* (*retain)(void*);
  void (*release)(void*);
  void* (*copyDescription)(void*);
};

constexpr CFOptionFlags kCFFileDescriptorReadCallBack = 1;
constexpr const char* kCFRunLoopCommonModes = "common";

CFFileDescriptorRef CFFileDescriptorCreate(const void* allocator, int descriptor, bool closesAtEnd,
                                           CFFileDescriptorCallBack told, const CFFileDescriptorContext* context);
CFRunLoopSourceRef CFFileDescriptorCreateRunLoopSource(const void* allocator, CFFileDescriptorRef source, long order);
/// It tells once.
void CFFileDescriptorEnableCallBacks(CFFileDescriptorRef source, CFOptionFlags types);
void CFFileDescriptorInvalidate(CFFileDescriptorRef source);
CFRunLoopRef CFRunLoopGetMain();
void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, const char* mode);
void CFRetain(CFFileDescriptorRef source);
void CFRelease(CFFileDescriptorRef source);
