#pragma once

#include <QtWidgets/QWidget>
#include <string>

class QLabel;

namespace tarnwell::host::qt {

/// The panel with icon, name, version and copyright. Escape and Control-W close it.
class AboutPanel final : public QWidget {
 public:
  struct Content {
    std::string name = {};
    std::string version = {};
    std::string copyright = {};
  };

  explicit AboutPanel(const Content& content);

  /// In front of the application's other windows; with the keyboard only if the application has it already.
  void orderFront();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QLabel* addLine(const std::string& text);
  void setFonts();

  QLabel* name_;
  QLabel* version_;
  QLabel* copyright_;
};

}  // namespace tarnwell::host::qt
