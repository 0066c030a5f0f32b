#pragma once

#include "host/qt/controls/WidgetPeer.h"

namespace tarnwell::kit {
class Slider;
}

namespace tarnwell::host_qt {

class Theme;

class SliderPeer : public WidgetPeer {
 public:
  SliderPeer(kit::Slider& slider, const Theme& theme, QWidget* parent);
};

}  // namespace tarnwell::host_qt
