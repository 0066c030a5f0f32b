// What the description of the frameworks lacks: base types, and names that do not follow from others.
#include <Block.h>
#include <CoreFoundation/CoreFoundation.h>
#include <TargetConditionals.h>
#include <objc/NSObject.h>
#include <stdint.h>

typedef double CGFloat;
typedef struct CGPoint {
  CGFloat x, y;
} CGPoint;
typedef struct CGSize {
  CGFloat width, height;
} CGSize;
typedef struct CGRect {
  CGPoint origin;
  CGSize size;
} CGRect;
typedef struct CGAffineTransform {
  CGFloat a, b, c, d, tx, ty;
} CGAffineTransform;
typedef CGPoint NSPoint;
typedef CGSize NSSize;
typedef CGRect NSRect;
typedef double NSTimeInterval;
typedef unsigned short unichar;
typedef struct _NSRange {
  NSUInteger location, length;
} NSRange;
typedef struct NSEdgeInsets {
  CGFloat top, left, bottom, right;
} NSEdgeInsets;
typedef struct NSOperatingSystemVersion {
  NSInteger majorVersion, minorVersion, patchVersion;
} NSOperatingSystemVersion;
typedef struct NSFastEnumerationState {
  unsigned long state;
  id __unsafe_unretained* itemsPtr;
  unsigned long* mutationsPtr;
  unsigned long extra[5];
} NSFastEnumerationState;

static inline NSPoint NSMakePoint(CGFloat x, CGFloat y) { return (NSPoint){x, y}; }
static inline NSSize NSMakeSize(CGFloat width, CGFloat height) { return (NSSize){width, height}; }
static inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  return (NSRect){{x, y}, {width, height}};
}
static inline NSRange NSMakeRange(NSUInteger location, NSUInteger length) { return (NSRange){location, length}; }
static inline CGFloat NSMaxX(NSRect rect) { return rect.origin.x + rect.size.width; }
static inline CGFloat NSMaxY(NSRect rect) { return rect.origin.y + rect.size.height; }

@class NSApplication, NSString;
KIT_EXTERN NSApplication* NSApp;
KIT_EXTERN void NSLog(NSString*, ...);
KIT_EXTERN NSString* NSHomeDirectory(void);
KIT_EXTERN NSString* NSStringFromSelector(SEL);
KIT_EXTERN SEL NSSelectorFromString(NSString*);
KIT_EXTERN BOOL NSIntersectsRect(NSRect, NSRect);
KIT_EXTERN BOOL NSPointInRect(NSPoint, NSRect);
KIT_EXTERN NSRect NSInsetRect(NSRect, CGFloat, CGFloat);
KIT_EXTERN void NSRectFill(NSRect);
KIT_EXTERN void NSBeep(void);

typedef NSInteger NSTextAlignment;
static const NSTextAlignment NSTextAlignmentLeft = 0;
#ifdef __x86_64__
static const NSTextAlignment NSTextAlignmentRight = 1;
static const NSTextAlignment NSTextAlignmentCenter = 2;
#else
static const NSTextAlignment NSTextAlignmentCenter = 1;
static const NSTextAlignment NSTextAlignmentRight = 2;
#endif
static const NSTextAlignment NSTextAlignmentNatural = 4;

// How another view stands to it, in front or behind.
static const NSInteger NSWindowAbove = 1, NSWindowBelow = -1;

#define NSBackingStoreBuffered NSBackingStoreTypeBuffered
#define NSWindowBelow NSWindowOrderingModeBelow
#define NSWindowTitleVisible NSWindowTitleVisibilityVisible
#define NSNumberFormatterDecimalStyle NSNumberFormatterStyleDecimal
#define NSNumberFormatterRoundHalfEven NSNumberFormatterRoundingModeHalfEven
#define NSLineBreakByWordWrapping NSLineBreakModeWordWrapping
#define NSBoxSeparator NSBoxTypeSeparator
#define NSBoxCustom NSBoxTypeCustom
#define NSStringDrawingUsesLineFragmentOrigin NSStringDrawingOptionUsesLineFragmentOrigin
#define NSStringDrawingUsesFontLeading NSStringDrawingOptionUsesFontLeading
#define NSImageScaleProportionallyDown NSImageScalingImageScaleProportionallyDown
#define NSImageScaleProportionallyUpOrDown NSImageScalingImageScaleProportionallyUpOrDown
#define NSImageLeading NSCellImagePositionImageLeading
#define NSImageTrailing NSCellImagePositionImageTrailing
#define NSNoTitle NSTitlePositionNoTitle
