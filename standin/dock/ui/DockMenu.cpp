#include "standin/dock/ui/DockMenu.h"

#include <QtGui/QPainter>

#include "standin/dock/ui/look/Blur.h"
#include "standin/dock/ui/look/Panel.h"

namespace tarnwell::standin {
namespace {

constexpr double panelRadius = 11;
constexpr double entryRadius = 6;
constexpr int textInset = 12;

}  // namespace

DockMenu::DockMenu(Surface& surface, const Look& look) : surface_(surface), look_(look) {
  QFont font = this->font();
  font.setPixelSize(13);
  setFont(font);
  // Only what takes room; the rest is painted here.
  setStyleSheet(QStringLiteral("QMenu { padding: 5px; border: none; } QMenu::item { padding: 5px 28px 5px 12px; }"));
  setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
  surface_.adopt(*this, Surface::Role::menu);
}

void DockMenu::openAbove(QPoint place) {
  const QPoint corner = place - QPoint(sizeHint().width() / 2, sizeHint().height());
  popup(parentWidget() == nullptr ? corner : parentWidget()->mapToGlobal(corner));
}

// The last moment at which the screen shows what is behind it.
void DockMenu::showEvent(QShowEvent* event) {
  if (!surface_.blends()) {
    behind_ = surface_.picture(geometry());
    blurred_ = blurred(behind_);
    setMask(panelRegion(QRectF(rect()), panelRadius));
  }
  QMenu::showEvent(event);
}

void DockMenu::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!behind_.isNull()) {
    // The mask is cut on whole points, the panel is not.
    painter.drawPixmap(0, 0, behind_);
  }
  paintPanel(painter, QRectF(rect()), panelRadius, look_.menu, look_, blurred_);
  for (QAction* const each : actions()) {
    const QRect place = actionGeometry(each);
    const bool isChosen = each == activeAction();
    if (isChosen) {
      painter.setPen(Qt::NoPen);
      painter.setBrush(look_.chosen);
      painter.drawRoundedRect(QRectF(place), entryRadius, entryRadius);
    }
    painter.setPen(isChosen ? look_.chosenText : look_.labelText);
    painter.drawText(place.adjusted(textInset, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, each->text());
  }
}

}  // namespace tarnwell::standin
