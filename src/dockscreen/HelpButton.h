#pragma once

#include <memory>
#include <string>

#include "kit/controls/buttons/Button.h"
#include "kit/turn/Action.h"
#include "view/tree/Representable.h"

namespace tarnwell::dockscreen {

/// The round button with a question mark. Its action is the one it was made with, whatever comes later.
struct HelpButton {
  class Coordinator;
  using NSView = kit::Button;
  using Context = view::RepresentableContext<Coordinator>;

  std::string title = {};
  kit::Action action = {};

  std::shared_ptr<Coordinator> makeCoordinator() const;
  std::unique_ptr<kit::Button> makeNSView(Context& context) const;
  void updateNSView(kit::Button& button, Context& context) const;
};

/// The target of one button's action, alive as long as the button.
class HelpButton::Coordinator {
 public:
  /// Not supported: a fault.
  Coordinator();
  explicit Coordinator(kit::Action action);

  void buttonTapped() const;

 private:
  kit::Action action_;
};

}  // namespace tarnwell::dockscreen
