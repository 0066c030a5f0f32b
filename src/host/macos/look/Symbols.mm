#include "host/macos/look/Symbols.h"

#include "host/macos/look/Conversions.h"
#include "kit/controls/text/SymbolView.h"

namespace tarnwell::host_macos {

NSImage* imageOf(const std::string& symbol, NSString* description) {
  if (symbol == kit::SymbolView::applicationIcon) {
    return [NSApp applicationIconImage];
  }
  return [NSImage imageWithSystemSymbolName:toNSString(symbol) accessibilityDescription:description];
}

}  // namespace tarnwell::host_macos
