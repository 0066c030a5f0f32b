#include "host/qt/look/ApplicationStyle.h"

#include <QtGui/QIconEngine>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

namespace tarnwell::host_qt {
namespace {

class Arrows final : public QIconEngine {
 public:
  void paint(QPainter* painter, const QRect& place, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
    const QRectF box(place);
    const double reach = box.height() / 5;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(QApplication::palette().color(QPalette::ButtonText), reach / 2, Qt::SolidLine, Qt::RoundCap));
    for (const double x : {box.center().x() - reach, box.center().x() + reach / 2}) {
      const QPointF tip(x + reach, box.center().y());
      painter->drawPolyline(QPolygonF{tip - QPointF(reach, reach), tip, tip - QPointF(reach, -reach)});
    }
  }

  QIconEngine* clone() const override { return new Arrows; }
};

}  // namespace

ApplicationStyle::ApplicationStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

QIcon ApplicationStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
  return icon == SP_ToolBarHorizontalExtensionButton ? QIcon(new Arrows)
                                                     : QProxyStyle::standardIcon(icon, option, widget);
}

}  // namespace tarnwell::host_qt
