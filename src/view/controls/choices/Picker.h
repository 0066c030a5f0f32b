#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kit/controls/choices/PopUpButton.h"
#include "view/values/Binding.h"
#include "view/values/Same.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// One of several items, chosen from a pop-up. `selectedIndex` is -1 while the value is no item's.
struct Picker {
  std::string title = {};  ///< Hidden: the row carries the label.
  std::vector<kit::PopUpButton::Item> items = {};
  Binding<int> selectedIndex = {};
};

std::shared_ptr<MountedNode> makeNode(const Picker& picker, const Place& place);

template <class T>
struct TaggedItem {
  T tag = {};
  kit::PopUpButton::Item item = {};
};

/// A picker whose items stand for values.
template <class T>
Picker makePicker(std::string title, Binding<T> selection, const std::vector<TaggedItem<T>>& tagged) {
  Picker picker{.title = std::move(title)};
  std::vector<T> tags;
  for (const TaggedItem<T>& entry : tagged) {
    picker.items.push_back(entry.item);
    tags.push_back(entry.tag);
  }
  picker.selectedIndex.get = [tags, selection] { return indexOf(tags, selection.get()); };
  picker.selectedIndex.set = [tags, selection](int index) { selection.set(tags.at(static_cast<std::size_t>(index))); };
  return picker;
}

}  // namespace tarnwell::view
