#pragma once

// What GNUstep lacks of the names that the host uses. GNUstep has the older ones of most.

#include_next <AppKit/AppKit.h>

#include <cstdlib>

// Its headers take words of the language that they were written for.
#undef weak
#undef strong

// The environment's, where a test says so; GNUstep asks the list of users.
inline NSString* homeDirectory() { return [NSString stringWithUTF8String:std::getenv("HOME")]; }
#define NSHomeDirectory homeDirectory

// Its run loop knows modes, and no set of them.
#define NSRunLoopCommonModes NSDefaultRunLoopMode

constexpr NSBitmapImageFileType NSBitmapImageFileTypePNG = NSPNGFileType;
constexpr NSBezelStyle NSBezelStyleHelpButton = NSHelpButtonBezelStyle;
constexpr NSBezelStyle NSBezelStylePush = NSRoundedBezelStyle;
constexpr NSButtonType NSButtonTypeMomentaryPushIn = NSMomentaryPushInButton;
constexpr NSButtonType NSButtonTypeSwitch = NSSwitchButton;
constexpr NSEventType NSEventTypeKeyDown = NSKeyDown;
constexpr NSEventType NSEventTypeLeftMouseDown = NSLeftMouseDown;
constexpr NSEventType NSEventTypeLeftMouseDragged = NSLeftMouseDragged;
constexpr NSEventType NSEventTypeLeftMouseUp = NSLeftMouseUp;
constexpr NSEventType NSEventTypeRightMouseUp = NSRightMouseUp;
constexpr NSUInteger NSEventMaskAny = NSAnyEventMask;
constexpr NSUInteger NSEventModifierFlagCommand = NSCommandKeyMask;
constexpr int NSEventMaskLeftMouseUp = NSLeftMouseUpMask;
constexpr int NSEventMaskRightMouseUp = NSRightMouseUpMask;
constexpr NSTickMarkPosition NSTickMarkPositionAbove = NSTickMarkAbove;
constexpr NSTickMarkPosition NSTickMarkPositionBelow = NSTickMarkBelow;
constexpr NSInteger NSWindowToolbarStylePreference = 2;

// Flags, of which the platform makes sets.
constexpr NSStringDrawingOptions operator|(NSStringDrawingOptions one, NSStringDrawingOptions other) {
  return static_cast<NSStringDrawingOptions>(static_cast<int>(one) | static_cast<int>(other));
}

using NSFontTextStyle = NSString*;
extern const NSFontTextStyle NSFontTextStyleBody;
extern const NSFontTextStyle NSFontTextStyleSubheadline;
extern const NSFontTextStyle NSFontTextStyleCaption1;
extern const NSFontTextStyle NSFontTextStyleHeadline;
extern const NSFontTextStyle NSFontTextStyleTitle2;

struct NSOperatingSystemVersion {
  NSInteger majorVersion, minorVersion, patchVersion;
};

@protocol NSMenuItemValidation
@end
@protocol NSToolbarDelegate
@end

@interface NSAppleEventDescriptor (Tarnwell)
- (unsigned)eventID;
- (unsigned)enumCodeValue;
- (NSAppleEventDescriptor*)paramDescriptorForKeyword:(unsigned)keyword;
@end
/// No event has started a program here.
@interface NSAppleEventManager (Tarnwell)
+ (NSAppleEventManager*)sharedAppleEventManager;
- (NSAppleEventDescriptor*)currentAppleEvent;
@end
@interface NSApplication (Tarnwell)
- (void)setAppearance:(NSAppearance*)appearance;
- (void)setHelpMenu:(NSMenu*)menu;
@end
@interface NSButton (Tarnwell)
- (void)setHasDestructiveAction:(BOOL)destroys;
@end
@interface NSColor (Tarnwell)
+ (NSColor*)labelColor;
+ (NSColor*)quaternarySystemFillColor;
+ (NSColor*)secondaryLabelColor;
+ (NSColor*)separatorColor;
@end
@interface NSFont (Tarnwell)
+ (NSFont*)monospacedSystemFontOfSize:(CGFloat)size weight:(CGFloat)weight;
+ (NSFont*)preferredFontForTextStyle:(NSFontTextStyle)style options:(NSDictionary*)options;
@end
@interface NSImage (Tarnwell)
/// The same dot for every symbol.
+ (NSImage*)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description;
- (void)setTemplate:(BOOL)isTemplate;
@end
@interface NSImageView (Tarnwell)
- (void)setContentTintColor:(NSColor*)color;
@end
@interface NSMenu (Tarnwell)
- (void)removeAllItems;
@end
@interface NSProcessInfo (Tarnwell)
- (NSOperatingSystemVersion)operatingSystemVersion;
@end
/// There is no status bar, and so no item.
@interface NSStatusItem (Tarnwell)
- (NSStatusBarButton*)button;
@end
@interface NSTextAttachment (Tarnwell)
- (NSImage*)image;
- (void)setImage:(NSImage*)image;
@end
@interface NSTextField (Tarnwell)
+ (instancetype)wrappingLabelWithString:(NSString*)text;
@end
@interface NSTextView (Tarnwell)
- (void)setAutomaticDataDetectionEnabled:(BOOL)detects;
- (void)setAutomaticLinkDetectionEnabled:(BOOL)detects;
@end
@interface NSView (Tarnwell)
- (NSRect)alignmentRectForFrame:(NSRect)frame;
- (CGFloat)firstBaselineOffsetFromTop;
- (NSRect)frameForAlignmentRect:(NSRect)rect;
/// Negative where the view does not say.
- (NSSize)intrinsicContentSize;
@end
@interface NSWindow (Tarnwell)
- (void)setAccessibilityHelp:(NSString*)help;
- (void)setIdentifier:(NSString*)identifier;
- (void)setToolbarStyle:(NSInteger)style;
@end

#include <AppKit/Accessibility.h>
