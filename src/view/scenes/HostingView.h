#pragma once

#include <memory>

#include "kit/controls/containers/Pane.h"
#include "view/tree/MountedTree.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// A control that shows a view, with a tree and an environment of its own. It keeps the view it was made with, and has
/// that view's size, whatever becomes of it. What stands in it is part of the window that the control stands in.
class HostingView final : public kit::Pane {
 public:
  explicit HostingView(View rootView) : rootView_(std::move(rootView)) {}

  /// Null until the control stands somewhere.
  MountedTree* tree() const { return tree_.get(); }

  std::unique_ptr<kit::Peer> makePeer(kit::Host& host, kit::Peer& parent) override;
  void metricsChanged() override;
  void showingChanged(bool shown) override;
  std::vector<kit::Control*> hostedControls() const override;

 protected:
  kit::Measurement sizeThatFits(kit::Proposal proposal) const override;
  void attached() override;
  void placed() override;

 private:
  void settled();

  View rootView_;
  kit::Host* host_ = nullptr;
  std::unique_ptr<MountedTree> tree_;
  bool settledBefore_ = false;
  bool shown_ = false;
};

}  // namespace tarnwell::view
