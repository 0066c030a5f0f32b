#include <QtGui/QPainter>
#include <cmath>

#include "host/painted/ControlMetrics.h"
#include "host/qt/control/PressableWidget.h"
#include "host/qt/controls/ControlWidgets.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "host/qt/look/WrappedText.h"
#include "kit/controls/buttons/Toggle.h"

namespace tarnwell::host_qt {
namespace {

namespace metrics = host_painted::metrics;

constexpr double knobGap = 2;
constexpr double boxRadius = 4;
constexpr double markStroke = 1.8;

class ToggleWidget final : public PressableWidget {
 public:
  ToggleWidget(kit::Toggle& toggle, const Theme& theme, QWidget* parent)
      : PressableWidget(toggle, theme, parent), toggle_(toggle) {}

  QRectF focusShape() const override { return isCheckBox() ? box() : bounds(); }
  double cornerRadius() const override { return isCheckBox() ? boxRadius : bounds().height() / 2; }

 protected:
  void draw(QPainter& painter) override {
    if (isCheckBox()) {
      drawCheckBox(painter);
    } else {
      drawSwitch(painter);
    }
  }

  void activated() override { toggle_.press(); }

 private:
  bool isCheckBox() const { return toggle_.style() == kit::Toggle::Style::checkBox; }

  QRectF box() const {
    const double top = std::round((bounds().height() - metrics::checkBoxSide) / 2);
    return {0, top, metrics::checkBoxSide, metrics::checkBoxSide};
  }

  void drawSwitch(QPainter& painter) {
    const Palette& palette = theme().palette();
    const QColor ground = toggle_.isOn() ? palette.accent : palette.track;
    drawRounded(painter, bounds(), cornerRadius(), isPressed() ? pressedShade(ground, palette.knob) : ground,
                palette.controlBorder);
    const double side = bounds().height() - 2 * knobGap;
    const double left = toggle_.isOn() ? bounds().width() - side - knobGap : knobGap;
    drawKnob(painter, QRectF(left, knobGap, side, side), side / 2, palette);
  }

  void drawCheckBox(QPainter& painter) {
    const Palette& palette = theme().palette();
    const QColor on = isPressed() ? pressedShade(palette.accent, palette.accentText) : palette.accent;
    const QColor off = isPressed() ? palette.controlFacePressed : palette.controlFace;
    drawFace(painter, box(), boxRadius, toggle_.isOn() ? on : off, palette);
    if (toggle_.isOn()) {
      drawMark(painter);
    }
    const WrappedText title(toggle_.title(), theme().font(kit::FontRole::body), std::nullopt);
    painter.setPen(palette.primaryText);
    title.draw(painter, {metrics::checkBoxSide + metrics::checkBoxGap, title.topAround(box().center().y())});
  }

  void drawMark(QPainter& painter) {
    const QPointF corner = box().topLeft();
    painter.setPen(QPen(theme().palette().accentText, markStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(
        QPolygonF({corner + QPointF(3.8, 7.8), corner + QPointF(6.4, 10.6), corner + QPointF(11.2, 4.4)}));
  }

  kit::Toggle& toggle_;
};

}  // namespace

QWidget* makeWidget(kit::Toggle& toggle, const Theme& theme, QWidget* parent) {
  return new ToggleWidget(toggle, theme, parent);
}

}  // namespace tarnwell::host_qt
