#pragma once

#include <memory>
#include <string>

#include "kit/controls/text/RichText.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// Paragraphs of text. Its links are opened as those beside it are, by the environment.
struct RichText {
  std::string title = {};  ///< What a screen reader calls it.
  kit::StyledText text = {};
};

std::shared_ptr<MountedNode> makeNode(const RichText& text, const Place& place);

}  // namespace tarnwell::view
