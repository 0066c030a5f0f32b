#pragma once

#include <memory>

#include "updatewindows/UpdatePage.h"
#include "view/scenes/Panel.h"

namespace tarnwell::updatewindows {

/// The window of the updater. It shows one page at a time, stays where it is when the next one comes, and goes when an
/// answer was not followed by another page.
class UpdateWindow final : public std::enable_shared_from_this<UpdateWindow> {
 public:
  /// The application is borrowed and outlives the window.
  explicit UpdateWindow(kit::Application& application);

  /// A quiet page does not take the keyboard from any other window, and stays behind those that came after this one.
  enum class Manner { inFront, quiet };

  void show(UpdatePage page, Manner manner);
  /// On the page that is shown.
  void showBody(const view::View& body);
  /// Without an answer.
  void dismiss();

  view::Panel& panel() { return panel_; }

 private:
  /// As an event of the application.
  kit::Action answering(kit::Action action);
  void answer(const kit::Action& action);

  kit::Application& application_;
  std::shared_ptr<ShownPage> shown_ = std::make_shared<ShownPage>();
  view::Panel panel_;
  bool isAnswered_ = true;
};

}  // namespace tarnwell::updatewindows
