#include "settingsaccess/PrePostActionsButtonStyle.h"

#include "kit/application/Platform.h"
#include "view/controls/buttons/Button.h"

namespace tarnwell::settingsaccess {
namespace {

void run(const std::optional<kit::Action>& action) {
  if (action) {
    (*action)();
  }
}

}  // namespace

view::View PrePostActionsButtonStyle::makeBody(const view::ButtonConfiguration& configuration) const {
  kit::Application& application = kit::Application::shared();
  if (_performAction.set) {
    application.events().async(
        [set = _performAction.set, trigger = configuration.trigger] { set(std::optional(trigger)); });
  }
  const bool knowsRoles = application.platform().systemVersion() >= kit::SystemVersion{.major = 12};
  return view::Button{
      .role = knowsRoles ? configuration.role.value_or(kit::Button::Role::none) : kit::Button::Role::none,
      .action =
          [before = preAction, trigger = configuration.trigger, after = postAction] {
            run(before);
            trigger();
            run(after);
          },
      .label = configuration.label};
}

view::View PrePostActionsButtonStyleModifier::body(const view::View& content) const {
  const PrePostActionsButtonStyle style{
      .preAction = preAction, .postAction = postAction, ._performAction = _performAction};
  return content.environment<view::ButtonStyleKey>(
      [style](const view::ButtonConfiguration& configuration) { return style.makeBody(configuration); });
}

}  // namespace tarnwell::settingsaccess
