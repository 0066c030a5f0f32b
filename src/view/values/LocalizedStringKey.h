#pragma once

#include <string>

namespace tarnwell::view {

/// A text to be looked up in the user's language. There is one language: the key is the text.
struct LocalizedStringKey {
  std::string key = {};
};

}  // namespace tarnwell::view
