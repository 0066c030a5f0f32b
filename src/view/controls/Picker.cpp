#include "view/controls/Picker.h"

#include "view/tree/ControlNode.h"

namespace tarnwell::view {
namespace {

class PickerNode final : public ControlNode {
 public:
  using ControlNode::ControlNode;

  std::string summary() const override {
    const auto& popUp = controlAs<kit::PopUpButton>();
    std::string line = "Picker (" + valueAs<Picker>().title + ")";
    for (std::size_t i = 0; i < popUp.items().size(); ++i) {
      const bool chosen = static_cast<int>(i) == popUp.selectedIndex();
      line += std::string(chosen ? " *" : " ") + "\"" + popUp.items()[i].title + "\" " + popUp.items()[i].symbol;
    }
    return line;
  }

 protected:
  std::unique_ptr<kit::Control> makeControl() override {
    auto popUp = std::make_unique<kit::PopUpButton>();
    popUp->setAction(
        reacting(this, [](PickerNode& node, int index) { node.valueAs<Picker>().selectedIndex.set(index); }));
    return popUp;
  }

  void updateControl() override {
    auto& popUp = controlAs<kit::PopUpButton>();
    popUp.setItems(valueAs<Picker>().items);
    popUp.setSelectedIndex(valueAs<Picker>().selectedIndex.get());
  }

  std::string ownName() const override { return valueAs<Picker>().title; }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Picker& /*picker*/, const Place& place) {
  return std::make_shared<PickerNode>(place);
}

}  // namespace tarnwell::view
