#pragma once

#include "host/qt/controls/WidgetPeer.h"

namespace tarnwell::kit {
class TextLabel;
}

namespace tarnwell::host_qt {

class Theme;

class TextLabelPeer : public WidgetPeer {
 public:
  TextLabelPeer(kit::TextLabel& label, const Theme& theme, QWidget* parent);

 protected:
  void showState(kit::Aspect aspect) override;
};

}  // namespace tarnwell::host_qt
