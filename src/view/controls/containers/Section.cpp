#include "view/controls/containers/Section.h"

#include <algorithm>

#include "kit/controls/containers/Box.h"
#include "kit/host/Host.h"
#include "kit/turn/Turn.h"
#include "view/controls/containers/DescribingTexts.h"
#include "view/controls/containers/FormMetrics.h"
#include "view/tree/MountedNode.h"
#include "view/tree/TreeContext.h"

namespace tarnwell::view {
namespace {

namespace metrics = form_metrics;

class SectionNode final : public MountedNode {
 public:
  using MountedNode::MountedNode;

  std::string summary() const override { return group_ ? "Section" : "Section without a box"; }
  // In the order of the tree before the rows: one that comes later than they did is drawn under them too.
  kit::Control* control() const override { return group_.get(); }

  void explain(const AccessibleContext& around) override {
    const AccessibleContext own = describedBy(footer(), around);
    for (MountedNode* row : visibleRows()) {
      row->explain(own);
    }
    footer().explain(around);
  }

 protected:
  void apply() override {
    const auto& section = valueAs<Section>();
    if (section.rows.empty()) {
      removeGroup();
    } else if (!group_) {
      group_ = makeBox(kit::Box::Kind::group);
    }
    std::vector<View> parts = section.rows;
    parts.push_back(section.footer);
    updateChildren(parts, environment());
  }

  void willUnmount() override {
    if (group_) {
      group_->attach(nullptr);
    }
    separators_.clear();
  }

  kit::Measurement layOut(kit::Proposal proposal) override {
    const double width = proposal.width.value_or(0);
    const auto rows = visibleRows();
    double height = 0;
    for (MountedNode* row : rows) {
      height += rowHeight(*row, width);
    }
    if (!footer().isEmpty()) {
      height += rows.empty() ? 0 : metrics::footerGap;
      height += footer().measure({.width = width - 2 * footerInset(rows)}).size.height;
    }
    return {.size = {.width = width, .height = height}};
  }

  void placeContent(const kit::Rect& frame) override {
    const auto rows = visibleRows();
    // A row may have filled or emptied by itself.
    makeSeparators(rows.size());
    double y = frame.y;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (i > 0) {
        separators_[i - 1]->setFrame(kit::onWholePoints(
            {.x = frame.x + metrics::rowInset, .y = y, .width = frame.width - 2 * metrics::rowInset, .height = 1}));
      }
      y += placeRow(*rows[i], {.x = frame.x, .y = y, .width = frame.width});
    }
    if (group_) {
      group_->setFrame(kit::onWholePoints({.x = frame.x, .y = frame.y, .width = frame.width, .height = y - frame.y}));
      y += rows.empty() ? 0 : metrics::footerGap;
    }
    if (!footer().isEmpty()) {
      const double inset = footerInset(rows);
      const double width = frame.width - 2 * inset;
      const kit::Size size = footer().measure({.width = width}).size;
      footer().place({.x = frame.x + inset, .y = y, .width = size.width, .height = size.height});
    }
  }

 private:
  using Rows = std::vector<MountedNode*>;

  MountedNode& footer() const { return *children().back(); }
  // Words stand in line with the rows' words; controls without a box above them are flush with the boxes.
  static double footerInset(const Rows& rows) { return rows.empty() ? 0 : metrics::rowInset; }

  Rows visibleRows() const {
    Rows rows;
    for (std::size_t i = 0; i + 1 < children().size(); ++i) {
      if (!children()[i]->isEmpty()) {
        rows.push_back(children()[i].get());
      }
    }
    return rows;
  }

  static double rowHeight(MountedNode& row, double width) {
    const double content = row.measure({.width = width - 2 * metrics::rowInset}).size.height;
    return std::max(metrics::leastRowHeight, content + 2 * metrics::rowPadding);
  }

  static double placeRow(MountedNode& row, const kit::Rect& place) {
    const double height = rowHeight(row, place.width);
    const double width = place.width - 2 * metrics::rowInset;
    const double content = row.measure({.width = width}).size.height;
    row.place(
        {.x = place.x + metrics::rowInset, .y = place.y + (height - content) / 2, .width = width, .height = content});
    return height;
  }

  std::unique_ptr<kit::Box> makeBox(kit::Box::Kind kind) {
    auto box = std::make_unique<kit::Box>(kind);
    box->attach(box->makePeer(tree().host(), peerForChildren()));
    return box;
  }

  void removeGroup() {
    if (group_) {
      group_->attach(nullptr);
      // The window knows it until this event has settled.
      tree().turn().releaseLater(std::move(group_));
    }
  }

  void makeSeparators(std::size_t rows) {
    const std::size_t lines = rows > 0 ? rows - 1 : 0;
    while (separators_.size() < lines) {
      separators_.push_back(makeBox(kit::Box::Kind::separator));
    }
    separators_.resize(lines);
  }

  std::unique_ptr<kit::Box> group_;
  std::vector<std::unique_ptr<kit::Box>> separators_;
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const Section& /*section*/, const Place& place) {
  return std::make_shared<SectionNode>(place);
}

}  // namespace tarnwell::view
