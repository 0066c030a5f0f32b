#include "view/tree/PassThroughNode.h"
#include "view/values/View.h"

namespace tarnwell::view {
namespace {

struct EnvironmentModifier {
  using Node = class EnvironmentNode;
  View content;
  std::function<EnvironmentValues(const EnvironmentValues&)> change;
};

class EnvironmentNode final : public ModifierNode<EnvironmentModifier> {
 public:
  using ModifierNode::ModifierNode;

 protected:
  void apply() override { updateChild(modifier().content, modifier().change(environment())); }
};

}  // namespace

View View::environment(std::function<EnvironmentValues(const EnvironmentValues&)> change) const {
  return EnvironmentModifier{.content = *this, .change = std::move(change)};
}

View View::disabled(bool disabled) const {
  return environment([disabled](const EnvironmentValues& outer) {
    return outer.with<EnabledKey>(outer.get<EnabledKey>() && !disabled);
  });
}

View View::rotation(double radians) const {
  return environment([radians](const EnvironmentValues& outer) {
    return outer.with<RotationKey>(outer.get<RotationKey>() + radians);
  });
}

}  // namespace tarnwell::view
