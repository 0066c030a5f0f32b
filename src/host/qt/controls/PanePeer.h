#pragma once

#include "host/qt/controls/WidgetPeer.h"

namespace tarnwell::kit {
class Pane;
}

namespace tarnwell::host_qt {

class Theme;

class PanePeer final : public WidgetPeer {
 public:
  PanePeer(kit::Pane& pane, const Theme& theme, QWidget* parent);
};

}  // namespace tarnwell::host_qt
