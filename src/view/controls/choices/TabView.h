#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kit/controls/choices/TabBar.h"
#include "view/values/Binding.h"
#include "view/values/Same.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// Pages of which one is shown. Only the chosen one is mounted, and only while the window is on the screen: its state
/// goes when it is left.
struct TabView {
  struct Tab {
    kit::TabBar::Item label = {};
    View content;
  };

  std::vector<Tab> tabs = {};
  Binding<int> selectedIndex = {};
};

std::shared_ptr<MountedNode> makeNode(const TabView& tabView, const Place& place);

template <class T>
struct TaggedTab {
  T tag = {};
  std::string title = {};
  std::string symbol = {};
  View content;
};

/// A tab view whose tabs stand for values; a value that is no tab's shows none.
template <class T>
TabView makeTabView(Binding<T> selection, const std::vector<TaggedTab<T>>& tagged) {
  TabView tabView;
  std::vector<T> tags;
  for (const TaggedTab<T>& tab : tagged) {
    tabView.tabs.push_back({.label = {.title = tab.title, .symbol = tab.symbol}, .content = tab.content});
    tags.push_back(tab.tag);
  }
  tabView.selectedIndex.get = [tags, selection] { return indexOf(tags, selection.get()); };
  tabView.selectedIndex.set = [tags, selection](int index) { selection.set(tags.at(static_cast<std::size_t>(index))); };
  return tabView;
}

}  // namespace tarnwell::view
