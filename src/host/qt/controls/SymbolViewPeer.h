#pragma once

#include "host/qt/controls/WidgetPeer.h"

namespace tarnwell::kit {
class SymbolView;
}

namespace tarnwell::host_qt {

class Theme;

class SymbolViewPeer : public WidgetPeer {
 public:
  SymbolViewPeer(kit::SymbolView& symbol, const Theme& theme, QWidget* parent);
};

}  // namespace tarnwell::host_qt
