#include "macos/Portrait.h"

#import <AppKit/AppKit.h>

#include <fstream>

#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/Conversions.h"
#include "host/macos/window/WindowPeer.h"

namespace tarnwell::macos {
namespace {

using host_macos::toRect;
using host_macos::toString;
using host_macos::ViewPeer;

// With its title bar and toolbar.
NSView* wholeOf(const kit::Window& window) {
  return [dynamic_cast<const host_macos::WindowPeer&>(*window.peer()).content() superview];
}

bool writePicture(NSView* view, const std::filesystem::path& file) {
  NSBitmapImageRep* picture = [view bitmapImageRepForCachingDisplayInRect:[view bounds]];
  [view cacheDisplayInRect:[view bounds] toBitmapImageRep:picture];
  NSData* bytes = [picture representationUsingType:NSBitmapImageFileTypePNG properties:[NSDictionary dictionary]];
  return [bytes writeToFile:host_macos::toNSString(file.string()) atomically:YES];
}

std::string lineOf(const kit::Rect& rect) {
  const auto number = [](double value) { return std::to_string(static_cast<int>(value * 100)); };
  return number(rect.x) + " " + number(rect.y) + " " + number(rect.width) + " " + number(rect.height);
}

// The tabs, which have no view of their own.
std::string lineOf(NSToolbar* toolbar) {
  std::string line = "toolbar";
  for (NSUInteger index = 0; index < [[toolbar items] count]; ++index) {
    NSToolbarItem* item = [[toolbar items] objectAtIndex:index];
    const bool isSelected = [[item itemIdentifier] isEqualToString:[toolbar selectedItemIdentifier]];
    line += " \"" + toString([item label]) + (isSelected ? "\" selected" : "\"");
  }
  return line;
}

// Of what is seen of it, from the upper left of the content, beside what the layout has asked for.
std::string lineOf(const kit::Control& control, NSView* content) {
  NSView* view = ViewPeer::viewOf(control);
  if (view == nil) {
    return lineOf([[content window] toolbar]);
  }
  const NSRect seen = [[view superview] convertRect:[view alignmentRectForFrame:[view frame]] toView:content];
  return toString([[view class] description]) + " \"" + control.accessible().name + "\" " + lineOf(toRect(seen)) +
         " asked " + lineOf(control.frame()) + " wants " +
         lineOf({.width = [view intrinsicContentSize].width, .height = [view intrinsicContentSize].height});
}

}  // namespace

bool portray(const kit::Window& window, const std::filesystem::path& folder, const std::string& name) {
  std::ofstream frames(folder / (name + ".txt"));
  frames << "hundredths of a point: x y width height\n";
  NSView* content = dynamic_cast<const host_macos::WindowPeer&>(*window.peer()).content();
  frames << "window " << lineOf(toRect([[content window] frame])) << " content " << lineOf(toRect([content frame]))
         << '\n';
  for (const kit::Control* control : window.controls()) {
    frames << lineOf(*control, content) << '\n';
  }
  return frames.flush() && writePicture(wholeOf(window), folder / (name + ".png"));
}

}  // namespace tarnwell::macos
