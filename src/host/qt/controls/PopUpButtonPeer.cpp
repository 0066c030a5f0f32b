#include "host/qt/controls/PopUpButtonPeer.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include "host/painted/ControlMetrics.h"
#include "host/qt/controls/ControlWidget.h"
#include "host/qt/controls/PopUpMenu.h"
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
