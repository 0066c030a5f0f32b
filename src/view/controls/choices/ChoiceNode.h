#pragma once

#include <memory>
#include <string>

#include "kit/controls/choices/ChoiceControl.h"
#include "view/tree/ControlNode.h"

namespace tarnwell::view {

/// The node of a `Control` that offers the items of a `Value`, which says also which of them is chosen.
template <class Value, class Control>
class ChoiceNode : public ControlNode {
 public:
  using ControlNode::ControlNode;

 protected:
  std::unique_ptr<kit::Control> makeControl() override {
    auto control = std::make_unique<Control>();
    control->setAction(
        reacting(this, [](ChoiceNode& node, int index) { node.template valueAs<Value>().selectedIndex.set(index); }));
    return control;
  }

  void updateControl() override {
    auto& control = controlAs<kit::ChoiceControl>();
    control.setItems(valueAs<Value>().items);
    control.setSelectedIndex(valueAs<Value>().selectedIndex.get());
  }
};

}  // namespace tarnwell::view
