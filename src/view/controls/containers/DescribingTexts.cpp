#include "view/controls/containers/DescribingTexts.h"

#include <vector>

#include "kit/control/Control.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::view {
namespace {

void collectTexts(const MountedNode& node, std::vector<const kit::Control*>& texts) {
  const kit::Control* control = node.control();
  if (control != nullptr && !control->takesFocus() && !control->accessibleName().empty()) {
    texts.push_back(control);
  }
  for (const auto& child : node.children()) {
    collectTexts(*child, texts);
  }
}

std::vector<const kit::Control*> textsIn(const MountedNode& node) {
  std::vector<const kit::Control*> texts;
  collectTexts(node, texts);
  return texts;
}

}  // namespace

AccessibleContext describedBy(const MountedNode& text, const AccessibleContext& around) {
  std::string words;
  for (const kit::Control* part : textsIn(text)) {
    words += (words.empty() ? "" : " ") + part->accessibleName();
  }
  const std::string gap = words.empty() || around.description.empty() ? "" : " ";
  return {.label = around.label, .description = words + gap + around.description};
}

const kit::Control* firstTextIn(const MountedNode& node) {
  const auto texts = textsIn(node);
  return texts.empty() ? nullptr : texts.front();
}

}  // namespace tarnwell::view
