#include "host/macos/look/TextLook.h"

namespace tarnwell::host_macos {
namespace {

NSString* textStyleOf(kit::FontRole role) {
  switch (role) {
    case kit::FontRole::body:
      return NSFontTextStyleBody;
    case kit::FontRole::subheadline:
      return NSFontTextStyleSubheadline;
    case kit::FontRole::caption:
      return NSFontTextStyleCaption1;
    case kit::FontRole::headline:
      return NSFontTextStyleHeadline;
    case kit::FontRole::title:
      return NSFontTextStyleTitle2;
  }
  return NSFontTextStyleBody;
}

}  // namespace

NSFont* fontOf(kit::FontRole role) {
  NSFont* font = [NSFont preferredFontForTextStyle:textStyleOf(role) options:[NSDictionary dictionary]];
  // The system's second title is not bold.
  return role == kit::FontRole::title ? [NSFont boldSystemFontOfSize:[font pointSize]] : font;
}

NSColor* colorOf(kit::ColorRole role) {
  return role == kit::ColorRole::primary ? [NSColor labelColor] : [NSColor secondaryLabelColor];
}

double baselineBesideText(double height) { return (height + [fontOf(kit::FontRole::body) capHeight]) / 2; }

}  // namespace tarnwell::host_macos
