#pragma once

#include "kit/control/Control.h"

namespace tarnwell::kit {

/// A push button, or the round one with a question mark.
class Button final : public Control {
 public:
  enum class BezelStyle { push = 1, help = 9 };
  enum class Role { none, destructive };

  const std::string& title() const { return title_; }
  void setTitle(std::string title) { set(title_, std::move(title), Aspect::title); }

  BezelStyle bezelStyle() const { return bezelStyle_; }
  void setBezelStyle(BezelStyle style) { set(bezelStyle_, style, Aspect::style); }

  Role role() const { return role_; }
  void setRole(Role role) { set(role_, role, Aspect::style); }

  /// The window's default button answers Return.
  bool isDefault() const { return default_; }
  void setDefault(bool isDefault) { set(default_, isDefault, Aspect::style); }

  void setAction(Action action) { action_ = std::move(action); }

  /// The user's doing.
  void click();

  AnyControl any() override { return this; }
  bool takesFocus() const override { return true; }

 protected:
  Accessible ownAccessible() const override;
  void act(const AccessibleRequest& /*request*/) override { click(); }
  std::vector<Aspect> aspects() const override { return {Aspect::style, Aspect::title}; }

 private:
  Action action_;
  std::string title_;
  BezelStyle bezelStyle_ = BezelStyle::push;
  Role role_ = Role::none;
  bool default_ = false;
};

}  // namespace tarnwell::kit
