#pragma once

#include "host/qt/WidgetPeer.h"

namespace tarnwell::kit {
class TextField;
}

namespace tarnwell::host::qt {

class Theme;

class TextFieldPeer final : public WidgetPeer {
 public:
  TextFieldPeer(kit::TextField& field, const Theme& theme, QWidget* parent);

 protected:
  void showState(kit::Aspect aspect) override;
};

}  // namespace tarnwell::host::qt
