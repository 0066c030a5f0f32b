#pragma once

#include "host/qt/controls/WidgetPeer.h"

namespace tarnwell::kit {
class Button;
}

namespace tarnwell::host_qt {

class Theme;

class ButtonPeer : public WidgetPeer {
 public:
  ButtonPeer(kit::Button& button, const Theme& theme, QWidget* parent);
};

}  // namespace tarnwell::host_qt
