#pragma once

#include "host/qt/controls/WidgetPeer.h"

namespace tarnwell::kit {
class Toggle;
}

namespace tarnwell::host_qt {

class Theme;

class TogglePeer : public WidgetPeer {
 public:
  TogglePeer(kit::Toggle& toggle, const Theme& theme, QWidget* parent);
};

}  // namespace tarnwell::host_qt
