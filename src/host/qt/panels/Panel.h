#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <utility>

#include "host/qt/window/FixedSizeGuard.h"
#include "host/qt/window/FramePace.h"
#include "kit/host/KeyEvent.h"

namespace tarnwell::host_qt {

/// A small window beside those of the application's scenes. Escape and Control-W close it.
class Panel : public QWidget {
 public:
  /// In front of all with the keyboard, or without taking the keyboard.
  enum class Manner { inFront, quiet };

  /// Where the key equivalents go that the panel has no use for.
  void setKeyEquivalents(std::function<void(const kit::KeyEvent&)> keys) { keys_ = std::move(keys); }

 protected:
  Panel();

  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::function<void(const kit::KeyEvent&)> keys_;
  FixedSizeGuard guard_{*this};
  FramePace pace_{*this};
};

}  // namespace tarnwell::host_qt
