#include <QtCore/QVariantAnimation>
#include <QtGui/QPainter>

#include "host/qt/control/ControlWidget.h"
#include "host/qt/controls/ControlWidgets.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "kit/controls/ranges/ProgressBar.h"

namespace tarnwell::host_qt {
namespace {

constexpr double movingShare = 0.3;
constexpr int oneCrossing = 1400;  // Milliseconds.

/// While the share is unknown something moves along the bar.
class ProgressBarWidget final : public ControlWidget {
 public:
  ProgressBarWidget(kit::ProgressBar& bar, const Theme& theme, QWidget* parent)
      : ControlWidget(bar, theme, parent), bar_(bar) {
    motion_.setStartValue(0.0);
    motion_.setEndValue(1.0);
    motion_.setDuration(oneCrossing);
    motion_.setLoopCount(-1);
    connect(&motion_, &QVariantAnimation::valueChanged, this, [this] { update(); });
  }

 protected:
  void draw(QPainter& painter) override {
    // What is painted is seen: nothing moves that is not.
    moveOrRest();
    drawTrack(painter, bounds(), filled(), theme().palette());
  }

  void hideEvent(QHideEvent* /*event*/) override { motion_.stop(); }

 private:
  void moveOrRest() {
    if (bar_.share()) {
      motion_.stop();
    } else if (motion_.state() != QAbstractAnimation::Running) {
      motion_.start();
    }
  }

  QRectF filled() const {
    QRectF part = bounds();
    if (bar_.share()) {
      part.setWidth(part.width() * *bar_.share());
      return part;
    }
    const double moving = part.width() * movingShare;
    part.setLeft((part.width() + moving) * motion_.currentValue().toDouble() - moving);
    part.setWidth(moving);
    return part;
  }

  kit::ProgressBar& bar_;
  QVariantAnimation motion_;
};

}  // namespace

QWidget* makeWidget(kit::ProgressBar& bar, const Theme& theme, QWidget* parent) {
  return new ProgressBarWidget(bar, theme, parent);
}

}  // namespace tarnwell::host_qt
