#include "host/macos/look/Conversions.h"

namespace tarnwell::host_macos {
namespace {

// The keys that a press may be held with and that mean something here.
constexpr unsigned meantModifiers = kit::commandFlag | kit::optionFlag | kit::controlFlag | kit::shiftFlag;

}  // namespace

NSString* toNSString(std::string_view text) {
  // The bytes are only read, though not every declaration of the message says so.
  NSString* converted = [[[NSString alloc] initWithBytes:const_cast<char*>(text.data())
                                                  length:text.size()
                                                encoding:NSUTF8StringEncoding] autorelease];
  return converted != nil ? converted : @"";
}

std::string toString(NSString* text) { return text != nil ? std::string([text UTF8String]) : std::string(); }

NSRect toNSRect(const kit::Rect& rect) { return NSMakeRect(rect.x, rect.y, rect.width, rect.height); }

kit::Rect toRect(NSRect rect) {
  return {.x = rect.origin.x, .y = rect.origin.y, .width = rect.size.width, .height = rect.size.height};
}

kit::KeyEvent toKeyEvent(NSEvent* event) {
  return {.charactersIgnoringModifiers = toString([event charactersIgnoringModifiers]),
          .modifierFlags = static_cast<unsigned>([event modifierFlags]) & meantModifiers};
}

}  // namespace tarnwell::host_macos
