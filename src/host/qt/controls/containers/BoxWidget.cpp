#include <QtGui/QPainter>

#include "host/qt/control/ControlWidget.h"
#include "host/qt/controls/ControlWidgets.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "kit/controls/containers/Box.h"

namespace tarnwell::host_qt {
namespace {

constexpr double groupRadius = 10;
constexpr double fieldBoxRadius = 6;

class BoxWidget final : public ControlWidget {
 public:
  BoxWidget(kit::Box& box, const Theme& theme, QWidget* parent) : ControlWidget(box, theme, parent), box_(box) {}

 protected:
  void draw(QPainter& painter) override {
    if (box_.kind() == kit::Box::Kind::group) {
      drawRounded(painter, bounds(), groupRadius, theme().palette().groupFill, theme().palette().hairline);
    } else if (box_.kind() == kit::Box::Kind::field) {
      drawRounded(painter, bounds(), fieldBoxRadius, theme().palette().fieldFace, theme().palette().hairline);
    } else {
      drawSeparator(painter);
    }
  }

 private:
  // One point thick on the device's own grid, so that all of them look alike at any scale.
  void drawSeparator(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    QRectF line = bounds();
    line.setHeight(hairlineWidth(painter));
    painter.fillRect(onDevicePixels(painter, line), theme().palette().hairline);
  }

  kit::Box& box_;
};

}  // namespace

QWidget* makeWidget(kit::Box& box, const Theme& theme, QWidget* parent) { return new BoxWidget(box, theme, parent); }

}  // namespace tarnwell::host_qt
