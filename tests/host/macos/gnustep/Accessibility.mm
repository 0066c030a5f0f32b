#import <AppKit/AppKit.h>

#include <objc/runtime.h>

#include <map>
#include <optional>
#include <string>

// GNUstep tells assistive clients nothing. What the platform's views tell of themselves, and do for such a client, as
// far as the host leaves that to them.

namespace {

struct Told {
  std::string label = {};
  std::string help = {};
  std::optional<bool> isElement = {};
  bool isEnabled = true;
};

std::map<NSView*, Told>& toldByViews() {
  static std::map<NSView*, Told> all;
  return all;
}

Told& told(NSView* view) { return toldByViews()[view]; }

IMP deallocView = nullptr;

// Another view may stand at the same address.
void forgetView(NSView* view, SEL message) {
  toldByViews().erase(view);
  reinterpret_cast<void (*)(NSView*, SEL)>(deallocView)(view, message);
}

std::string textOf(NSString* text) { return text != nil ? [text UTF8String] : ""; }

NSString* orNil(const std::string& text) { return text.empty() ? nil : [NSString stringWithUTF8String:text.c_str()]; }

NSNumber* number(double value) { return [NSNumber numberWithDouble:value]; }

}  // namespace

@implementation NSCell (TarnwellAccessibility)
- (BOOL)isAccessibilityElement {
  return NO;
}
@end

// What has a role is an element.
@implementation NSView (TarnwellAccessibility)
+ (void)load {
  deallocView = method_setImplementation(class_getInstanceMethod([NSView class], @selector(dealloc)),
                                         reinterpret_cast<IMP>(&forgetView));
}
- (NSString*)accessibilityRole {
  return nil;
}
- (NSString*)accessibilityTitle {
  return nil;
}
- (void)setAccessibilityTitle:(NSString*)title {
  (void)title;
}
- (id)accessibilityValue {
  return nil;
}
- (id)accessibilityMinValue {
  return nil;
}
- (id)accessibilityMaxValue {
  return nil;
}
- (NSString*)accessibilityHelp {
  return orNil(told(self).help);
}
- (void)setAccessibilityHelp:(NSString*)help {
  told(self).help = textOf(help);
}
- (NSString*)accessibilityLabel {
  return orNil(told(self).label);
}
- (void)setAccessibilityLabel:(NSString*)label {
  told(self).label = textOf(label);
}
- (BOOL)isAccessibilityElement {
  return told(self).isElement.value_or([self accessibilityRole] != nil);
}
- (void)setAccessibilityElement:(BOOL)isElement {
  told(self).isElement = isElement == YES;
}
- (BOOL)isAccessibilityEnabled {
  return told(self).isEnabled;
}
- (void)setAccessibilityEnabled:(BOOL)isEnabled {
  told(self).isEnabled = isEnabled == YES;
}
- (void)setAccessibilityTitleUIElement:(id)view {
  (void)view;
}
- (BOOL)isAccessibilitySelectorAllowed:(SEL)request {
  return [self respondsToSelector:request];
}
@end

@implementation NSBox (TarnwellAccessibility)
- (NSString*)accessibilityRole {
  return NSAccessibilityGroupRole;
}
@end

@implementation NSControl (TarnwellAccessibility)
- (BOOL)isAccessibilityEnabled {
  return [self isEnabled];
}
@end

@implementation NSButton (TarnwellAccessibility)
- (NSString*)accessibilityRole {
  return [static_cast<NSButtonCell*>([self cell]) showsStateBy] != 0 ? NSAccessibilityCheckBoxRole
                                                                     : NSAccessibilityButtonRole;
}
- (NSString*)accessibilityTitle {
  return [self title];
}
- (id)accessibilityValue {
  return [NSNumber numberWithBool:[self state] == NSControlStateValueOn];
}
- (BOOL)accessibilityPerformPress {
  [self performClick:nil];
  return YES;
}
@end

@implementation NSPopUpButton (TarnwellAccessibility)
- (NSString*)accessibilityRole {
  return NSAccessibilityPopUpButtonRole;
}
- (NSString*)accessibilityTitle {
  return nil;
}
- (id)accessibilityValue {
  return [self titleOfSelectedItem];
}
- (BOOL)accessibilityPerformShowMenu {
  [self performClick:nil];
  return YES;
}
@end

// It speaks of increments by itself, and has a name of its own.
@implementation NSSwitch (TarnwellAccessibility)
- (NSString*)accessibilityRole {
  return NSAccessibilityCheckBoxRole;
}
- (NSString*)accessibilityLabel {
  return [super accessibilityLabel];
}
- (void)setAccessibilityLabel:(NSString*)label {
  [super setAccessibilityLabel:label];
}
- (id)accessibilityValue {
  return [NSNumber numberWithBool:[self state] == NSControlStateValueOn];
}
- (BOOL)accessibilityPerformPress {
  if ([self isEnabled]) {
    [self performClick:nil];
  }
  return YES;
}
- (BOOL)isAccessibilitySelectorAllowed:(SEL)request {
  return sel_isEqual(request, @selector(accessibilityPerformPress));
}
@end

@implementation NSSlider (TarnwellAccessibility)
- (NSString*)accessibilityRole {
  return NSAccessibilitySliderRole;
}
- (id)accessibilityValue {
  return number([self doubleValue]);
}
- (id)accessibilityMinValue {
  return number([self minValue]);
}
- (id)accessibilityMaxValue {
  return number([self maxValue]);
}
@end

@implementation NSStepper (TarnwellAccessibility)
- (NSString*)accessibilityRole {
  return NSAccessibilityIncrementorRole;
}
- (id)accessibilityValue {
  return number([self doubleValue]);
}
- (id)accessibilityMinValue {
  return number([self minValue]);
}
- (id)accessibilityMaxValue {
  return number([self maxValue]);
}
@end

@implementation NSProgressIndicator (TarnwellAccessibility)
- (NSString*)accessibilityRole {
  return NSAccessibilityProgressIndicatorRole;
}
- (id)accessibilityValue {
  return [self isIndeterminate] ? nil : number([self doubleValue]);
}
- (id)accessibilityMinValue {
  return number([self minValue]);
}
- (id)accessibilityMaxValue {
  return number([self maxValue]);
}
@end

@implementation NSImageView (TarnwellAccessibility)
- (NSString*)accessibilityRole {
  return NSAccessibilityImageRole;
}
@end

@implementation NSScrollView (TarnwellAccessibility)
- (NSString*)accessibilityRole {
  return NSAccessibilityScrollAreaRole;
}
@end

@implementation NSTextField (TarnwellAccessibility)
- (NSString*)accessibilityRole {
  return [self isEditable] ? NSAccessibilityTextFieldRole : NSAccessibilityStaticTextRole;
}
- (id)accessibilityValue {
  NSText* editor = [self currentEditor];
  return editor != nil ? [editor string] : [self stringValue];
}
@end

@implementation NSTextView (TarnwellAccessibility)
- (NSString*)accessibilityRole {
  return NSAccessibilityTextAreaRole;
}
- (id)accessibilityValue {
  return [self string];
}
@end
