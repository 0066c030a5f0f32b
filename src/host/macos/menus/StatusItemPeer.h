#pragma once

#import <AppKit/AppKit.h>

#include <optional>

#include "host/macos/look/ActionTarget.h"
#include "host/macos/menus/MenuMirror.h"
#include "kit/application/StatusItem.h"

namespace tarnwell::host_macos {

/// An icon in the menu bar. The platform opens its menu by itself.
class StatusItemPeer final : public kit::StatusItemPeer {
 public:
  /// The item is borrowed; it owns this.
  explicit StatusItemPeer(kit::StatusItem& item);
  ~StatusItemPeer() override;

  void popUp(kit::Menu& menu) override;
  void menuChanged() override;

 private:
  void showImage();
  void click();
  NSStatusBarButton* button() const { return [shown_.get() button]; }

  kit::StatusItem& item_;
  Retained<NSStatusItem*> shown_;
  std::optional<MenuMirror> menu_;
  ActionTarget clicked_;
  kit::Subscription imageChanges_;
};

}  // namespace tarnwell::host_macos
