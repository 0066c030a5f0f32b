#include "kit/control/Accessible.h"

namespace tarnwell::kit {

double valueAfter(const AccessibleRequest& request, double value, double step) {
  switch (request.action) {
    case AccessibleAction::increment:
      return value + step;
    case AccessibleAction::decrement:
      return value - step;
    default:
      return std::get<double>(request.value);
  }
}

}  // namespace tarnwell::kit
