#include "view/tree/ControlNode.h"

#include <utility>

#include "kit/host/Host.h"
#include "view/tree/TreeContext.h"

namespace tarnwell::view {

void ControlNode::apply() {
  const bool first = !control_;
  if (first) {
    control_ = makeControl();
    control_->joinTurn(tree().turn());
    // The node outlives its control.
    control_->setSizeAction([this] { sizeChanged(); });
    control_->showingChanged(tree().isShown());
  }
  applyEnvironment();
  updateControl();
  if (first) {
    control_->attach(control_->makePeer(tree().host(), peerForChildren()));
  }
  if (std::exchange(sizeRevision_, control_->sizeRevision()) != control_->sizeRevision() && !first) {
    forgetMeasurements();
  }
}

void ControlNode::willUnmount() { control_->attach(nullptr); }

void ControlNode::showingChanged(bool shown) {
  if (control_) {
    control_->showingChanged(shown);
  }
}

void ControlNode::explain(const AccessibleContext& around) {
  if (control_->takesFocus()) {
    control_->setLabel(around.label);
    control_->setAccessibleDescription(around.description);
  }
}

void ControlNode::metricsChanged() { control_->metricsChanged(); }

void ControlNode::sizeChanged() {
  sizeRevision_ = control_->sizeRevision();
  if (isMounted()) {
    forgetMeasurements();
  }
}

kit::Measurement ControlNode::layOut(kit::Proposal proposal) { return control_->measure(proposal); }

void ControlNode::placeContent(const kit::Rect& frame) { control_->setFrame(kit::onWholePoints(frame)); }

void ControlNode::applyEnvironment() {
  control_->setEnabled(environment().get<EnabledKey>());
  std::string name = isNamedByRow() ? environment().get<AccessibleNameKey>() : std::string();
  control_->setAccessibleName(name.empty() ? ownName() : std::move(name));
}

}  // namespace tarnwell::view
