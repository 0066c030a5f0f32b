#pragma once

#include <QtCore/QString>
#include <QtGui/QColor>

namespace tarnwell::host_qt {

/// Release notes, plain or marked up, made over into markup that is safe to show: paragraphs, headings, lists, bold,
/// italic, fixed-pitch, and links to web pages in the colour of `link`. Everything else that there was, images,
/// scripts, styles and colours, is gone, and nothing was loaded. Very long notes are cut.
QString safeNotes(const QString& notes, const QColor& link);

}  // namespace tarnwell::host_qt
