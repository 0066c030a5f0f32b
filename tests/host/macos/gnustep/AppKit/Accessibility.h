#pragma once

// What assistive clients ask, of which GNUstep knows nothing.

#include <AppKit/AppKit.h>

@interface NSCell (TarnwellAccessibility)
- (BOOL)isAccessibilityElement;
@end
@interface NSPopUpButton (TarnwellAccessibility)
- (BOOL)accessibilityPerformShowMenu;
@end
@interface NSView (TarnwellAccessibility)
- (NSString*)accessibilityHelp;
- (NSString*)accessibilityLabel;
- (id)accessibilityMaxValue;
- (id)accessibilityMinValue;
- (NSString*)accessibilityRole;
- (NSString*)accessibilityTitle;
- (id)accessibilityValue;
- (BOOL)isAccessibilityElement;
- (BOOL)isAccessibilityEnabled;
- (BOOL)isAccessibilitySelectorAllowed:(SEL)request;
- (void)setAccessibilityElement:(BOOL)isElement;
- (void)setAccessibilityEnabled:(BOOL)isEnabled;
- (void)setAccessibilityHelp:(NSString*)help;
- (void)setAccessibilityLabel:(NSString*)label;
- (void)setAccessibilityTitle:(NSString*)title;
- (void)setAccessibilityTitleUIElement:(id)view;
@end
/// Those that are controls of the host's do these.
@protocol TWAccessible
- (BOOL)accessibilityPerformDecrement;
- (BOOL)accessibilityPerformIncrement;
- (BOOL)accessibilityPerformPress;
- (void)setAccessibilityValue:(id)value;
@end
