#include "host/qt/look/WrappedText.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <algorithm>
#include <cmath>

#include "host/qt/look/Conversions.h"

namespace tarnwell::host_qt {
namespace {

constexpr double unlimited = 1 << 20;

QTextOption wordWrap() {
  QTextOption option;
  option.setWrapMode(QTextOption::WordWrap);
  return option;
}

}  // namespace

WrappedText::WrappedText(std::string_view utf8, const QFont& font, std::optional<double> width)
    : layout_(toQString(utf8).replace('\n', QChar::LineSeparator), font) {
  const QFontMetricsF metrics(font);
  const double lineHeight = std::ceil(metrics.ascent() + metrics.descent());
  firstBaseline_ = std::round(metrics.ascent());
  capHeight_ = metrics.capHeight();
  layout_.setTextOption(wordWrap());
  layout_.setCacheEnabled(true);
  layout_.beginLayout();
  double widest = 0;
  double top = 0;
  for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
    line.setLineWidth(width.value_or(unlimited));
    // Baselines, not tops, stand on whole points.
    line.setPosition({0, top + firstBaseline_ - line.ascent()});
    widest = std::max(widest, line.naturalTextWidth());
    top += lineHeight;
  }
  layout_.endLayout();
  size_ = {std::ceil(widest), std::max(top, lineHeight)};
}

double WrappedText::topAround(double middle) const { return std::round(middle + capHeight_ / 2) - firstBaseline_; }

void WrappedText::draw(QPainter& painter, const QPointF& topLeft) const { layout_.draw(&painter, topLeft); }

}  // namespace tarnwell::host_qt
