#include "host/qt/controls/containers/ScrollAreaPeer.h"

#include <QtGui/QWheelEvent>
#include <cmath>

#include "host/qt/control/ControlWidget.h"
#include "host/qt/controls/containers/ScrollBarOverlay.h"
#include "host/qt/look/Conversions.h"
#include "kit/controls/containers/ScrollArea.h"

namespace tarnwell::host_qt {
namespace {

constexpr double pointsPerNotch = 48;
constexpr double notch = 120;  // What the toolkit calls one click of a wheel.
constexpr double roomAroundFocus = 12;

// The part of the page that is seen; the page itself is moved behind it.
class Viewport final : public ControlWidget {
 public:
  Viewport(kit::ScrollArea& area, const Theme& theme, QWidget* parent)
      : ControlWidget(area, theme, parent), area_(area), page_(this), bar_(area, theme, *this) {}

  QWidget* page() { return &page_; }
  kit::ScrollArea& area() { return area_; }

  void showState() override {
    const int pageHeight = std::max(height(), static_cast<int>(std::ceil(area_.contentHeight())));
    page_.setGeometry(0, -static_cast<int>(std::lround(area_.offset())), width(), pageHeight);
    bar_.follow();
  }

 protected:
  void draw(QPainter& /*painter*/) override {}
  void paintEvent(QPaintEvent* /*event*/) override {}

  void wheelEvent(QWheelEvent* event) override {
    const double distance =
        event->hasPixelDelta() ? event->pixelDelta().y() : event->angleDelta().y() / notch * pointsPerNotch;
    area_.scrollTo(area_.offset() - distance);
    event->accept();
  }

 private:
  kit::ScrollArea& area_;
  QWidget page_;
  ScrollBarOverlay bar_;
};

Viewport* viewportAround(const QWidget& widget) {
  for (QWidget* parent = widget.parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
    if (auto* viewport = dynamic_cast<Viewport*>(parent)) {
      return viewport;
    }
  }
  return nullptr;
}

}  // namespace

ScrollAreaPeer::ScrollAreaPeer(kit::ScrollArea& area, const Theme& theme, QWidget* parent)
    : WidgetPeer(area, new Viewport(area, theme, parent)) {}

QWidget* ScrollAreaPeer::content() const { return static_cast<Viewport*>(widget())->page(); }

void ScrollAreaPeer::reveal(const QWidget& widget, const QRectF& part) {
  Viewport* viewport = viewportAround(widget);
  if (viewport == nullptr || viewport->control() == nullptr) {
    return;
  }
  const QPointF corner = widget.mapTo(viewport->page(), part.topLeft());
  viewport->area().reveal({.x = corner.x(),
                           .y = corner.y() - roomAroundFocus,
                           .width = part.width(),
                           .height = part.height() + 2 * roomAroundFocus});
}

void ScrollAreaPeer::placed() { static_cast<Viewport*>(widget())->showState(); }

}  // namespace tarnwell::host_qt
