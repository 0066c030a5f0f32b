#pragma once

#include "host/qt/controls/WidgetPeer.h"
#include "kit/controls/TextField.h"

namespace tarnwell::host_qt {

class Theme;

class TextFieldPeer : public WidgetPeer {
 public:
  TextFieldPeer(kit::TextField& field, const Theme& theme, QWidget* parent);

  bool canEdit(const kit::Selector& command) const override;
  void edit(const kit::Selector& command) override;

 protected:
  void showState(kit::Aspect aspect) override;
};

}  // namespace tarnwell::host_qt
