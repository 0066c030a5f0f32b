// What the reader of property lists takes from CoreFoundation, whose objects are Foundation's.
#include <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

#include <array>
#include <cstring>
#include <string_view>

namespace {

enum Kind : CFTypeID { none, array, boolean, data, date, dictionary, number, string };

id objectOf(CFTypeRef reference) { return static_cast<id>(const_cast<void*>(reference)); }

// Of numbers, those two alone are made once.
bool isBoolean(id object) { return object == [NSNumber numberWithBool:YES] || object == [NSNumber numberWithBool:NO]; }

}  // namespace

void CFRelease(CFTypeRef object) { [objectOf(object) release]; }

CFTypeID CFArrayGetTypeID() { return array; }
CFTypeID CFBooleanGetTypeID() { return boolean; }
CFTypeID CFDateGetTypeID() { return date; }
CFTypeID CFDictionaryGetTypeID() { return dictionary; }
CFTypeID CFNumberGetTypeID() { return number; }
CFTypeID CFStringGetTypeID() { return string; }

CFTypeID CFGetTypeID(CFTypeRef reference) {
  const id object = objectOf(reference);
  if (isBoolean(object)) {
    return boolean;
  }
  const std::array<std::pair<Class, Kind>, 6> kinds = {{{[NSArray class], array},
                                                        {[NSData class], data},
                                                        {[NSDate class], date},
                                                        {[NSDictionary class], dictionary},
                                                        {[NSNumber class], number},
                                                        {[NSString class], string}}};
  for (const auto& [type, kind] : kinds) {
    if ([object isKindOfClass:type]) {
      return kind;
    }
  }
  return none;
}

Boolean CFBooleanGetValue(CFBooleanRef value) { return [objectOf(value) boolValue]; }

CFDataRef CFDataCreate(CFAllocatorRef, const uint8_t* bytes, CFIndex length) {
  return reinterpret_cast<CFDataRef>([[NSData alloc] initWithBytes:bytes length:static_cast<NSUInteger>(length)]);
}

const uint8_t* CFDataGetBytePtr(CFDataRef data) { return static_cast<const uint8_t*>([objectOf(data) bytes]); }

CFIndex CFDataGetLength(CFDataRef data) { return static_cast<CFIndex>([objectOf(data) length]); }

const void* CFDictionaryGetValue(CFDictionaryRef values, const void* key) {
  return [objectOf(values) objectForKey:objectOf(key)];
}

Boolean CFNumberIsFloatType(CFNumberRef value) {
  const std::string_view type = [static_cast<NSNumber*>(objectOf(value)) objCType];
  return type == @encode(float) || type == @encode(double);
}

Boolean CFNumberGetValue(CFNumberRef value, CFNumberType type, void* to) {
  const id object = objectOf(value);
  if (type == kCFNumberDoubleType) {
    const double real = [object doubleValue];
    std::memcpy(to, &real, sizeof real);
  } else {
    const long long integer = [object longLongValue];
    std::memcpy(to, &integer, sizeof integer);
  }
  return 1;
}

CFStringRef CFStringCreateWithCString(CFAllocatorRef, const char* text, CFStringEncoding) {
  return reinterpret_cast<CFStringRef>([[NSString alloc] initWithUTF8String:text]);
}

CFIndex CFStringGetLength(CFStringRef text) { return static_cast<CFIndex>([objectOf(text) length]); }

// What is made besides goes at once, as it does with the platform's.
CFIndex CFStringGetBytes(CFStringRef text, CFRange range, CFStringEncoding, uint8_t, Boolean, uint8_t* bytes,
                         CFIndex size, CFIndex* used) {
  NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
  NSData* found = [objectOf(text) dataUsingEncoding:NSUTF8StringEncoding];
  if (bytes != nullptr) {
    [found getBytes:bytes length:static_cast<NSUInteger>(size)];
  }
  if (used != nullptr) {
    *used = static_cast<CFIndex>([found length]);
  }
  [pool release];
  return range.length;
}

CFTypeRef CFPropertyListCreateWithData(CFAllocatorRef, CFDataRef data, CFOptionFlags, CFPropertyListFormat*,
                                       CFErrorRef*) {
  NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
  const id made = [[NSPropertyListSerialization propertyListFromData:objectOf(data)
                                                    mutabilityOption:NSPropertyListImmutable
                                                              format:nullptr
                                                    errorDescription:nullptr] retain];
  [pool release];
  return made;
}

CFDataRef CFPropertyListCreateData(CFAllocatorRef, CFTypeRef list, CFPropertyListFormat, CFOptionFlags, CFErrorRef*) {
  NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
  const id made = [[NSPropertyListSerialization dataFromPropertyList:objectOf(list)
                                                              format:NSPropertyListXMLFormat_v1_0
                                                    errorDescription:nullptr] retain];
  [pool release];
  return reinterpret_cast<CFDataRef>(made);
}
