#include "launchatlogin/Toggle.h"

#include <utility>

#include "view/controls/buttons/Toggle.h"
#include "view/controls/containers/LabeledRow.h"
#include "view/controls/text/Label.h"
#include "view/controls/text/Text.h"

namespace tarnwell::launchatlogin {
namespace {

constexpr const char* defaultTitle = "Launch at login";

// What a screen reader says of a label that is a picture.
std::string titleOf(const view::View& label) {
  if (const auto* text = label.valueIf<view::Text>()) {
    return text->text;
  }
  const auto* titled = label.valueIf<view::Label>();
  return titled != nullptr ? titled->title : defaultTitle;
}

}  // namespace

LaunchAtLogin::Toggle::Toggle() : Toggle(view::LocalizedStringKey{defaultTitle}) {}

LaunchAtLogin::Toggle::Toggle(const view::LocalizedStringKey& titleKey) : Toggle(titleKey.key) {}

LaunchAtLogin::Toggle::Toggle(std::string title) : label(view::Text{std::move(title)}) {}

view::View LaunchAtLogin::Toggle::body() const {
  const auto& object = _launchAtLogin.get();
  const view::Binding<bool> isEnabled = {.get = [object] { return object->isEnabled(); },
                                         .set = [object](bool enabled) { object->setEnabled(enabled); }};
  const std::string title = titleOf(label);
  return view::LabeledRow{.label = label, .title = title, .control = view::Toggle{.title = title, .isOn = isEnabled}};
}

}  // namespace tarnwell::launchatlogin
