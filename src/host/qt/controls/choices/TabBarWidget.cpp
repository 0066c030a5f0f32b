#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "host/painted/ControlMetrics.h"
#include "host/painted/TabGeometry.h"
#include "host/qt/control/ControlWidget.h"
#include "host/qt/controls/ControlWidgets.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "host/qt/look/WrappedText.h"
#include "kit/controls/choices/TabBar.h"

namespace tarnwell::host_qt {
namespace {

constexpr double tabRadius = 7;
constexpr double symbolSide = 22;
constexpr double symbolTop = 5;
constexpr double tabGap = 2;
// How much of the chosen tab's ground the one under the pointer has.
constexpr double hoverShare = 0.5;

class TabBarWidget final : public ControlWidget {
 public:
  TabBarWidget(kit::TabBar& bar, const Theme& theme, QWidget* parent) : ControlWidget(bar, theme, parent), bar_(bar) {
    setMouseTracking(true);
  }

  QRectF focusShape() const override { return shapeOf(std::max(0, bar_.selectedIndex())); }
  int focusedPart() const override { return bar_.selectedIndex(); }
  double cornerRadius() const override { return tabRadius; }
  QRectF partRect(int index) const override { return toQRectF(host_painted::rectOfTab(bar_, index)); }

 protected:
  void draw(QPainter& painter) override {
    for (int i = 0; i < count(); ++i) {
      drawTab(painter, i);
    }
    QRectF edge = bounds();
    edge.setTop(edge.bottom() - hairlineWidth(painter));
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(onDevicePixels(painter, edge), theme().palette().hairline);
  }

  void mousePressEvent(QMouseEvent* event) override {
    const int pressed = tabAt(event->position());
    if (event->button() == Qt::LeftButton && pressed >= 0) {
      bar_.choose(pressed);
    }
  }

  void mouseMoveEvent(QMouseEvent* event) override { setHovered(tabAt(event->position())); }

  void leaveEvent(QEvent* /*event*/) override { setHovered(-1); }

  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Left:
        chooseNear(bar_.selectedIndex() - 1);
        break;
      case Qt::Key_Right:
        chooseNear(bar_.selectedIndex() + 1);
        break;
      case Qt::Key_Home:
        chooseNear(0);
        break;
      case Qt::Key_End:
        chooseNear(count() - 1);
        break;
      default:
        event->ignore();
        break;
    }
  }

 private:
  int count() const { return static_cast<int>(bar_.items().size()); }

  QRectF shapeOf(int index) const {
    return toQRectF(host_painted::rectOfTab(bar_, index)).adjusted(tabGap, 0, -tabGap, 0);
  }

  int tabAt(QPointF position) const {
    for (int i = 0; i < count(); ++i) {
      if (shapeOf(i).contains(position)) {
        return i;
      }
    }
    return -1;
  }

  void setHovered(int index) {
    if (std::exchange(hovered_, index) != index) {
      update();
    }
  }

  void chooseNear(int index) {
    if (count() > 0) {
      bar_.choose(std::clamp(index, 0, count() - 1));
    }
  }

  void drawTab(QPainter& painter, int index) {
    const kit::TabBar::Item& tab = bar_.items().at(static_cast<std::size_t>(index));
    const Palette& palette = theme().palette();
    const QRectF shape = shapeOf(index);
    const bool chosen = index == bar_.selectedIndex();
    if (chosen || index == hovered_) {
      drawGround(painter, shape, chosen ? 1 : hoverShare);
    }
    const QColor color = chosen ? palette.accentOnWindow : palette.secondaryText;
    const QRectF symbol(std::round(shape.center().x() - symbolSide / 2), shape.top() + symbolTop, symbolSide,
                        symbolSide);
    theme().symbols().draw(painter, tab.symbol, symbol, color);
    const WrappedText title(tab.title, theme().font(kit::FontRole::subheadline), std::nullopt);
    painter.setPen(color);
    title.draw(painter, {std::round(shape.center().x() - title.size().width() / 2),
                         shape.top() + host_painted::metrics::tabTitleTop});
  }

  void drawGround(QPainter& painter, const QRectF& shape, double share) const {
    QColor ground = theme().palette().chosenTab;
    ground.setAlphaF(ground.alphaF() * static_cast<float>(share));
    const QColor border = share < 1 ? QColor(Qt::transparent) : theme().palette().chosenTabBorder;
    drawRounded(painter, shape, tabRadius, ground, border);
  }

  kit::TabBar& bar_;
  int hovered_ = -1;  // The tab under the pointer.
};

}  // namespace

QWidget* makeWidget(kit::TabBar& bar, const Theme& theme, QWidget* parent) {
  return new TabBarWidget(bar, theme, parent);
}

}  // namespace tarnwell::host_qt
