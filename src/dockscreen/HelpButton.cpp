#include "dockscreen/HelpButton.h"

#include <utility>

#include "diagnostics/Fault.h"

namespace tarnwell::dockscreen {

std::shared_ptr<HelpButton::Coordinator> HelpButton::makeCoordinator() const {
  return std::make_shared<Coordinator>(action);
}

std::unique_ptr<kit::Button> HelpButton::makeNSView(Context& context) const {
  auto button = std::make_unique<kit::Button>();
  button->setTitle(title);
  button->setAction([target = std::weak_ptr(context.coordinator)] {
    if (const auto coordinator = target.lock()) {
      coordinator->buttonTapped();
    }
  });
  button->setBezelStyle(kit::Button::BezelStyle::help);
  return button;
}

void HelpButton::updateNSView(kit::Button& button, Context& /*context*/) const { button.setTitle(title); }

HelpButton::Coordinator::Coordinator() {
  diagnostics::fault("use of unimplemented initializer 'init()' for class 'HelpButton.Coordinator'");
}

HelpButton::Coordinator::Coordinator(kit::Action action) : action_(std::move(action)) {}

void HelpButton::Coordinator::buttonTapped() const { action_(); }

}  // namespace tarnwell::dockscreen
