#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "kit/control/Control.h"

namespace tarnwell::scenarios {

/// What a control does when it is asked to.
struct ControlDeed {
  kit::AccessibleRequest request = {};
  std::vector<std::string> heard = {};  ///< What its owner then hears.
  kit::AccessibleValue value = {};
  int selected = -1;  ///< The part that is then chosen; -1 for none.
};

/// What every host has to tell of a control, and to do with it.
struct ControlFacts {
  using Hear = std::function<void(const std::string&)>;

  std::string name = {};
  std::function<std::unique_ptr<kit::Control>(const Hear&)> make = {};
  kit::Accessible seen = {};
  bool takesName = true;  ///< Not where a platform may have a name of its own for all of that kind.
  std::vector<kit::AccessiblePart> parts = {};  ///< Without their frames.
  std::vector<ControlDeed> deeds = {};          ///< At least one for each action.
};

inline std::ostream& operator<<(std::ostream& out, const ControlFacts& facts) { return out << facts.name; }

/// One of each control.
const std::vector<ControlFacts>& controlFacts();

}  // namespace tarnwell::scenarios
