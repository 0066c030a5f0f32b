#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtDBus/QDBusVariant>
#include <functional>

#include "standin/dock/ui/look/Look.h"

namespace tarnwell::standin {

/// Whether the desktop prefers dark, asked of its settings portal without waiting.
class Appearance final : public QObject {
  Q_OBJECT

 public:
  /// `changed` is called whenever the preference is told, at first soon or never.
  explicit Appearance(std::function<void(Scheme)> changed);

  /// Whether an answer may come at all.
  bool isAsked() const { return isAsked_; }

  /// From the bus.
  Q_SLOT void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

 private:
  void ask();
  void take(const QVariant& value);

  std::function<void(Scheme)> changed_;
  bool isAsked_ = false;
};

}  // namespace tarnwell::standin
