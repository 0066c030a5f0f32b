#include "standin/dock/ui/look/DocumentPainter.h"

#include <QtGui/QLinearGradient>
#include <QtGui/QPainterPath>
#include <QtGui/QPolygonF>
#include <array>
#include <cstddef>

namespace tarnwell::standin {
namespace {

void bar(QPainter& painter, const QRectF& rectangle, const QColor& color) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawRoundedRect(rectangle, 3, 3);
}

void paintLines(QPainter& painter, const QRectF& page, int variant, const Look& look) {
  constexpr std::array<std::array<double, 9>, 3> texts = {{{0.92, 0.97, 0.88, 0.55, 0.0, 0.94, 0.9, 0.96, 0.4},
                                                           {0.5, 0.42, 0.61, 0.38, 0.55, 0.47, 0.0, 0.66, 0.3},
                                                           {0.95, 0.3, 0.0, 0.9, 0.97, 0.72, 0.0, 0.93, 0.6}}};
  const auto& lengths = texts[static_cast<std::size_t>(variant) % texts.size()];
  bar(painter, {page.x(), page.y(), page.width() * 0.46, 12}, look.ink);
  double y = page.y() + 30;
  for (const double length : lengths) {
    if (y + 7 > page.bottom()) {
      return;
    }
    if (length > 0) {
      bar(painter, {page.x(), y, page.width() * length, 7}, look.faintInk);
    }
    y += 18;
  }
}

void paintTiles(QPainter& painter, const QRectF& page, const Look& look) {
  constexpr std::array<QRgb, 3> colors = {0x5fb3b0, 0x7fb6e0, 0xe3b36b};
  constexpr double cell = 76;
  int number = 0;
  for (double y = page.y(); y + cell <= page.bottom(); y += cell) {
    for (double x = page.x(); x + cell <= page.right(); x += cell) {
      const QColor color(colors[static_cast<std::size_t>(number++ * 5 % 3)]);
      bar(painter, {x + 14, y + 4, 18, 10}, color.darker(112));
      bar(painter, {x + 14, y + 9, 42, 32}, color);
      bar(painter, {x + 12, y + 50, 46, 6}, look.faintInk);
    }
  }
}

void paintHills(QPainter& painter, const QRectF& page) {
  QLinearGradient sky(page.topLeft(), page.bottomLeft());
  sky.setColorAt(0, QColor(0x8ec9f5));
  sky.setColorAt(1, QColor(0xf6e3c4));
  painter.setPen(Qt::NoPen);
  painter.setBrush(sky);
  painter.drawRoundedRect(page, 4, 4);
  painter.setBrush(QColor(0xffe9a8));
  painter.drawEllipse(QPointF(page.x() + page.width() * 0.74, page.y() + page.height() * 0.28), 20, 20);
  const auto hill = [&](double start, double peak, double end, double height, QRgb color) {
    QPainterPath path({page.x() + page.width() * start, page.bottom()});
    path.quadTo(page.x() + page.width() * peak, page.bottom() - page.height() * height, page.x() + page.width() * end,
                page.bottom());
    painter.fillPath(path, QColor(color));
  };
  painter.save();
  painter.setClipRect(page);
  hill(-0.1, 0.3, 0.75, 1.25, 0x6f93b8);
  hill(0.35, 0.72, 1.15, 0.95, 0x54789f);
  hill(-0.4, 0.35, 1.3, 0.5, 0x4f9b68);
  painter.restore();
}

void paintSea(QPainter& painter, const QRectF& page) {
  QLinearGradient sky(page.topLeft(), page.bottomLeft());
  sky.setColorAt(0, QColor(0xf4b183));
  sky.setColorAt(0.55, QColor(0xfbe3c0));
  painter.save();
  painter.setPen(Qt::NoPen);
  painter.setBrush(sky);
  painter.drawRoundedRect(page, 4, 4);
  painter.setClipRect(page);
  painter.setBrush(QColor(0xfff3d6));
  painter.drawEllipse(QPointF(page.x() + page.width() * 0.3, page.y() + page.height() * 0.5), 24, 24);
  const double horizon = page.y() + page.height() * 0.55;
  painter.fillRect(QRectF(page.x(), horizon, page.width(), page.bottom() - horizon), QColor(0x3f7ea6));
  const double middle = page.x() + page.width() * 0.68;
  painter.setBrush(Qt::white);
  painter.drawPolygon(QPolygonF({{middle, horizon - 44}, {middle, horizon + 6}, {middle + 26, horizon + 6}}));
  painter.setBrush(QColor(0x7a4a35));
  painter.drawPolygon(QPolygonF({{middle - 24, horizon + 10},
                                 {middle + 34, horizon + 10},
                                 {middle + 24, horizon + 20},
                                 {middle - 16, horizon + 20}}));
  painter.setPen(QPen(QColor(255, 255, 255, 90), 2, Qt::SolidLine, Qt::RoundCap));
  for (int i = 0; i < 7; ++i) {
    const double x = page.x() + 12 + i * 97 % 250;
    painter.drawLine(QPointF(x, horizon + 28 + i * 7), QPointF(x + 30, horizon + 28 + i * 7));
  }
  painter.restore();
}

void paintCalendar(QPainter& painter, const QRectF& page, const Look& look) {
  constexpr int columns = 7;
  constexpr int rows = 5;
  constexpr int today = 17;
  const double wide = page.width() / columns;
  const double high = (page.height() - 24) / rows;
  bar(painter, {page.x(), page.y(), page.width() * 0.3, 12}, look.ink);
  for (int day = 0; day < columns * rows; ++day) {
    const int column = day % columns;
    const int row = day / columns;
    const QRectF cell(page.x() + column * wide, page.y() + 24 + row * high, wide - 5, high - 5);
    bar(painter, cell, day == today ? QColor(0xe8604c) : look.titleBar);
    bar(painter, {cell.x() + 5, cell.y() + 5, 10, 5}, day == today ? QColor(Qt::white) : look.faintInk);
  }
}

void paintConsole(QPainter& painter, const QRectF& page) {
  constexpr std::array lengths = {0.34, 0.62, 0.5, 0.2, 0.44, 0.7, 0.12};
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0x20252b));
  painter.drawRoundedRect(page, 4, 4);
  double y = page.y() + 12;
  for (const double length : lengths) {
    bar(painter, {page.x() + 12, y, 8, 6}, QColor(0x7ee2a8));
    bar(painter, {page.x() + 26, y, page.width() * length, 6}, QColor(0x8c97a3));
    y += 18;
  }
}

void paintMap(QPainter& painter, const QRectF& page) {
  painter.save();
  painter.setClipRect(page);
  painter.fillRect(page, QColor(0xcfe4bd));
  painter.fillRect(QRectF(page.x(), page.y() + page.height() * 0.62, page.width(), page.height()), QColor(0x8cc0e6));
  painter.setPen(QPen(Qt::white, 7));
  painter.drawLine(page.topLeft() + QPointF(60, 0), page.bottomLeft() + QPointF(130, 0));
  painter.drawLine(page.topLeft() + QPointF(0, 50), page.topRight() + QPointF(0, 90));
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0xe0503e));
  painter.drawEllipse(page.center() + QPointF(30, -24), 10, 10);
  painter.restore();
}

void paintRecords(QPainter& painter, const QRectF& page, const Look& look) {
  bar(painter, {page.x(), page.y(), 92, 92}, QColor(0x6d5aa8));
  painter.setBrush(QColor(0xf29fc0));
  painter.drawEllipse(QPointF(page.x() + 46, page.y() + 46), 24, 24);
  bar(painter, {page.x() + 110, page.y() + 8, 120, 12}, look.ink);
  bar(painter, {page.x() + 110, page.y() + 32, 80, 7}, look.faintInk);
  for (double y = page.y() + 112; y + 14 < page.bottom(); y += 24) {
    bar(painter, {page.x(), y, page.width(), 14}, look.titleBar);
    bar(painter, {page.x() + 8, y + 4, 110, 6}, look.faintInk);
  }
}

}  // namespace

void paintDocument(QPainter& painter, const QRectF& page, std::string_view application, int variant, const Look& look) {
  if (application == "files") {
    paintTiles(painter, page, look);
  } else if (application == "album") {
    variant % 2 == 0 ? paintHills(painter, page) : paintSea(painter, page);
  } else if (application == "almanac") {
    paintCalendar(painter, page, look);
  } else if (application == "console") {
    paintConsole(painter, page);
  } else if (application == "atlas") {
    paintMap(painter, page);
  } else if (application == "tunes") {
    paintRecords(painter, page, look);
  } else {
    paintLines(painter, page, variant, look);
  }
}

}  // namespace tarnwell::standin
