#import <AppKit/AppKit.h>

const NSFontTextStyle NSFontTextStyleBody = @"body";
const NSFontTextStyle NSFontTextStyleSubheadline = @"subheadline";
const NSFontTextStyle NSFontTextStyleCaption1 = @"caption";
const NSFontTextStyle NSFontTextStyleHeadline = @"headline";
const NSFontTextStyle NSFontTextStyleTitle2 = @"title";

namespace {

constexpr CGFloat noSize = -1;
constexpr NSSize switchSize = {38, 22};
constexpr CGFloat sliderHeight = 22;
constexpr CGFloat progressHeight = 20;

CGFloat sizeOf(NSFontTextStyle style) {
  if ([style isEqualToString:NSFontTextStyleTitle2]) {
    return 17;
  }
  if ([style isEqualToString:NSFontTextStyleCaption1]) {
    return 10;
  }
  return [style isEqualToString:NSFontTextStyleSubheadline] ? 11 : 13;
}

}  // namespace

/// GNUstep draws a text in lines and yet measures one.
@interface TWWrappingCell : NSTextFieldCell
@end
@implementation TWWrappingCell
- (NSSize)cellSizeForBounds:(NSRect)bounds {
  return [[self attributedStringValue] boundingRectWithSize:bounds.size options:NSStringDrawingUsesLineFragmentOrigin]
      .size;
}
@end

@implementation NSAppleEventDescriptor (Tarnwell)
- (unsigned)eventID {
  return 0;
}
- (unsigned)enumCodeValue {
  return 0;
}
- (NSAppleEventDescriptor*)paramDescriptorForKeyword:(unsigned)keyword {
  (void)keyword;
  return nil;
}
@end

@implementation NSAppleEventManager (Tarnwell)
+ (NSAppleEventManager*)sharedAppleEventManager {
  return nil;
}
- (NSAppleEventDescriptor*)currentAppleEvent {
  return nil;
}
@end

// It puts nothing into menus: GNUstep does not expect that their entries are made anew.
@implementation NSApplication (Tarnwell)
- (void)setAppearance:(NSAppearance*)appearance {
  (void)appearance;
}
- (void)setHelpMenu:(NSMenu*)menu {
  (void)menu;
}
- (void)setServicesMenu:(NSMenu*)menu {
  (void)menu;
}
- (void)setWindowsMenu:(NSMenu*)menu {
  (void)menu;
}
@end

@implementation NSButton (Tarnwell)
- (void)setHasDestructiveAction:(BOOL)destroys {
  (void)destroys;
}
@end

@implementation NSColor (Tarnwell)
+ (NSColor*)labelColor {
  return [NSColor controlTextColor];
}
+ (NSColor*)quaternarySystemFillColor {
  return [NSColor colorWithCalibratedWhite:0 alpha:0.05];
}
+ (NSColor*)secondaryLabelColor {
  return [NSColor darkGrayColor];
}
+ (NSColor*)separatorColor {
  return [NSColor grayColor];
}
@end

@implementation NSControl (Tarnwell)
- (NSSize)intrinsicContentSize {
  return [[self cell] cellSize];
}
@end

// Without the server of notifications, which it would start.
@implementation NSDistributedNotificationCenter (Tarnwell)
- (void)_connect {
}
@end

// What runs the tests tells no more of an exception of the platform's than that there was one.
@implementation NSException (Tarnwell)
- (void)raise {
  NSLog(@"%@", self);
  @throw self;
}
@end

@implementation NSFont (Tarnwell)
+ (NSFont*)monospacedSystemFontOfSize:(CGFloat)size weight:(CGFloat)weight {
  (void)weight;
  return [NSFont userFixedPitchFontOfSize:size];
}
+ (NSFont*)preferredFontForTextStyle:(NSFontTextStyle)style options:(NSDictionary*)options {
  (void)options;
  const CGFloat size = sizeOf(style);
  return [style isEqualToString:NSFontTextStyleHeadline] ? [NSFont boldSystemFontOfSize:size]
                                                         : [NSFont systemFontOfSize:size];
}
@end

@implementation NSImage (Tarnwell)
+ (NSImage*)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(NSString*)description {
  (void)name;
  (void)description;
  NSImage* image = [[[NSImage alloc] initWithSize:NSMakeSize(14, 14)] autorelease];
  [image lockFocus];
  [[NSColor darkGrayColor] set];
  [[NSBezierPath bezierPathWithOvalInRect:NSMakeRect(1, 1, 12, 12)] fill];
  [image unlockFocus];
  return image;
}
- (void)setTemplate:(BOOL)isTemplate {
  (void)isTemplate;
}
@end

@implementation NSImageView (Tarnwell)
- (void)setContentTintColor:(NSColor*)color {
  (void)color;
}
@end

@implementation NSMenu (Tarnwell)
- (void)removeAllItems {
  while ([self numberOfItems] > 0) {
    [self removeItemAtIndex:0];
  }
}
@end

// GNUstep keeps no more of it than its characters, as the title.
@implementation NSMenuItem (Tarnwell)
- (NSAttributedString*)attributedTitle {
  return [self representedObject];
}
- (void)setAttributedTitle:(NSAttributedString*)title {
  [self setRepresentedObject:title];
}
@end

// Without the server of all programs, which it would start.
@implementation NSPasteboard (Tarnwell)
+ (id)_pbs {
  return nil;
}
@end

@implementation NSProcessInfo (Tarnwell)
- (NSOperatingSystemVersion)operatingSystemVersion {
  return {14, 0, 0};
}
@end

@implementation NSProgressIndicator (Tarnwell)
- (NSSize)intrinsicContentSize {
  return NSMakeSize(noSize, progressHeight);
}
@end

@implementation NSSlider (Tarnwell)
- (NSSize)intrinsicContentSize {
  return NSMakeSize(noSize, sliderHeight);
}
@end

@implementation NSStatusItem (Tarnwell)
- (NSStatusBarButton*)button {
  return nil;
}
@end

@implementation NSSwitch (Tarnwell)
- (NSSize)intrinsicContentSize {
  return switchSize;
}
- (BOOL)acceptsFirstResponder {
  return [self isEnabled];
}
- (void)performClick:(id)sender {
  (void)sender;
  [self setState:[self state] == NSControlStateValueOn ? NSControlStateValueOff : NSControlStateValueOn];
  [self sendAction:[self action] to:[self target]];
}
- (void)keyDown:(NSEvent*)event {
  if ([[event characters] isEqualToString:@" "]) {
    [self performClick:nil];
  } else {
    [super keyDown:event];
  }
}
@end

@implementation NSTextAttachment (Tarnwell)
- (NSImage*)image {
  return [static_cast<NSCell*>([self attachmentCell]) image];
}
- (void)setImage:(NSImage*)image {
  [self setAttachmentCell:[[[NSTextAttachmentCell alloc] initImageCell:image] autorelease]];
}
@end

@implementation NSTextField (Tarnwell)
+ (instancetype)wrappingLabelWithString:(NSString*)text {
  NSTextField* label = [[[NSTextField alloc] initWithFrame:NSZeroRect] autorelease];
  [label setCell:[[[TWWrappingCell alloc] initTextCell:text] autorelease]];
  [label setEditable:NO];
  [label setBordered:NO];
  [label setDrawsBackground:NO];
  [[label cell] setWraps:YES];
  return label;
}
@end

@implementation NSTextView (Tarnwell)
// What Escape is bound to.
- (void)complete:(id)sender {
  (void)sender;
  [self doCommandBySelector:@selector(cancelOperation:)];
}
- (void)setAutomaticDataDetectionEnabled:(BOOL)detects {
  (void)detects;
}
- (void)setAutomaticLinkDetectionEnabled:(BOOL)detects {
  (void)detects;
}
@end

@implementation NSView (Tarnwell)
- (NSRect)alignmentRectForFrame:(NSRect)frame {
  return frame;
}
- (CGFloat)firstBaselineOffsetFromTop {
  return [self isKindOfClass:[NSControl class]] ? [[static_cast<NSControl*>(self) font] ascender] : 0;
}
- (NSRect)frameForAlignmentRect:(NSRect)rect {
  return rect;
}
- (NSSize)intrinsicContentSize {
  return NSMakeSize(noSize, noSize);
}
@end

@implementation NSWindow (Tarnwell)
- (void)setAccessibilityHelp:(NSString*)help {
  (void)help;
}
- (void)setIdentifier:(NSString*)identifier {
  (void)identifier;
}
- (void)setToolbarStyle:(NSInteger)style {
  (void)style;
}
@end
