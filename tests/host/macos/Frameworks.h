#pragma once

#import <AppKit/AppKit.h>

/// What a user's hand meets, and GNUstep and macOS have each in its own way. A source for each of the two.
namespace tarnwell::host_macos::frameworks {

/// Before anything of the platform's is used: what the windows of this process are to be seen on.
void openDisplay();
/// Before the launch ends: the windows may have the keyboard, which a program without a bundle has to ask for.
void askForKeyboard();

/// The entry of the status bar that was made last and is there still; nil without one.
NSStatusItem* statusItem();

/// On what stands for a tab in the toolbar of the window.
void clickTab(NSWindow* window, NSUInteger index);

/// As an assistive client; closes the menu again with nothing chosen.
void openAndClose(NSPopUpButton* button);

/// Where a slider has what is to be seen at that part of its track from the left, which is 0.
double placeOnTrack(double seen, bool isUpsideDown);

}  // namespace tarnwell::host_macos::frameworks
