#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <string>

#include "kit/KeyEvent.h"

class QLabel;

namespace tarnwell::host_qt {

/// The panel with icon, name, version and copyright. Escape and Control-W close it.
class AboutPanel final : public QWidget {
 public:
  struct Content {
    std::string name = {};
    std::string version = {};
    std::string copyright = {};
  };

  explicit AboutPanel(const Content& content);

  /// Where the key equivalents go that the panel has no use for.
  void setKeyEquivalents(std::function<void(const kit::KeyEvent&)> keys) { keys_ = std::move(keys); }

  /// In front of the application's other windows; with the keyboard only if the application has it already.
  void orderFront();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QLabel* addLine(const std::string& text);
  void setFonts();

  std::function<void(const kit::KeyEvent&)> keys_;
  QLabel* name_;
  QLabel* version_;
  QLabel* copyright_;
};

}  // namespace tarnwell::host_qt
