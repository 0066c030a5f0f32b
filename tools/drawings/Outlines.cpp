#include "tools/drawings/Outlines.h"

#include <QtGui/QPaintEngine>
#include <QtGui/QPainterPathStroker>
#include <cmath>

namespace drawings {
namespace {

// Of a side, as Outline.h has it.
constexpr double unit = 16384;

int inUnits(double place) { return static_cast<int>(std::lround(place / OutlineDevice::side * unit)); }

}  // namespace

class OutlineDevice::Engine final : public QPaintEngine {
 public:
  Engine() : QPaintEngine(AllFeatures) {}

  bool begin(QPaintDevice* /*device*/) override { return true; }
  bool end() override { return true; }
  Type type() const override { return User; }

  void updateState(const QPaintEngineState& changed) override {
    pen_ = changed.pen();
    brush_ = changed.brush();
    transform_ = changed.transform();
  }

  void drawPath(const QPainterPath& path) override {
    if (brush_.style() != Qt::NoBrush) {
      paths_.push_back(transform_.map(path));
    }
    if (pen_.style() != Qt::NoPen) {
      QPainterPathStroker stroker(pen_);
      stroker.setCurveThreshold(stroker.curveThreshold() / transform_.m11());
      paths_.push_back(transform_.map(stroker.createStroke(path)));
    }
  }

  void drawPixmap(const QRectF& /*target*/, const QPixmap& /*pixmap*/, const QRectF& /*source*/) override {}

  const std::vector<QPainterPath>& paths() const { return paths_; }

 private:
  QPen pen_;
  QBrush brush_;
  QTransform transform_;
  std::vector<QPainterPath> paths_;
};

OutlineDevice::OutlineDevice() : engine_(std::make_unique<Engine>()) {}

OutlineDevice::~OutlineDevice() = default;

const std::vector<QPainterPath>& OutlineDevice::paths() const { return engine_->paths(); }

QPaintEngine* OutlineDevice::paintEngine() const { return engine_.get(); }

int OutlineDevice::metric(PaintDeviceMetric metric) const {
  switch (metric) {
    case PdmWidth:
    case PdmHeight:
      return side;
    default:
      return QPaintDevice::metric(metric);
  }
}

void Outlines::add(const QString& name, const std::vector<QPainterPath>& paths) {
  QByteArray outlines;
  for (const QPainterPath& path : paths) {
    const QByteArray array = "points" + QByteArray::number(count_++);
    points_ += "constexpr OutlinePoint " + array + "[] = {";
    for (const QPolygonF& polygon : path.toSubpathPolygons()) {
      for (const QPointF& point : polygon) {
        const bool isFirst = &point == &polygon.front();
        points_ += "{" + QByteArray::number(inUnits(point.x())) + "," + QByteArray::number(inUnits(point.y())) +
                   (isFirst ? ",true" : "") + "},";
      }
    }
    points_ += "};\n";
    const bool winds = path.fillRule() == Qt::WindingFill;
    outlines += "{" + array + "," + (winds ? "Qt::WindingFill" : "Qt::OddEvenFill") + "},";
  }
  entries_ += "{\"" + name.toUtf8() + "\",{" + outlines + "}},\n";
}

QByteArray Outlines::source() const {
  return "// Made by tools/drawings.\n#include \"host/qt/look/Outline.h\"\n\nnamespace tarnwell::host_qt {\nnamespace "
         "{\n" +
         points_ +
         "}\n\nconst std::map<std::string_view, std::vector<Outline>>& outlines() {\n"
         "static const std::map<std::string_view, std::vector<Outline>> all = {\n" +
         entries_ + "};\nreturn all;\n}\n\n}\n";
}

}  // namespace drawings
