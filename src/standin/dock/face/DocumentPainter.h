#pragma once

#include <QtGui/QPainter>
#include <string>

#include "standin/dock/face/Look.h"

namespace tarnwell::standin {

/// Draws what the documents of an application look like: lines of text, tiles, hills, a calendar.
void paintDocument(QPainter& painter, const QRectF& page, const std::string& application, const Look& look);

}  // namespace tarnwell::standin
