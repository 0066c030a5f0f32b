#include "updatewindows/UpdateWindow.h"

#include <utility>

#include "kit/application/Platform.h"
#include "updatewindows/UpdateView.h"

namespace tarnwell::updatewindows {
namespace {

view::EnvironmentValues environmentOf(kit::Platform& platform) {
  return view::EnvironmentValues().with<view::OpenUrlKey>(
      [&platform](const std::string& address) { platform.openUrl(address); });
}

}  // namespace

UpdateWindow::UpdateWindow(kit::Application& application)
    : application_(application),
      panel_(application, "update", "Software Update", UpdateView{shown_}, environmentOf(application.platform())) {}

void UpdateWindow::show(UpdatePage page, Manner manner) {
  for (auto* choice : {&page.defaultChoice, &page.otherChoice, &page.farChoice}) {
    if (*choice) {
      (*choice)->chosen = answering((*choice)->chosen);
    }
  }
  application_.turn().perform([&] {
    isAnswered_ = false;
    panel_.window().setCloseAction(answering(page.closed));
    panel_.window().setAccessibleDescription(page.heading + "\n" + page.message);
    shown_->show(std::move(page));
    if (manner == Manner::inFront || !panel_.window().isVisible()) {
      panel_.orderFront(manner == Manner::inFront);
    }
  });
}

void UpdateWindow::showBody(const view::View& body) {
  application_.turn().perform([&] { shown_->showBody(body); });
}

void UpdateWindow::dismiss() {
  isAnswered_ = true;
  panel_.close();
}

kit::Action UpdateWindow::answering(kit::Action action) {
  return [weak = weak_from_this(), action = std::move(action)] {
    if (const auto window = weak.lock()) {
      window->application_.turn().perform([&] { window->answer(action); });
    }
  };
}

void UpdateWindow::answer(const kit::Action& action) {
  // An answer is given once.
  if (std::exchange(isAnswered_, true)) {
    return;
  }
  const int before = shown_->number();
  if (action) {
    action();
  }
  if (shown_->number() == before) {
    dismiss();
  }
}

}  // namespace tarnwell::updatewindows
