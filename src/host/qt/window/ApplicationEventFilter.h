#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <memory>

#include "host/qt/control/FocusRing.h"
#include "kit/turn/Action.h"

class QWidget;

namespace tarnwell::host_qt {

class Theme;

/// Watches what happens anywhere in the application. A press or a key outside the field that is being edited ends the
/// editing before it is delivered, so that what the edit enabled gets this very press. Where the focus goes, the ring
/// goes, and the page scrolls there.
class ApplicationEventFilter final : public QObject {
 public:
  explicit ApplicationEventFilter(const Theme& theme);

  /// The application's font, and with it every measure, is new.
  void setFontChanged(kit::Action action) { fontChanged_ = std::move(action); }

  bool eventFilter(QObject* object, QEvent* event) noexcept override;

 private:
  void endEditing(QObject* target);
  void focusMoved(QWidget* to);

  const Theme& theme_;
  kit::Action fontChanged_;
  QPointer<FocusRing> ring_;
};

}  // namespace tarnwell::host_qt
