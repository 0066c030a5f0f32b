#include "view/controls/choices/Picker.h"

#include "view/controls/choices/ChoiceNode.h"

namespace tarnwell::view {
namespace {

class PickerNode final : public ChoiceNode<Picker, kit::PopUpButton> {
 public:
  using ChoiceNode::ChoiceNode;

 protected:
  std::string ownName() const override { return valueAs<Picker>().title; }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Picker& /*picker*/, const Place& place) {
  return std::make_shared<PickerNode>(place);
}

}  // namespace tarnwell::view
