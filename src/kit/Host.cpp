#include "kit/Host.h"

#include "kit/Control.h"

namespace tarnwell::kit {

Measurement Host::measure(const Control& control, Proposal proposal) const { return control.measure(*this, proposal); }

}  // namespace tarnwell::kit
