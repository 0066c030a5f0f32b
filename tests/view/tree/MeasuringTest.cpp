#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "view/Block.h"
#include "view/Stage.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::view {
namespace {

/// A view with a layout of its own, which asks its content twice for each proposal, and notes what it is asked.
struct Twice {
  std::vector<kit::Proposal>* proposals = nullptr;
  View content;
};

class TwiceNode final : public MountedNode {
 public:
  using MountedNode::MountedNode;

 protected:
  void apply() override { updateChild(twice().content, environment()); }
  kit::Measurement layOut(kit::Proposal proposal) override {
    twice().proposals->push_back(proposal);
    children().front()->measure(proposal);
    return children().front()->measure(proposal);
  }
  void placeContent(const kit::Rect& frame) override { children().front()->place(frame); }

 private:
  const Twice& twice() const { return valueAs<Twice>(); }
};

std::shared_ptr<MountedNode> makeNode(const Twice& /*twice*/, const Place& place) {
  return std::make_shared<TwiceNode>(place);
}

// Otherwise layouts within layouts would double the work at each depth.
TEST(MeasuringTest, aLayoutIsAskedOnceForEachProposal) {
  std::vector<kit::Proposal> outer;
  std::vector<kit::Proposal> inner;
  Stage stage{Twice{.proposals = &outer, .content = Twice{.proposals = &inner, .content = fixedBlock("a", 10, 10)}}};
  stage.open();
  ASSERT_FALSE(inner.empty());
  for (auto each = inner.begin(); each != inner.end(); ++each) {
    EXPECT_EQ(std::count(each, inner.end(), *each), 1);
  }
  EXPECT_EQ(inner.size(), outer.size());
}

}  // namespace
}  // namespace tarnwell::view
