#pragma once

#include "host/qt/controls/WidgetPeer.h"

namespace tarnwell::kit {
class Stepper;
}

namespace tarnwell::host_qt {

class Theme;

class StepperPeer : public WidgetPeer {
 public:
  StepperPeer(kit::Stepper& stepper, const Theme& theme, QWidget* parent);
};

}  // namespace tarnwell::host_qt
