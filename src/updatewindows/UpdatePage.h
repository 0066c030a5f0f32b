#pragma once

#include <optional>
#include <string>

#include "kit/turn/Action.h"
#include "view/layout/Spacer.h"
#include "view/state/ObservableObject.h"
#include "view/values/View.h"

namespace tarnwell::updatewindows {

/// What the updater's window shows at one time.
struct UpdatePage {
  struct Choice {
    std::string title = {};
    kit::Action chosen = {};
  };

  std::string heading = {};
  std::string message = {};
  view::View body = view::EmptyView{};  // Between the texts and the buttons.
  std::optional<Choice> defaultChoice = {};
  std::optional<Choice> otherChoice = {};
  std::optional<Choice> farChoice = {};  // At the other end of the row.
  /// What closing the window means.
  kit::Action closed = {};
};

/// The page that is shown.
class ShownPage final : public view::ObservableObject {
 public:
  const UpdatePage& page() const { return page_; }
  /// Another one for each page.
  int number() const { return number_; }

  void show(UpdatePage page) {
    objectWillChange();
    page_ = std::move(page);
    ++number_;
  }

  void showBody(view::View body) {
    objectWillChange();
    page_.body = std::move(body);
  }

 private:
  UpdatePage page_;
  int number_ = 0;
};

}  // namespace tarnwell::updatewindows
