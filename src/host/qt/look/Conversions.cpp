#include "host/qt/look/Conversions.h"

#include <QtGui/QKeyEvent>

#include "host/qt/look/KeyEquivalentText.h"
#include "kit/events/Event.h"

namespace tarnwell::host_qt {
namespace {

std::string charactersOf(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return kit::returnKey;
    case Qt::Key_Escape:
      return kit::escapeKey;
    default:
      break;
  }
  // A letter with Control held has no text, so the key itself is asked. Shift is no modifier that is left out.
  if (event.key() >= Qt::Key_Space && event.key() < Qt::Key_Escape) {
    const QString key(QChar(event.key()));
    return (event.modifiers().testFlag(Qt::ShiftModifier) ? key : key.toLower()).toStdString();
  }
  return event.text().toStdString();
}

}  // namespace

QString toQString(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

kit::Point toPoint(const QPointF& point) { return {.x = point.x(), .y = point.y()}; }

QPointF toQPointF(const kit::Point& point) { return {point.x, point.y}; }

QRect toQRect(const kit::Rect& rect) { return toQRectF(kit::onWholePoints(rect)).toRect(); }

QRectF toQRectF(const kit::Rect& rect) { return {rect.x, rect.y, rect.width, rect.height}; }

kit::Rect toRect(const QRect& rect) {
  return {.x = static_cast<double>(rect.x()),
          .y = static_cast<double>(rect.y()),
          .width = static_cast<double>(rect.width()),
          .height = static_cast<double>(rect.height())};
}

kit::KeyEvent toKeyEvent(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers();
  unsigned flags = 0;
  flags |= modifiers.testFlag(Qt::ShiftModifier) ? kit::shiftFlag : 0;
  flags |= modifiers.testFlag(Qt::ControlModifier) ? kit::commandFlag : 0;
  flags |= modifiers.testFlag(Qt::AltModifier) ? kit::optionFlag : 0;
  flags |= modifiers.testFlag(Qt::MetaModifier) ? kit::controlFlag : 0;
  const std::string characters = charactersOf(event);
  return {.charactersIgnoringModifiers = characters,
          .modifierFlags = flags,
          .shownInMenus = keyShownInMenus(characters).toStdString()};
}

}  // namespace tarnwell::host_qt
