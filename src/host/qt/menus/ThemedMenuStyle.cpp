#include "host/qt/menus/ThemedMenuStyle.h"

#include <QtGui/QBitmap>
#include <QtGui/QPainter>
#include <QtWidgets/QStyleOption>
#include <algorithm>

#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"

namespace tarnwell::host_qt {
namespace {

constexpr int menuMargin = 5;
constexpr double menuRadius = 7;
constexpr double highlightRadius = 5;
constexpr int rowHeight = 24;
constexpr int rowInset = 12;
constexpr int separatorHeight = 9;
// Between a title and its key equivalent.
constexpr int keyGap = 32;
constexpr int arrowWidth = 16;
constexpr double arrowSize = 8;
constexpr int titleInset = 9;
constexpr int titleHeight = 22;
constexpr int barInset = 6;
constexpr int barMargin = 3;

// Without a compositor a window has no see-through corners; a mask needs none.
QRegion roundedMask(const QRect& rect) {
  QBitmap shape(rect.size());
  shape.clear();
  QPainter painter(&shape);
  painter.setBrush(Qt::color1);
  painter.setPen(Qt::color1);
  painter.drawRoundedRect(rect.adjusted(0, 0, -1, -1), menuRadius, menuRadius);
  painter.end();
  return {shape};
}

bool isChosen(const QStyleOption& option) {
  return option.state.testFlag(QStyle::State_Selected) && option.state.testFlag(QStyle::State_Enabled);
}

int mnemonicFlag(const QProxyStyle& style, const QStyleOption& option) {
  const bool shown = style.styleHint(QStyle::SH_UnderlineShortcut, &option) != 0;
  return shown ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
}

int keysWidth(const QStyleOptionMenuItem& item) {
  return item.fontMetrics.horizontalAdvance(item.text.section('\t', 1));
}

void drawArrow(QPainter& painter, const QPointF& centre, const QColor& color) {
  painter.save();
  painter.translate(centre);
  painter.rotate(-90);
  drawChevron(painter, {}, arrowSize, Direction::down, color);
  painter.restore();
}

}  // namespace

void ThemedMenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
  const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  if (element == CE_MenuBarEmptyArea || element == CE_MenuBarItem) {
    painter->fillRect(option->rect, theme_.palette().window);
  }
  if (element == CE_MenuBarItem && item != nullptr) {
    drawTitle(*painter, *item);
  } else if (element == CE_MenuItem && item != nullptr) {
    drawRow(*painter, *item);
  } else if (element != CE_MenuBarEmptyArea && element != CE_MenuEmptyArea) {
    QProxyStyle::drawControl(element, option, painter, widget);
  }
  painter->restore();
}

void ThemedMenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                    const QWidget* widget) const {
  if (element == PE_PanelMenu) {
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillRect(option->rect, theme_.palette().menuFace);
    drawRounded(*painter, option->rect, menuRadius, theme_.palette().menuFace, theme_.palette().controlBorder);
  } else if (element != PE_PanelMenuBar && element != PE_FrameMenu) {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

QSize ThemedMenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                        const QWidget* widget) const {
  if (type == CT_MenuBarItem) {
    return {size.width() + 2 * titleInset, std::max(titleHeight, size.height())};
  }
  const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (type != CT_MenuItem || item == nullptr) {
    return QProxyStyle::sizeFromContents(type, option, size, widget);
  }
  if (item->menuItemType == QStyleOptionMenuItem::Separator) {
    return {size.width(), separatorHeight};
  }
  const int behind = item->menuItemType == QStyleOptionMenuItem::SubMenu ? arrowWidth : keysWidth(*item);
  return {size.width() + 2 * rowInset + keyGap + behind, std::max(rowHeight, size.height())};
}

int ThemedMenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_MenuVMargin:
    case PM_MenuHMargin:
      return menuMargin;
    case PM_MenuPanelWidth:
    case PM_MenuBarPanelWidth:
    case PM_MenuBarItemSpacing:
      return 0;
    case PM_MenuBarHMargin:
      return barInset;
    case PM_MenuBarVMargin:
      return barMargin;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int ThemedMenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                               QStyleHintReturn* result) const {
  auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(result);
  if (hint == SH_Menu_Mask && option != nullptr && mask != nullptr) {
    mask->region = roundedMask(option->rect);
    return 1;
  }
  return QProxyStyle::styleHint(hint, option, widget, result);
}

void ThemedMenuStyle::drawTitle(QPainter& painter, const QStyleOptionMenuItem& option) const {
  const bool chosen = isChosen(option);
  if (chosen) {
    drawHighlight(painter, option.rect, theme_.palette().chosenTab);
  }
  painter.setFont(option.font);
  painter.setPen(theme_.palette().primaryText);
  painter.drawText(option.rect, Qt::AlignCenter | Qt::TextSingleLine | mnemonicFlag(*this, option), option.text);
}

void ThemedMenuStyle::drawRow(QPainter& painter, const QStyleOptionMenuItem& option) const {
  if (option.menuItemType == QStyleOptionMenuItem::Separator) {
    drawSeparator(painter, option.rect);
    return;
  }
  const Palette& palette = theme_.palette();
  const bool chosen = isChosen(option);
  if (chosen) {
    drawHighlight(painter, option.rect, palette.accent);
  }
  painter.setOpacity(option.state.testFlag(State_Enabled) ? 1 : 0.45);
  const QRect row = option.rect.adjusted(rowInset, 0, -rowInset, 0);
  const int flags = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextShowMnemonic;
  const QStringList halves = option.text.split('\t');
  painter.setFont(option.font);
  painter.setPen(chosen ? palette.accentText : palette.primaryText);
  painter.drawText(row, flags | Qt::AlignLeft, halves.first());
  if (halves.size() > 1) {
    painter.setPen(chosen ? palette.accentText : palette.secondaryText);
    painter.drawText(row, flags | Qt::AlignRight, halves.last());
  }
  if (option.menuItemType == QStyleOptionMenuItem::SubMenu) {
    drawArrow(painter, {row.right() - arrowSize / 2, QRectF(row).center().y()}, painter.pen().color());
  }
}

void ThemedMenuStyle::drawSeparator(QPainter& painter, const QRectF& row) const {
  const QRectF line(row.left() + rowInset, row.center().y(), row.width() - 2.0 * rowInset, hairlineWidth(painter));
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.fillRect(onDevicePixels(painter, line), theme_.palette().hairline);
}

void ThemedMenuStyle::drawHighlight(QPainter& painter, const QRectF& shape, const QColor& color) const {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawRoundedRect(shape, highlightRadius, highlightRadius);
}

}  // namespace tarnwell::host_qt
