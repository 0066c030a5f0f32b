#include "view/controls/choices/TabView.h"

#include <algorithm>
#include <array>

#include "view/controls/choices/ChoiceNode.h"
#include "view/layout/Spacer.h"
#include "view/tree/TreeContext.h"

namespace tarnwell::view {
namespace {

struct TabBarView {
  using Node = class TabBarNode;
  std::vector<kit::TabBar::Item> items;
  Binding<int> selectedIndex;
};

class TabBarNode final : public ChoiceNode<TabBarView, kit::TabBar> {
 public:
  using ChoiceNode::ChoiceNode;

 protected:
  std::string ownName() const override { return "Tabs"; }
};

/// Knows its tab and its showing, so that another tab's content, or what was there before the window closed, is never
/// taken for an update of this one's.
struct Page {
  using Node = class PageNode;
  int index = -1;
  int showing = 0;
  View content = EmptyView{};
};

class PageNode final : public MountedNode {
 public:
  using MountedNode::MountedNode;

  bool isEmpty() const override { return children().empty() || children().front()->isEmpty(); }

 protected:
  void apply() override {
    const auto& page = valueAs<Page>();
    if (shownIndex_ != page.index || showing_ != page.showing) {
      // Another page is a new place in the tree.
      updateChildren({}, environment());
      shownIndex_ = page.index;
      showing_ = page.showing;
    }
    if (page.index < 0) {
      return;
    }
    updateChild(page.content, environment());
  }

  kit::Measurement layOut(kit::Proposal proposal) override {
    return children().empty() ? kit::Measurement{} : children().front()->measure(proposal);
  }

  void placeContent(const kit::Rect& frame) override {
    if (!children().empty()) {
      children().front()->place(frame);
    }
  }

 private:
  int shownIndex_ = -1;
  int showing_ = 0;
};

class TabViewNode final : public MountedNode {
 public:
  using MountedNode::MountedNode;

  void showingChanged(bool /*shown*/) override {
    ++showing_;
    markDirty();
  }

 protected:
  void apply() override {
    const auto& tabView = valueAs<TabView>();
    TabBarView bar{.items = {}, .selectedIndex = tabView.selectedIndex};
    for (const TabView::Tab& tab : tabView.tabs) {
      bar.items.push_back(tab.label);
    }
    const int chosen = tree().isShown() ? tabView.selectedIndex.get() : -1;
    Page page;
    if (chosen >= 0) {
      page = {chosen, showing_, tabView.tabs.at(static_cast<std::size_t>(chosen)).content};
    }
    updateChildren(std::array<View, 2>{bar, page}, environment());
  }

  kit::Measurement layOut(kit::Proposal proposal) override {
    // A bar that stands in the window's own frame takes no room, nor says how wide the tabs are.
    const double width = proposal.width ? *proposal.width : idealWidth();
    const double barHeight = bar().measure({.width = width}).size.height;
    if (proposal.height) {
      proposal.height = std::max(0.0, *proposal.height - barHeight);
    }
    const kit::Size content = page().measure({.width = width, .height = proposal.height}).size;
    return {.size = {.width = width, .height = barHeight + content.height}};
  }

  void placeContent(const kit::Rect& frame) override {
    const double barHeight = bar().measure({.width = frame.width}).size.height;
    bar().place({.x = frame.x, .y = frame.y, .width = frame.width, .height = barHeight});
    page().place({.x = frame.x, .y = frame.y + barHeight, .width = frame.width, .height = frame.height - barHeight});
  }

 private:
  double idealWidth() const { return std::max(bar().measure({}).size.width, page().measure({}).size.width); }

  MountedNode& bar() const { return *children()[0]; }
  MountedNode& page() const { return *children()[1]; }

  int showing_ = 0;  // Another number whenever the window came or went.
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const TabView& /*tabView*/, const Place& place) {
  return std::make_shared<TabViewNode>(place);
}

}  // namespace tarnwell::view
