#pragma once

#include "host/qt/controls/WidgetPeer.h"

namespace tarnwell::kit {
class PopUpButton;
}

namespace tarnwell::host_qt {

class Theme;

class PopUpButtonPeer final : public WidgetPeer {
 public:
  PopUpButtonPeer(kit::PopUpButton& button, const Theme& theme, QWidget* parent);
};

}  // namespace tarnwell::host_qt
