#include "host/qt/look/Symbols.h"

#include <QtCore/QFile>
#include <QtGui/QPainter>
#include <cmath>

#include "diagnostics/Console.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/look/Drawing.h"

namespace tarnwell::host_qt {
namespace {

QString pathOf(const std::string& name) { return ":/symbols/" + toQString(name) + ".picture"; }

QPixmap rendered(const QString& path, int devicePixels, const QColor& color) {
  QPixmap pixmap = pictureOf(path, devicePixels);
  QPainter painter(&pixmap);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(pixmap.rect(), color);
  return pixmap;
}

}  // namespace

bool Symbols::has(const std::string& name) { return QFile::exists(pathOf(name)); }

void Symbols::draw(QPainter& painter, const std::string& name, const QRectF& target, const QColor& color) {
  if (name.empty()) {
    return;
  }
  if (!has(name)) {
    reportMissing(name);
    return;
  }
  const QRectF snapped = onDevicePixels(painter, target);
  const double scale = painter.device()->devicePixelRatioF();
  painter.drawPixmap(snapped, pixmap(name, static_cast<int>(std::lround(snapped.width() * scale)), color), {});
}

QPixmap Symbols::pixmap(const std::string& name, int devicePixels, const QColor& color) {
  const QString key = QStringLiteral("%1/%2/%3").arg(toQString(name)).arg(devicePixels).arg(color.rgba());
  const auto found = drawn_.constFind(key);
  return found != drawn_.constEnd() ? *found : *drawn_.insert(key, rendered(pathOf(name), devicePixels, color));
}

void Symbols::reportMissing(const std::string& name) {
  if (reported_.insert(name).second) {
    diagnostics::reportError("there is no picture of the symbol \"" + name + "\"");
  }
}

}  // namespace tarnwell::host_qt
