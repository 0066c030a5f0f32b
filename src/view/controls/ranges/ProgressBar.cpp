#include "view/controls/ranges/ProgressBar.h"

#include "kit/controls/ranges/ProgressBar.h"
#include "view/tree/ControlNode.h"

namespace tarnwell::view {
namespace {

class ProgressBarNode final : public ControlNode {
 public:
  using ControlNode::ControlNode;

 protected:
  std::unique_ptr<kit::Control> makeControl() override { return std::make_unique<kit::ProgressBar>(); }
  void updateControl() override { controlAs<kit::ProgressBar>().setShare(valueAs<ProgressBar>().share); }
  std::string ownName() const override { return valueAs<ProgressBar>().title; }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const ProgressBar& /*bar*/, const Place& place) {
  return std::make_shared<ProgressBarNode>(place);
}

}  // namespace tarnwell::view
