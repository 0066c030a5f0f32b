#pragma once

#import <AppKit/AppKit.h>

#include "kit/host/Peer.h"

namespace tarnwell::host_macos {

/// A peer that others stand in.
class Container {
 public:
  Container() = default;
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;
  virtual ~Container() = default;

  /// The view that theirs are put into.
  virtual NSView* content() const = 0;

  /// Every peer of this host that can be a parent is a container.
  static NSView* contentOf(kit::Peer& parent) { return dynamic_cast<Container&>(parent).content(); }
};

}  // namespace tarnwell::host_macos
