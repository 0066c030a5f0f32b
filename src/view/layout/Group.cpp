#include "view/layout/Group.h"

#include "view/layout/Stack.h"
#include "view/tree/PassThroughNode.h"

namespace tarnwell::view {
namespace {

class GroupNode final : public PassThroughNode {
 public:
  using PassThroughNode::PassThroughNode;

 protected:
  void apply() override { updateChild(VStack{.children = valueAs<Group>().children}, environment()); }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Group& /*group*/, const Place& place) {
  return std::make_shared<GroupNode>(place);
}

}  // namespace tarnwell::view
