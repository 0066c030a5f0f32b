#pragma once

#include <string>

#include "host/qt/panels/Panel.h"
#include "kit/application/Product.h"

class QLabel;

namespace tarnwell::host_qt {

/// The panel with icon, name, version and copyright.
class AboutPanel final : public Panel {
 public:
  explicit AboutPanel(const kit::Product& product);

  /// In front of the application's other windows.
  void orderFront(Manner manner);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QLabel* addLine(const std::string& text);
  void setFonts();

  QLabel* name_;
  QLabel* version_;
  QLabel* copyright_;
};

}  // namespace tarnwell::host_qt
