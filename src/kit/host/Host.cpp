#include "kit/host/Host.h"

#include "kit/controls/Control.h"

namespace tarnwell::kit {

Measurement Host::measure(const Control& control, Proposal proposal) const { return control.measure(*this, proposal); }

}  // namespace tarnwell::kit
