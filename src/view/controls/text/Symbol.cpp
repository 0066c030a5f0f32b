#include "view/controls/text/Symbol.h"

#include "kit/controls/text/SymbolView.h"
#include "view/tree/ControlNode.h"

namespace tarnwell::view {
namespace {

class SymbolNode final : public ControlNode {
 public:
  using ControlNode::ControlNode;

 protected:
  std::unique_ptr<kit::Control> makeControl() override { return std::make_unique<kit::SymbolView>(); }

  void updateControl() override {
    auto& symbol = controlAs<kit::SymbolView>();
    symbol.setSymbol(valueAs<Symbol>().name);
    symbol.setSide(valueAs<Symbol>().side);
    symbol.setColor(environment().get<ForegroundKey>());
  }

  std::string ownName() const override { return valueAs<Symbol>().title; }
  bool isNamedByRow() const override { return false; }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Symbol& /*symbol*/, const Place& place) {
  return std::make_shared<SymbolNode>(place);
}

}  // namespace tarnwell::view
