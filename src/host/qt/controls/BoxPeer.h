#pragma once

#include "host/qt/controls/WidgetPeer.h"

namespace tarnwell::kit {
class Box;
}

namespace tarnwell::host_qt {

class Theme;

class BoxPeer final : public WidgetPeer {
 public:
  BoxPeer(kit::Box& box, const Theme& theme, QWidget* parent);
};

}  // namespace tarnwell::host_qt
