#pragma once

#include <functional>

#include "kit/control/Control.h"

namespace tarnwell::kit {

/// A switch or a check box that is on or off.
class Toggle final : public Control {
 public:
  enum class Style { slidingSwitch, checkBox };
  using ToggleAction = std::function<void(bool)>;

  Style style() const { return style_; }
  void setStyle(Style style) { set(style_, style, Aspect::style); }

  /// What stands beside a check box, and is a part of it.
  const std::string& title() const { return title_; }
  void setTitle(std::string title) { set(title_, std::move(title), Aspect::title); }

  bool isOn() const { return on_; }
  void setOn(bool on) { set(on_, on, Aspect::value); }

  void setAction(ToggleAction action) { action_ = std::move(action); }

  /// Where the words stand that say what it switches, in its parent's coordinates; empty for none. A host that paints
  /// its controls takes a click there for one on the switch.
  const Rect& labelFrame() const { return labelFrame_; }
  void setLabelFrame(const Rect& frame) { labelFrame_ = frame; }

  // The user's doing.

  void press() { choose(!on_); }
  /// Where it stands already is no action.
  void choose(bool on);

  AnyControl any() override { return this; }
  bool takesFocus() const override { return true; }

 protected:
  Accessible ownAccessible() const override;
  void act(const AccessibleRequest& /*request*/) override { press(); }
  std::vector<Aspect> aspects() const override { return {Aspect::value}; }

 private:
  ToggleAction action_;
  std::string title_;
  Rect labelFrame_;
  Style style_ = Style::slidingSwitch;
  bool on_ = false;
};

}  // namespace tarnwell::kit
