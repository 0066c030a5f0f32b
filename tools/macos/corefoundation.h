// What is used of CoreFoundation, in C alone.
#pragma once

#include <stdint.h>

#ifdef __cplusplus
#define KIT_EXTERN extern "C"
#else
#define KIT_EXTERN extern
#endif

typedef unsigned char Boolean;
typedef long CFIndex;
typedef unsigned long CFOptionFlags;
typedef unsigned long CFTypeID;
typedef const void* CFTypeRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef struct {
  CFIndex location, length;
} CFRange;
KIT_EXTERN CFTypeRef CFRetain(CFTypeRef);
KIT_EXTERN void CFRelease(CFTypeRef);
KIT_EXTERN CFTypeID CFGetTypeID(CFTypeRef);

typedef const struct __CFArray* CFArrayRef;
typedef const struct __CFBoolean* CFBooleanRef;
typedef const struct __CFData* CFDataRef;
typedef const struct __CFDate* CFDateRef;
typedef const struct __CFDictionary* CFDictionaryRef;
typedef const struct __CFNumber* CFNumberRef;
typedef const struct __CFString* CFStringRef;
KIT_EXTERN CFTypeID CFArrayGetTypeID(void);
KIT_EXTERN CFTypeID CFBooleanGetTypeID(void);
KIT_EXTERN CFTypeID CFDateGetTypeID(void);
KIT_EXTERN CFTypeID CFDictionaryGetTypeID(void);
KIT_EXTERN CFTypeID CFNumberGetTypeID(void);
KIT_EXTERN CFTypeID CFStringGetTypeID(void);

KIT_EXTERN Boolean CFBooleanGetValue(CFBooleanRef);
KIT_EXTERN CFDataRef CFDataCreate(CFAllocatorRef, const uint8_t*, CFIndex);
KIT_EXTERN const uint8_t* CFDataGetBytePtr(CFDataRef);
KIT_EXTERN CFIndex CFDataGetLength(CFDataRef);
KIT_EXTERN const void* CFDictionaryGetValue(CFDictionaryRef, const void*);

typedef CFIndex CFNumberType;
enum { kCFNumberSInt64Type = 4, kCFNumberDoubleType = 13 };
KIT_EXTERN Boolean CFNumberGetValue(CFNumberRef, CFNumberType, void*);
KIT_EXTERN Boolean CFNumberIsFloatType(CFNumberRef);

typedef uint32_t CFStringEncoding;
enum { kCFStringEncodingUTF8 = 0x08000100 };
KIT_EXTERN CFStringRef CFStringCreateWithCString(CFAllocatorRef, const char*, CFStringEncoding);
KIT_EXTERN CFIndex CFStringGetLength(CFStringRef);
KIT_EXTERN CFIndex CFStringGetBytes(CFStringRef, CFRange, CFStringEncoding, uint8_t, Boolean, uint8_t*, CFIndex,
                                    CFIndex*);

typedef const struct __CFError* CFErrorRef;
typedef CFIndex CFPropertyListFormat;
enum { kCFPropertyListImmutable = 0, kCFPropertyListXMLFormat_v1_0 = 100 };
KIT_EXTERN CFDataRef CFPropertyListCreateData(CFAllocatorRef, CFTypeRef, CFPropertyListFormat, CFOptionFlags,
                                              CFErrorRef*);
KIT_EXTERN CFTypeRef CFPropertyListCreateWithData(CFAllocatorRef, CFDataRef, CFOptionFlags, CFPropertyListFormat*,
                                                  CFErrorRef*);

// A descriptor that the event loop watches.
typedef struct __CFFileDescriptor* CFFileDescriptorRef;
typedef struct __CFRunLoop* CFRunLoopRef;
typedef struct __CFRunLoopSource* CFRunLoopSourceRef;
typedef void (*CFFileDescriptorCallBack)(CFFileDescriptorRef, CFOptionFlags, void*);
typedef struct {
  long version;
  void* info;
  void* (*retain)(void*);
  void (*release)(void*);
  CFStringRef (*copyDescription)(void*);
} CFFileDescriptorContext;
enum { kCFFileDescriptorReadCallBack = 1 };
KIT_EXTERN const CFStringRef kCFRunLoopCommonModes;
KIT_EXTERN CFRunLoopRef CFRunLoopGetMain(void);
KIT_EXTERN void CFRunLoopAddSource(CFRunLoopRef, CFRunLoopSourceRef, CFStringRef);
KIT_EXTERN CFFileDescriptorRef CFFileDescriptorCreate(CFAllocatorRef, int, unsigned char, CFFileDescriptorCallBack,
                                                      const CFFileDescriptorContext*);
KIT_EXTERN void CFFileDescriptorEnableCallBacks(CFFileDescriptorRef, CFOptionFlags);
KIT_EXTERN void CFFileDescriptorInvalidate(CFFileDescriptorRef);
KIT_EXTERN CFRunLoopSourceRef CFFileDescriptorCreateRunLoopSource(CFAllocatorRef, CFFileDescriptorRef, long);
