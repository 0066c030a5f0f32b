#include "view/Group.h"

#include "view/PassThroughNode.h"
#include "view/Stack.h"

namespace tarnwell::view {
namespace {

class GroupNode final : public PassThroughNode {
 public:
  using PassThroughNode::PassThroughNode;

 protected:
  void apply() override { updateChildren({VStack{.children = valueAs<Group>().children}}, environment()); }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Group& /*group*/, const Place& place) {
  return std::make_shared<GroupNode>(place);
}

}  // namespace tarnwell::view
