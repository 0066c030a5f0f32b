#include <QtCore/QBasicTimer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include "host/qt/control/ControlWidget.h"
#include "host/qt/controls/ControlWidgets.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "kit/controls/ranges/Stepper.h"

namespace tarnwell::host_qt {
namespace {

constexpr double stepperRadius = 5;
constexpr double stepperArrowWidth = 6;

class StepperWidget final : public ControlWidget {
 public:
  StepperWidget(kit::Stepper& stepper, const Theme& theme, QWidget* parent)
      : ControlWidget(stepper, theme, parent), stepper_(stepper) {}

  double cornerRadius() const override { return stepperRadius; }

 protected:
  void draw(QPainter& painter) override {
    const Palette& palette = theme().palette();
    drawFace(painter, face(), stepperRadius, palette.controlFace, palette);
    if (held_) {
      painter.setClipRect(half(*held_));
      drawRounded(painter, face(), stepperRadius, palette.controlFacePressed, palette.controlBorder);
      painter.setClipping(false);
    }
    for (const Direction direction : {Direction::up, Direction::down}) {
      drawChevron(painter, half(direction).center(), stepperArrowWidth, direction, palette.primaryText);
    }
  }

  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton) {
      pointer_ = event->position();
      hold(pointer_.y() < face().center().y() ? Direction::up : Direction::down);
      steps_ = 0;
      repeat();
    }
  }

  void mouseMoveEvent(QMouseEvent* event) override { pointer_ = event->position(); }

  void mouseReleaseEvent(QMouseEvent* /*event*/) override { letGo(); }

  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Up:
      case Qt::Key_Right:
        step(Direction::up);
        break;
      case Qt::Key_Down:
      case Qt::Key_Left:
        step(Direction::down);
        break;
      default:
        event->ignore();
        break;
    }
  }

  void timerEvent(QTimerEvent* /*event*/) override {
    if (held_ && half(*held_).contains(pointer_)) {
      repeat();
    }
  }

  void changeEvent(QEvent* event) override {
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
      letGo();
    }
    ControlWidget::changeEvent(event);
  }

  void hideEvent(QHideEvent* /*event*/) override { letGo(); }

 private:
  QRectF face() const { return bounds().adjusted(0, 0, 0, -1); }

  QRectF half(Direction direction) const {
    QRectF part = face();
    part.setHeight(face().height() / 2);
    return direction == Direction::up ? part : part.translated(0, face().height() / 2);
  }

  void hold(Direction direction) {
    held_ = direction;
    update();
  }

  void letGo() {
    timer_.stop();
    held_.reset();
    update();
  }

  void repeat() {
    timer_.start(kit::Stepper::repeatDelay(++steps_), Qt::PreciseTimer, this);
    step(*held_);
  }

  void step(Direction direction) {
    if (direction == Direction::up) {
      stepper_.increment();
    } else {
      stepper_.decrement();
    }
  }

  kit::Stepper& stepper_;
  QBasicTimer timer_;
  int steps_ = 0;  // Since the arrow has been held.
  std::optional<Direction> held_;
  QPointF pointer_;
};

}  // namespace

QWidget* makeWidget(kit::Stepper& stepper, const Theme& theme, QWidget* parent) {
  return new StepperWidget(stepper, theme, parent);
}

}  // namespace tarnwell::host_qt
