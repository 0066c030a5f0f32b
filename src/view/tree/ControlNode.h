#pragma once

#include <memory>

#include "kit/control/Control.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::view {

/// A leaf with a control, which is made once and updated many times. After the user acted on it, it is brought in line
/// with what the bindings then hold: a switch whose value did not change springs back.
class ControlNode : public MountedNode {
 public:
  using MountedNode::MountedNode;

  kit::Control* control() const override { return control_.get(); }
  void showingChanged(bool shown) override;
  void explain(const AccessibleContext& around) override;

 protected:
  virtual std::unique_ptr<kit::Control> makeControl() = 0;
  /// Compares with the control's own state: that is what the user sees.
  virtual void updateControl() = 0;
  /// What it is called where the environment says nothing.
  virtual std::string ownName() const { return {}; }
  /// An ornament keeps its own name beside the control that the row is named for.
  virtual bool isNamedByRow() const { return true; }

  template <class C>
  C& controlAs() const {
    return static_cast<C&>(*control_);
  }

  /// For the control's action: runs `react` with the live node, then marks it dirty; nothing once it is gone.
  template <class N, class React>
  auto reacting(N* self, React react) {
    return [weak = self->weak_from_this(), react](auto&&... input) {
      if (const auto node = std::static_pointer_cast<N>(weak.lock()); node && node->isMounted()) {
        node->markDirty();
        // What reacts may run a loop of events that replaces the description whose closure it is.
        const View kept = node->view();
        react(*node, input...);
      }
    };
  }

  void apply() final;
  void willUnmount() override;
  void metricsChanged() override;
  kit::Measurement layOut(kit::Proposal proposal) override;
  void placeContent(const kit::Rect& frame) override;

 private:
  void applyEnvironment();
  void sizeChanged();

  std::unique_ptr<kit::Control> control_;
  unsigned sizeRevision_ = 0;
};

}  // namespace tarnwell::view
