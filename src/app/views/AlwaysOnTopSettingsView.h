#pragma once

#include <memory>

#include "view/scenes/HostingView.h"
#include "view/tree/Representable.h"

namespace tarnwell::app {

/// Hosts any view and, one turn later, puts the window that it then stands in back to the normal level. Despite its
/// name it lifts nothing; no screen shows one.
struct AlwaysOnTopSettingsView {
  /// It has nothing to coordinate.
  struct Coordinator {};
  using NSView = view::HostingView;
  using Context = view::RepresentableContext<Coordinator>;

  view::View content;

  std::shared_ptr<Coordinator> makeCoordinator() const { return std::make_shared<Coordinator>(); }
  std::unique_ptr<view::HostingView> makeNSView(Context& context) const;
  /// Nothing: the hosting view keeps the content it was made with.
  void updateNSView(view::HostingView& hostingView, Context& context) const;
};

}  // namespace tarnwell::app
