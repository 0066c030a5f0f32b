#include "host/qt/control/ControlWidget.h"
#include "host/qt/controls/ControlWidgets.h"
#include "kit/controls/containers/Pane.h"

namespace tarnwell::host_qt {
namespace {

class PaneWidget final : public ControlWidget {
 public:
  using ControlWidget::ControlWidget;

 protected:
  // What stands in it is all that is seen.
  void draw(QPainter& /*painter*/) override {}
};

}  // namespace

QWidget* makeWidget(kit::Pane& pane, const Theme& theme, QWidget* parent) {
  return new PaneWidget(pane, theme, parent);
}

}  // namespace tarnwell::host_qt
