#pragma once

#import <AppKit/AppKit.h>

/// What other views stand in: its y axis points down, as in the layout.
@interface TWFlippedView : NSView
@end
