#include "app/NamedControl.h"

#include <algorithm>
#include <stdexcept>

namespace tarnwell::app {
namespace {

kit::Control* find(const std::string& name, const view::MountedTree& tree) {
  const auto controls = tree.controls();
  const auto found = std::find_if(controls.rbegin(), controls.rend(),
                                  [&name](const kit::Control* each) { return each->accessibleName() == name; });
  return found != controls.rend() ? *found : nullptr;
}

}  // namespace

kit::Control& controlNamed(const std::string& name, const view::MountedTree& tree) {
  kit::Control* found = find(name, tree);
  if (found == nullptr) {
    throw std::invalid_argument("nothing is called " + name);
  }
  return *found;
}

bool hasControlNamed(const std::string& name, const view::MountedTree& tree) { return find(name, tree) != nullptr; }

}  // namespace tarnwell::app
