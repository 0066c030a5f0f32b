#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QPaintDevice>
#include <QtGui/QPainterPath>
#include <memory>
#include <vector>

namespace drawings {

/// Keeps what is painted on it as what it fills: a line becomes its outline. Colours are forgotten.
class OutlineDevice final : public QPaintDevice {
 public:
  /// In its own units; curves become lines that are as exact as this many pixels need.
  static constexpr int side = 256;

  OutlineDevice();
  ~OutlineDevice() override;

  /// In the order in which they were painted.
  const std::vector<QPainterPath>& paths() const;

  QPaintEngine* paintEngine() const override;

 protected:
  int metric(PaintDeviceMetric metric) const override;

 private:
  class Engine;

  std::unique_ptr<Engine> engine_;
};

/// Drawings as C++, which defines `outlines()` of host/qt/look/Outline.h.
class Outlines {
 public:
  void add(const QString& name, const std::vector<QPainterPath>& paths);
  QByteArray source() const;

 private:
  QByteArray points_;
  QByteArray entries_;
  int count_ = 0;
};

}  // namespace drawings
