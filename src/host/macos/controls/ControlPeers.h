#pragma once

#import <AppKit/AppKit.h>

#include <memory>

#include "kit/host/AnyControl.h"
#include "kit/host/Geometry.h"
#include "kit/host/Peer.h"

namespace tarnwell::host_macos {

// A peer for each kind of control, whose view is put into `parent`.

std::unique_ptr<kit::Peer> makePeer(kit::Box& box, NSView* parent);
std::unique_ptr<kit::Peer> makePeer(kit::Button& button, NSView* parent);
std::unique_ptr<kit::Peer> makePeer(kit::Pane& pane, NSView* parent);
std::unique_ptr<kit::Peer> makePeer(kit::PopUpButton& button, NSView* parent);
std::unique_ptr<kit::Peer> makePeer(kit::ProgressBar& bar, NSView* parent);
std::unique_ptr<kit::Peer> makePeer(kit::RichText& text, NSView* parent);
std::unique_ptr<kit::Peer> makePeer(kit::ScrollArea& area, NSView* parent);
std::unique_ptr<kit::Peer> makePeer(kit::Slider& slider, NSView* parent);
std::unique_ptr<kit::Peer> makePeer(kit::Stepper& stepper, NSView* parent);
std::unique_ptr<kit::Peer> makePeer(kit::SymbolView& symbol, NSView* parent);
std::unique_ptr<kit::Peer> makePeer(kit::TabBar& bar, NSView* parent);
std::unique_ptr<kit::Peer> makePeer(kit::TextField& field, NSView* parent);
std::unique_ptr<kit::Peer> makePeer(kit::TextLabel& label, NSView* parent);
std::unique_ptr<kit::Peer> makePeer(kit::Toggle& toggle, NSView* parent);

/// Where a slider of the platform's with that state draws a tick mark, in the slider's own coordinates.
kit::Rect rectOfTickMark(const kit::Slider& slider, int index);

}  // namespace tarnwell::host_macos
