#include "view/controls/buttons/Link.h"

#include "view/controls/buttons/Button.h"

namespace tarnwell::view {

View Link::body() const {
  return Button{.title = title, .action = [open = openURL.get(), destination = destination] { open(destination); }};
}

}  // namespace tarnwell::view
