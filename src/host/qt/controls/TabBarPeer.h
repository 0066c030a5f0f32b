#pragma once

#include "host/qt/controls/WidgetPeer.h"

namespace tarnwell::kit {
class TabBar;
}

namespace tarnwell::host_qt {

class Theme;

class TabBarPeer : public WidgetPeer {
 public:
  TabBarPeer(kit::TabBar& bar, const Theme& theme, QWidget* parent);
};

}  // namespace tarnwell::host_qt
