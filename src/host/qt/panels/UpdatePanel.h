#pragma once

#include "host/qt/panels/Panel.h"
#include "host/qt/panels/UpdatePage.h"

class QWindow;

namespace tarnwell::host_qt {

class PanelButton;
class Theme;

/// The window of the updater. It shows one page at a time, stays where it is when the next one comes, and goes when an
/// answer was not followed by another page. Return presses the default button.
class UpdatePanel final : public Panel {
 public:
  explicit UpdatePanel(const Theme& theme);

  /// A quiet page does not take the keyboard from any other window, and stays behind those that came after the panel.
  void show(UpdatePage page, Manner manner);
  /// Without an answer.
  void dismiss();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* makeContent(const UpdatePage& page);
  QLayout* makeTexts(const UpdatePage& page, QWidget* parent);
  QLayout* makeButtons(const UpdatePage& page, QWidget* parent);
  PanelButton* makeButton(const UpdatePage::Choice& choice, bool isDefault, QWidget* parent);
  void answer(kit::Action action);
  void order(Manner manner);
  void uncover(const QWindow* focused);

  const Theme& theme_;
  QWidget* content_ = nullptr;
  PanelButton* default_ = nullptr;
  kit::Action closed_;
  int shown_ = 0;  // How many pages so far.
  bool mayBeCovered_ = false;
};

}  // namespace tarnwell::host_qt
