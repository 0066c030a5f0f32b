#pragma once

#include "host/qt/control/WidgetPeer.h"
#include "kit/controls/choices/PopUpButton.h"

namespace tarnwell::host_qt {

class Theme;

class PopUpButtonPeer : public WidgetPeer, public kit::MenuPeer {
 public:
  PopUpButtonPeer(kit::PopUpButton& button, const Theme& theme, QWidget* parent);

  void openMenu() override;
};

}  // namespace tarnwell::host_qt
