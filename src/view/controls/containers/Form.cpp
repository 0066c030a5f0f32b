#include "view/controls/containers/Form.h"

#include <algorithm>

#include "view/controls/containers/FormMetrics.h"
#include "view/controls/containers/ScrollAreaNode.h"

namespace tarnwell::view {
namespace {

namespace metrics = form_metrics;

class FormNode final : public ScrollAreaNode {
 public:
  using ScrollAreaNode::ScrollAreaNode;

  std::string summary() const override { return "Form"; }

 protected:
  void apply() override {
    area();
    updateChildren(valueAs<Form>().sections, environment());
  }

  kit::Measurement layOut(kit::Proposal proposal) override {
    const double width = proposal.width.value_or(0);
    const double height = contentHeight(width);
    return {.size = {.width = width, .height = std::min(height, proposal.height.value_or(height))}};
  }

  void placeContent(const kit::Rect& frame) override {
    area().setFrame(kit::onWholePoints(frame));
    area().setContentHeight(contentHeight(frame.width));
    const double width = frame.width - 2 * metrics::padding;
    double y = metrics::padding;
    for (MountedNode* section : visibleSections()) {
      const double height = section->measure({.width = width}).size.height;
      section->place({.x = metrics::padding, .y = y, .width = width, .height = height});
      y += height + metrics::sectionGap;
    }
  }

 private:
  std::vector<MountedNode*> visibleSections() const {
    std::vector<MountedNode*> sections;
    for (const auto& section : children()) {
      if (!section->isEmpty()) {
        sections.push_back(section.get());
      }
    }
    return sections;
  }

  double contentHeight(double width) const {
    const auto sections = visibleSections();
    double height = 2 * metrics::padding;
    for (MountedNode* section : sections) {
      height += section->measure({.width = width - 2 * metrics::padding}).size.height;
    }
    return height + metrics::sectionGap * static_cast<double>(std::max<std::size_t>(sections.size(), 1) - 1);
  }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Form& /*form*/, const Place& place) {
  return std::make_shared<FormNode>(place);
}

}  // namespace tarnwell::view
