#pragma once

#include <QtGui/QPainter>
#include <string_view>

#include "standin/dock/ui/look/Look.h"

namespace tarnwell::standin {

/// Draws what a document of an application looks like: lines of text, tiles, hills, a calendar. Another variant differs
/// where a second document of the same look would seem to be the same one.
void paintDocument(QPainter& painter, const QRectF& page, std::string_view application, int variant, const Look& look);

}  // namespace tarnwell::standin
