#pragma once

#include <functional>

#include "kit/control/Control.h"

namespace tarnwell::kit {

/// One line of text with a border. What the user types counts when it is committed: by Return, by leaving the field or
/// by a press elsewhere in the window.
class TextField final : public Control {
 public:
  using CommitAction = std::function<void(const std::string&)>;

  /// The committed text. Setting it leaves alone what the user is typing.
  const std::string& text() const { return text_; }
  void setText(std::string text);

  /// What the field shows: the text, or what is being typed over it.
  const std::string& shownText() const { return editing_ ? typed_ : text_; }

  void setAction(CommitAction action) { action_ = std::move(action); }

  // The user's doing.

  /// Commits first what is being typed into another field of the window; a screen reader moves no focus.
  void type(std::string text);
  bool isEditing() const override { return editing_; }
  void commit() override;
  void cancel() override;

  AnyControl any() override { return this; }
  bool takesFocus() const override { return true; }

 protected:
  Accessible ownAccessible() const override;
  void act(const AccessibleRequest& request) override { type(std::get<std::string>(request.value)); }
  std::vector<Aspect> aspects() const override { return {Aspect::value}; }

 private:
  CommitAction action_;
  std::string text_;
  std::string typed_;
  bool editing_ = false;
};

}  // namespace tarnwell::kit
