#pragma once

#include <QtCore/QPointF>
#include <QtCore/QSizeF>
#include <QtGui/QTextLayout>
#include <optional>
#include <string_view>

class QPainter;

namespace tarnwell::host_qt {

/// A text broken into lines, for measuring and for painting alike: what was measured is what is seen.
class WrappedText {
 public:
  /// Broken at `width` points; one line for each paragraph where it is absent.
  WrappedText(std::string_view utf8, const QFont& font, std::optional<double> width);

  /// Whole points.
  QSizeF size() const { return size_; }
  double firstBaseline() const { return firstBaseline_; }

  /// Where the text's top must be for the capitals of its first line to be centred on `middle`.
  double topAround(double middle) const;

  /// In the painter's pen.
  void draw(QPainter& painter, const QPointF& topLeft) const;

 private:
  QTextLayout layout_;
  QSizeF size_;
  double firstBaseline_ = 0;
  double capHeight_ = 0;
};

}  // namespace tarnwell::host_qt
