#include <QtGui/QPainter>
#include <algorithm>

#include "host/qt/control/ControlWidget.h"
#include "host/qt/controls/ControlWidgets.h"
#include "host/qt/look/ApplicationIcon.h"
#include "host/qt/look/Theme.h"
#include "kit/controls/text/SymbolView.h"

namespace tarnwell::host_qt {
namespace {

class SymbolWidget final : public ControlWidget {
 public:
  SymbolWidget(kit::SymbolView& symbol, const Theme& theme, QWidget* parent)
      : ControlWidget(symbol, theme, parent), symbol_(symbol) {}

 protected:
  void draw(QPainter& painter) override {
    const double side = std::min(bounds().width(), bounds().height());
    QRectF square(0, 0, side, side);
    square.moveCenter(bounds().center());
    if (symbol_.symbol() == kit::SymbolView::applicationIcon) {
      painter.drawPixmap(square.topLeft(), applicationPicture(static_cast<int>(side), devicePixelRatioF()));
      return;
    }
    theme().symbols().draw(painter, symbol_.symbol(), square, theme().textColor(symbol_.color()));
  }

 private:
  kit::SymbolView& symbol_;
};

}  // namespace

QWidget* makeWidget(kit::SymbolView& symbol, const Theme& theme, QWidget* parent) {
  return new SymbolWidget(symbol, theme, parent);
}

}  // namespace tarnwell::host_qt
