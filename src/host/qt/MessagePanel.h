#pragma once

#include <QtWidgets/QWidget>
#include <string>

#include "kit/Action.h"

namespace tarnwell::host_qt {

/// A short message with a button to close it. Return, Escape and Control-W close it as well. It ends itself.
class MessagePanel final : public QWidget {
 public:
  MessagePanel(const std::string& title, const std::string& message, kit::Action closed);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  kit::Action closed_;
};

/// Shows a message in front and returns at once; `closed` is run when the user has closed it.
void showMessage(const std::string& title, const std::string& message, kit::Action closed);

}  // namespace tarnwell::host_qt
