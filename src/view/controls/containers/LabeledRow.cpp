#include "view/controls/containers/LabeledRow.h"

#include <algorithm>
#include <array>

#include "kit/controls/buttons/Toggle.h"
#include "view/controls/containers/DescribingTexts.h"
#include "view/controls/containers/FormMetrics.h"
#include "view/controls/text/Label.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::view {
namespace {

namespace metrics = form_metrics;

kit::Toggle* switchIn(const MountedNode& node) {
  if (auto* toggle = dynamic_cast<kit::Toggle*>(node.control())) {
    return toggle;
  }
  // One that stands among others is not what the row is about.
  return node.children().size() == 1 ? switchIn(*node.children().front()) : nullptr;
}

class LabeledRowNode final : public MountedNode {
 public:
  using MountedNode::MountedNode;

  std::string summary() const override { return "Row"; }

  void explain(const AccessibleContext& around) override {
    AccessibleContext own = describedBy(descriptionNode(), around);
    own.label = firstTextIn(labelNode());
    controlNode().explain(own);
  }

 protected:
  void apply() override {
    const auto& row = valueAs<LabeledRow>();
    const View description =
        row.description.font(kit::FontRole::subheadline).foregroundStyle(kit::ColorRole::secondary);
    updateChildren(std::array{row.label, description, row.control.accessibilityLabel(row.title)}, environment());
  }

  kit::Measurement layOut(kit::Proposal proposal) override {
    const Columns columns = measureColumns(proposal.width);
    return {.size = {.width = proposal.width.value_or(columns.label.width + metrics::columnGap + columns.control.width),
                     .height = std::max(columns.label.height, columns.control.height)}};
  }

  void placeContent(const kit::Rect& frame) override {
    const Columns columns = measureColumns(frame.width);
    placeLabel(frame, columns);
    controlNode().place({.x = frame.right() - columns.control.width,
                         .y = frame.y + (frame.height - columns.control.height) / 2,
                         .width = columns.control.width,
                         .height = columns.control.height});
    if (kit::Toggle* toggle = switchIn(controlNode())) {
      toggle->setLabelFrame(
          {.x = frame.x, .y = frame.y, .width = frame.width - columns.control.width, .height = frame.height});
    }
  }

 private:
  struct Columns {
    kit::Size control = {};
    kit::Size title = {};
    kit::Size description = {};
    kit::Size label = {};
  };

  MountedNode& labelNode() const { return *children()[0]; }
  MountedNode& descriptionNode() const { return *children()[1]; }
  MountedNode& controlNode() const { return *children()[2]; }

  Columns measureColumns(std::optional<double> width) const {
    Columns columns{.control = controlNode().measure({}).size};
    std::optional<double> rest;
    if (width) {
      columns.control.width = std::min(columns.control.width, *width);
      rest = *width - columns.control.width - metrics::columnGap;
    }
    columns.title = labelNode().measure({.width = rest}).size;
    columns.label = columns.title;
    if (!descriptionNode().isEmpty()) {
      const std::optional<double> under = rest ? std::optional(*rest - Label::titleInset) : std::nullopt;
      columns.description = descriptionNode().measure({.width = under}).size;
      columns.label.width = std::max(columns.label.width, columns.description.width + Label::titleInset);
      columns.label.height += metrics::descriptionGap + columns.description.height;
    }
    return columns;
  }

  void placeLabel(const kit::Rect& frame, const Columns& columns) {
    const double top = frame.y + (frame.height - columns.label.height) / 2;
    labelNode().place({.x = frame.x, .y = top, .width = columns.title.width, .height = columns.title.height});
    descriptionNode().place({.x = frame.x + Label::titleInset,
                             .y = top + columns.title.height + metrics::descriptionGap,
                             .width = columns.description.width,
                             .height = columns.description.height});
  }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const LabeledRow& /*row*/, const Place& place) {
  return std::make_shared<LabeledRowNode>(place);
}

}  // namespace tarnwell::view
