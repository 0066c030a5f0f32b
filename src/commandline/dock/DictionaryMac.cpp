#include <CoreFoundation/CoreFoundation.h>

#include <cstdint>

#include "commandline/dock/Dictionary.h"
#include "commandline/dock/Element.h"

namespace tarnwell::commandline {
namespace {

using Reference = std::shared_ptr<const void>;

/// Takes over what a function has made, where it has.
Reference owned(CFTypeRef made) {
  return made == nullptr ? nullptr : Reference(made, [](CFTypeRef object) { ::CFRelease(object); });
}

bool isA(CFTypeID type, CFTypeRef object) { return object != nullptr && ::CFGetTypeID(object) == type; }

CFStringRef asString(CFTypeRef object) { return static_cast<CFStringRef>(object); }

Reference stringFrom(const std::string& text) {
  return owned(::CFStringCreateWithCString(nullptr, text.c_str(), kCFStringEncodingUTF8));
}

std::string textOf(CFStringRef string) {
  const CFRange all = {.location = 0, .length = ::CFStringGetLength(string)};
  CFIndex size = 0;
  ::CFStringGetBytes(string, all, kCFStringEncodingUTF8, 0, 0, nullptr, 0, &size);
  std::string text(static_cast<std::size_t>(size), '\0');
  auto* bytes = reinterpret_cast<std::uint8_t*>(text.data());
  ::CFStringGetBytes(string, all, kCFStringEncodingUTF8, 0, 0, bytes, size, nullptr);
  return text;
}

std::string elementOfObject(CFTypeRef object) {
  const auto list = owned(::CFPropertyListCreateData(nullptr, object, kCFPropertyListXMLFormat_v1_0, 0, nullptr));
  const auto* data = static_cast<CFDataRef>(list.get());
  return data == nullptr ? std::string()
                         : elementIn({reinterpret_cast<const char*>(::CFDataGetBytePtr(data)),
                                      static_cast<std::size_t>(::CFDataGetLength(data))});
}

core::StoredValue otherOf(CFTypeRef object, const char* type, const std::string& text = {}) {
  return core::OtherValue{.type = type, .text = text, .element = elementOfObject(object)};
}

core::StoredValue numberOf(CFNumberRef number) {
  if (::CFNumberIsFloatType(number) != 0) {
    double real = 0;
    ::CFNumberGetValue(number, kCFNumberDoubleType, &real);
    return real;
  }
  std::int64_t integer = 0;
  ::CFNumberGetValue(number, kCFNumberSInt64Type, &integer);
  return otherOf(number, "integer", std::to_string(integer));
}

core::StoredValue valueOf(CFTypeRef object) {
  if (object == nullptr) {
    return core::Absent();
  }
  if (isA(::CFBooleanGetTypeID(), object)) {
    return ::CFBooleanGetValue(static_cast<CFBooleanRef>(object)) != 0;
  }
  if (isA(::CFNumberGetTypeID(), object)) {
    return numberOf(static_cast<CFNumberRef>(object));
  }
  if (isA(::CFStringGetTypeID(), object)) {
    return textOf(asString(object));
  }
  if (isA(::CFArrayGetTypeID(), object)) {
    return otherOf(object, "array");
  }
  if (isA(::CFDictionaryGetTypeID(), object)) {
    return otherOf(object, "dictionary");
  }
  return otherOf(object, isA(::CFDateGetTypeID(), object) ? "date" : "data");
}

}  // namespace

std::optional<Dictionary> Dictionary::read(std::string_view xml) {
  const auto bytes = owned(
      ::CFDataCreate(nullptr, reinterpret_cast<const std::uint8_t*>(xml.data()), static_cast<CFIndex>(xml.size())));
  auto list = owned(::CFPropertyListCreateWithData(nullptr, static_cast<CFDataRef>(bytes.get()),
                                                   kCFPropertyListImmutable, nullptr, nullptr));
  if (!isA(::CFDictionaryGetTypeID(), list.get())) {
    return std::nullopt;
  }
  return Dictionary(std::move(list));
}

core::StoredValue Dictionary::value(const std::string& key) const {
  return valueOf(::CFDictionaryGetValue(static_cast<CFDictionaryRef>(content_.get()), stringFrom(key).get()));
}

}  // namespace tarnwell::commandline
