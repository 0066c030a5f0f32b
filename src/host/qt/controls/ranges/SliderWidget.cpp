#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <cmath>
#include <optional>

#include "host/painted/ControlMetrics.h"
#include "host/painted/SliderGeometry.h"
#include "host/qt/control/ControlWidget.h"
#include "host/qt/controls/ControlWidgets.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Keys.h"
#include "host/qt/look/Theme.h"
#include "kit/controls/ranges/Slider.h"

namespace tarnwell::host_qt {
namespace {

constexpr double trackThickness = 4;
constexpr double knobHeight = 18;
constexpr double halfTurn = 180;  // Degrees.

class SliderWidget final : public ControlWidget {
 public:
  SliderWidget(kit::Slider& slider, const Theme& theme, QWidget* parent)
      : ControlWidget(slider, theme, parent), slider_(slider) {}

  QRectF focusShape() const override {
    QRectF shape = knob();
    shape.moveCenter(knobOnScreen());
    return shape;
  }

  double cornerRadius() const override { return host_painted::metrics::sliderKnobWidth / 2; }

 protected:
  void draw(QPainter& painter) override {
    if (slider_.isUpsideDown()) {
      painter.translate(bounds().width(), bounds().height());
      painter.rotate(halfTurn);
    }
    drawTicks(painter);
    drawTrack(painter);
    drawKnob(painter, knob(), host_painted::metrics::sliderKnobWidth / 2, theme().palette());
  }

  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton) {
      return;
    }
    // The knob stays under the pointer where it was taken hold of; a press beside it fetches it.
    const bool onKnob = knob().contains(toQPointF(geometry().turned(toPoint(event->position()))));
    grab_ = onKnob ? event->position() - knobOnScreen() : QPointF();
    if (!onKnob) {
      dragTo(event->position());
    }
  }

  void mouseMoveEvent(QMouseEvent* event) override {
    if (grab_ && event->buttons().testFlag(Qt::LeftButton)) {
      dragTo(event->position() - *grab_);
    }
  }

  void mouseReleaseEvent(QMouseEvent* /*event*/) override { grab_.reset(); }

  void keyPressEvent(QKeyEvent* event) override { event->setAccepted(slider_.keyDown(toKeyEvent(*event))); }

 private:
  host_painted::SliderGeometry geometry() const { return host_painted::SliderGeometry(slider_); }

  void dragTo(const QPointF& onScreen) { slider_.choose(geometry().valueAt(toPoint(onScreen))); }

  // Above the middle where there are tick marks below.
  double trackCentre() const {
    const double room =
        slider_.numberOfTickMarks() > 0 ? bounds().height() - host_painted::metrics::tickHeight : bounds().height();
    return std::round(room / 2);
  }

  QRectF knob() const {
    return {geometry().knobCentre() - host_painted::metrics::sliderKnobWidth / 2, trackCentre() - knobHeight / 2,
            host_painted::metrics::sliderKnobWidth, knobHeight};
  }

  QPointF knobOnScreen() const {
    return toQPointF(geometry().turned({.x = geometry().knobCentre(), .y = trackCentre()}));
  }

  void drawTicks(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int i = 0; i < slider_.numberOfTickMarks(); ++i) {
      const QRectF tick = toQRectF(slider_.rectOfTickMarkAtIndex(i));
      painter.fillRect(onDevicePixels(painter, tick), theme().palette().tick);
    }
    painter.setRenderHint(QPainter::Antialiasing);
  }

  void drawTrack(QPainter& painter) {
    const double inset = host_painted::metrics::sliderKnobWidth / 2;
    const QRectF track(inset - 2, trackCentre() - trackThickness / 2, bounds().width() - 2 * (inset - 2),
                       trackThickness);
    QRectF filled = track;
    filled.setRight(geometry().knobCentre());
    host_qt::drawTrack(painter, track, filled, theme().palette());
  }

  kit::Slider& slider_;
  std::optional<QPointF> grab_;  // From the knob's centre to where it was taken hold of, on the screen.
};

}  // namespace

QWidget* makeWidget(kit::Slider& slider, const Theme& theme, QWidget* parent) {
  return new SliderWidget(slider, theme, parent);
}

}  // namespace tarnwell::host_qt
