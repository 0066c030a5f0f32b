#pragma once

#include "kit/control/Control.h"
#include "kit/host/TextStyle.h"

namespace tarnwell::kit {

/// A text that is only read: never focused, never selected.
class TextLabel final : public Control {
 public:
  struct Style {
    FontRole font = FontRole::body;
    ColorRole color = ColorRole::primary;
    friend bool operator==(const Style&, const Style&) = default;
  };

  const std::string& text() const { return text_; }
  void setText(std::string text) { set(text_, std::move(text), Aspect::title); }

  const Style& style() const { return style_; }
  void setStyle(const Style& style) { set(style_, style, Aspect::style); }

  AnyControl any() override { return this; }

 protected:
  Accessible ownAccessible() const override { return {.role = AccessibleRole::text, .name = text_}; }
  std::vector<Aspect> aspects() const override { return {Aspect::style, Aspect::title}; }

 private:
  std::string text_;
  Style style_;
};

}  // namespace tarnwell::kit
