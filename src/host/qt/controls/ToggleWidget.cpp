#include <QtGui/QPainter>

#include "host/qt/controls/ControlWidgets.h"
#include "host/qt/controls/PressableWidget.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "kit/controls/Toggle.h"

namespace tarnwell::host_qt {
namespace {

constexpr double knobGap = 2;

class ToggleWidget final : public PressableWidget {
 public:
  ToggleWidget(kit::Toggle& toggle, const Theme& theme, QWidget* parent)
      : PressableWidget(toggle, theme, parent), toggle_(toggle) {}

  double cornerRadius() const override { return bounds().height() / 2; }

 protected:
  void draw(QPainter& painter) override {
    const Palette& palette = theme().palette();
    const QColor ground = toggle_.isOn() ? palette.accent : palette.track;
    drawRounded(painter, bounds(), cornerRadius(), isPressed() ? pressedShade(ground, palette.knob) : ground,
                palette.controlBorder);
    const double side = bounds().height() - 2 * knobGap;
    const double left = toggle_.isOn() ? bounds().width() - side - knobGap : knobGap;
    drawKnob(painter, QRectF(left, knobGap, side, side), side / 2, palette);
  }

  void activated() override { toggle_.press(); }

 private:
  kit::Toggle& toggle_;
};

}  // namespace

QWidget* makeWidget(kit::Toggle& toggle, const Theme& theme, QWidget* parent) {
  return new ToggleWidget(toggle, theme, parent);
}

}  // namespace tarnwell::host_qt
