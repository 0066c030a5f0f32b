#include "host/qt/controls/choices/PopUpButtonPeer.h"

#include <QtCore/QPointer>
#include <QtGui/QBitmap>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QMenu>
#include <QtWidgets/QProxyStyle>
#include <algorithm>
#include <cmath>
#include <functional>

#include "host/painted/ControlMetrics.h"
#include "host/qt/control/ControlWidget.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "host/qt/menus/ItemLine.h"
#include "host/qt/menus/TypeAhead.h"

namespace tarnwell::host_qt {
namespace {

constexpr double buttonRadius = 6;
constexpr double badgeSide = 16;
constexpr double badgeGap = 4;
constexpr double badgeRadius = 4;
constexpr double popUpArrowWidth = 6;
constexpr double arrowDistance = 3;

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

/// The open menu of a pop-up button: each row is a title with its symbol behind it, the chosen one has a check mark.
/// It tells what was chosen, closes and deletes itself.
class PopUpMenu final : public QMenu {
 public:
  PopUpMenu(const kit::PopUpButton& button, const Theme& theme, QWidget* parent, const std::function<void(int)>& chosen)
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

  /// Opens so that the title of the chosen row covers the button's own, whose left edge and middle are at `title`.
  void openOver(const QPoint& title) {
    const QPoint row = title - QPoint(popUpMargin + static_cast<int>(checkWidth), popUpMargin + rowHeight_ / 2);
    const QList<QAction*> rows = actions();
    QAction* current = selected_ >= 0 ? rows.at(selected_) : nullptr;
    popup(row, current);
    setActiveAction(current);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (!typeAhead_.choose(*event, *this)) {
      QMenu::keyPressEvent(event);
    }
  }

  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Palette& palette = theme_.palette();
    drawRounded(painter, rect(), popUpRadius, palette.menuFace, palette.controlBorder);
    const QList<QAction*> rows = actions();
    for (int i = 0; i < rows.size(); ++i) {
      drawRow(painter, i, actionGeometry(rows.at(i)));
    }
  }

  void resizeEvent(QResizeEvent* event) override {
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

 private:
  void drawRow(QPainter& painter, int index, const QRectF& row) const {
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

  const std::vector<kit::PopUpButton::Item> items_;
  const int selected_;
  int rowHeight_ = 0;
  const Theme& theme_;
  TypeAhead typeAhead_;
};

class PopUpButtonWidget final : public ControlWidget {
 public:
  PopUpButtonWidget(kit::PopUpButton& button, const Theme& theme, QWidget* parent)
      : ControlWidget(button, theme, parent), button_(button) {}

  double cornerRadius() const override { return buttonRadius; }

  void openMenu() {
    if (menu_ || button_.items().empty()) {
      return;
    }
    // Our child: when this widget goes, its menu goes too, and chooses nothing any more.
    menu_ = new PopUpMenu(button_, theme(), this, [this](int index) { choose(index); });
    connect(menu_, &QMenu::aboutToHide, this, [this] { update(); });
    menu_->openOver(mapToGlobal(QPoint(static_cast<int>(host_painted::metrics::popUpInset), height() / 2)));
    update();
  }

 protected:
  void draw(QPainter& painter) override {
    const Palette& palette = theme().palette();
    drawFace(painter, face(), buttonRadius, menu_ ? palette.controlFacePressed : palette.controlFace, palette);
    if (const int index = button_.selectedIndex(); index >= 0) {
      const QRectF line = bounds().adjusted(host_painted::metrics::popUpInset, 0, 0, 0);
      drawItemLine(painter, button_.items().at(static_cast<std::size_t>(index)), line, palette.primaryText, theme());
    }
    drawBadge(painter);
  }

  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton) {
      openMenu();
    }
  }

  void keyPressEvent(QKeyEvent* event) override {
    if (chooseByLetter(*event)) {
      return;
    }
    switch (event->key()) {
      case Qt::Key_Space:
      case Qt::Key_Up:
      case Qt::Key_Down:
        openMenu();
        break;
      default:
        event->ignore();
        break;
    }
  }

 private:
  QRectF face() const { return bounds().adjusted(0, 0, 0, -1); }

  void drawBadge(QPainter& painter) {
    const Palette& palette = theme().palette();
    QRectF badge(0, 0, badgeSide, badgeSide);
    badge.moveCenter({bounds().width() - badgeGap - badgeSide / 2, face().center().y()});
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.accent);
    painter.drawRoundedRect(badge, badgeRadius, badgeRadius);
    drawChevron(painter, badge.center() - QPointF(0, arrowDistance), popUpArrowWidth, Direction::up,
                palette.accentText);
    drawChevron(painter, badge.center() + QPointF(0, arrowDistance), popUpArrowWidth, Direction::down,
                palette.accentText);
  }

  void choose(int index) {
    if (control() != nullptr) {
      button_.choose(index);
    }
  }

  bool chooseByLetter(const QKeyEvent& key) {
    QStringList titles;
    for (const auto& item : button_.items()) {
      titles += toQString(item.title);
    }
    if (!typeAhead_.isTyping(key, titles)) {
      return false;
    }
    if (const auto index = typeAhead_.rowFor(key, titles, button_.selectedIndex())) {
      button_.choose(*index);
    }
    return true;
  }

  kit::PopUpButton& button_;
  QPointer<PopUpMenu> menu_;
  TypeAhead typeAhead_;
};

}  // namespace

PopUpButtonPeer::PopUpButtonPeer(kit::PopUpButton& button, const Theme& theme, QWidget* parent)
    : WidgetPeer(button, new PopUpButtonWidget(button, theme, parent)) {}

void PopUpButtonPeer::openMenu() {
  if (widget() != nullptr) {
    static_cast<PopUpButtonWidget*>(widget())->openMenu();
  }
}

}  // namespace tarnwell::host_qt
