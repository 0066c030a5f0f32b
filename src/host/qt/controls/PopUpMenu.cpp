#include "host/qt/controls/PopUpMenu.h"

#include <QtGui/QBitmap>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QProxyStyle>
#include <algorithm>
#include <cmath>

#include "host/painted/ControlMetrics.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "host/qt/look/WrappedText.h"
#include "host/qt/menus/ItemLine.h"

namespace tarnwell::host_qt {
namespace {

constexpr int popUpMargin = 5;
constexpr int leastRowHeight = 24;
constexpr int rowPadding = 3;
constexpr double checkWidth = 20;
constexpr double trailingSpace = 14;
constexpr double popUpRadius = 7;
constexpr double rowRadius = 5;

// The measures of a menu that paints its own rows.
class PopUpMenuStyle final : public QProxyStyle {
 public:
  explicit PopUpMenuStyle(QSize row) : row_(row) {}

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override {
    return type == CT_MenuItem ? row_ : QProxyStyle::sizeFromContents(type, option, size, widget);
  }

  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    switch (metric) {
      case PM_MenuVMargin:
      case PM_MenuHMargin:
        return popUpMargin;
      case PM_MenuPanelWidth:
        return 0;
      default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
  }

 private:
  QSize row_;
};

// The menu ends where the button does, unless a row needs more.
QSize rowSize(const kit::PopUpButton& button, const Theme& theme) {
  double widest = button.bounds().width - host_painted::metrics::popUpInset - trailingSpace - popUpMargin;
  for (const auto& item : button.items()) {
    widest = std::max(widest, itemLineWidth(item, theme));
  }
  const int line = QFontMetrics(theme.font(kit::FontRole::body)).height();
  return {static_cast<int>(std::ceil(checkWidth + widest + trailingSpace)),
          std::max(leastRowHeight, line + 2 * rowPadding)};
}

void drawCheckMark(QPainter& painter, const QPointF& centre, const QColor& color) {
  QPainterPath path(centre + QPointF(-3.5, 0.5));
  path.lineTo(centre + QPointF(-1, 3.5));
  path.lineTo(centre + QPointF(4, -4));
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(path);
}

}  // namespace

PopUpMenu::PopUpMenu(const kit::PopUpButton& button, const Theme& theme, QWidget* parent,
                     const std::function<void(int)>& chosen)
    : QMenu(parent), items_(button.items()), selected_(button.selectedIndex()), theme_(theme) {
  setAttribute(Qt::WA_DeleteOnClose);
  const QSize row = rowSize(button, theme);
  rowHeight_ = row.height();
  auto* style = new PopUpMenuStyle(row);
  style->setParent(this);
  setStyle(style);
  for (int i = 0; i < static_cast<int>(items_.size()); ++i) {
    // An ampersand of a title is no mnemonic.
    QAction* action = addAction(toQString(items_.at(static_cast<std::size_t>(i)).title).replace('&', "&&"));
    action->setCheckable(true);
    action->setChecked(i == selected_);
    connect(action, &QAction::triggered, this, [chosen, i] { chosen(i); });
  }
}

void PopUpMenu::openOver(const QPoint& title) {
  const QPoint row = title - QPoint(popUpMargin + static_cast<int>(checkWidth), popUpMargin + rowHeight_ / 2);
  const QList<QAction*> rows = actions();
  QAction* current = selected_ >= 0 ? rows.at(selected_) : nullptr;
  popup(row, current);
  setActiveAction(current);
}

void PopUpMenu::keyPressEvent(QKeyEvent* event) {
  if (!typeAhead_.choose(*event, *this)) {
    QMenu::keyPressEvent(event);
  }
}

void PopUpMenu::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Palette& palette = theme_.palette();
  drawRounded(painter, rect(), popUpRadius, palette.menuFace, palette.controlBorder);
  const QList<QAction*> rows = actions();
  for (int i = 0; i < rows.size(); ++i) {
    drawRow(painter, i, actionGeometry(rows.at(i)));
  }
}

void PopUpMenu::resizeEvent(QResizeEvent* event) {
  QMenu::resizeEvent(event);
  // Without a compositor a window has no see-through corners; a mask needs none.
  QBitmap shape(size());
  shape.clear();
  QPainter painter(&shape);
  painter.setBrush(Qt::color1);
  painter.setPen(Qt::color1);
  painter.drawRoundedRect(rect().adjusted(0, 0, -1, -1), popUpRadius, popUpRadius);
  painter.end();
  setMask(shape);
}

void PopUpMenu::drawRow(QPainter& painter, int index, const QRectF& row) const {
  const Palette& palette = theme_.palette();
  const bool active = actions().at(index) == activeAction();
  const QColor text = active ? palette.accentText : palette.primaryText;
  if (active) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.accent);
    painter.drawRoundedRect(row, rowRadius, rowRadius);
  }
  if (index == selected_) {
    drawCheckMark(painter, {row.left() + checkWidth / 2, row.center().y()}, text);
  }
  drawItemLine(painter, items_.at(static_cast<std::size_t>(index)), row.adjusted(checkWidth, 0, 0, 0), text, theme_);
}

}  // namespace tarnwell::host_qt
