#include "dockscreen/ContentView.h"

#include <utility>

#include "diagnostics/Fault.h"
#include "dockscreen/CommandRunnerKey.h"
#include "dockscreen/HelpButton.h"
#include "dockscreen/SpeedControls.h"
#include "view/controls/buttons/Button.h"
#include "view/controls/buttons/Toggle.h"
#include "view/controls/choices/Picker.h"
#include "view/controls/containers/Form.h"
#include "view/controls/containers/LabeledRow.h"
#include "view/controls/containers/Section.h"
#include "view/controls/text/Label.h"
#include "view/controls/text/Text.h"
#include "view/layout/Spacer.h"
#include "view/layout/Stack.h"

namespace tarnwell::dockscreen {
namespace {

using core::DockSettings;
using core::MinEffect;
using view::View;

/// The first system without the single-application mode.
constexpr kit::SystemVersion withoutSingleApp{.major = 15};

View footnote(const std::string& text) {
  return View(view::Text{text}).font(kit::FontRole::subheadline).foregroundStyle(kit::ColorRole::secondary);
}

View speedRow(const view::Label& label, const std::string& description, SpeedControls controls) {
  controls.name = label.title;
  return view::LabeledRow{
      .label = label,
      .title = label.title,
      .description = View(view::Text{description}).frame({.width = 250, .alignment = kit::TextAlignment::leading}),
      .control = std::move(controls)};
}

View switchRow(const view::Label& label, const std::string& description, view::Binding<bool> isOn) {
  return view::LabeledRow{.label = label,
                          .title = label.title,
                          .description = view::Text{description},
                          .control = view::Toggle{.title = label.title, .isOn = std::move(isOn)}};
}

}  // namespace

View ContentView::body() const {
  return View(view::Form{.sections = {speeds(), minimizeEffect(), behaviour(), activeApps(), buttons()}})
      .onAppear([model = settings.get()] { model->loadFromDock(); });
}

std::shared_ptr<DockSettings> ContentView::makeSettings(const view::EnvironmentValues& environment,
                                                        kit::Action changed) {
  core::CommandRunner* runner = environment.get<CommandRunnerKey>();
  if (runner == nullptr) {
    diagnostics::fault("the Dock tab stands where the environment has no command runner");
  }
  const auto version = environment.get<view::SystemVersionKey>();
  return std::make_shared<DockSettings>(
      core::Dependencies{.runner = *runner,
                         .usesSingleApp = [version] { return version < withoutSingleApp; },
                         .openURL = environment.get<view::OpenUrlKey>(),
                         .helpPage = environment.get<view::ProductKey>().page("/help"),
                         .changed = std::move(changed)});
}

View ContentView::speeds() const {
  return view::Section{
      .rows = {speedRow({.title = "Animation", .symbol = "dock.arrow.up.rectangle"},
                        "How long the dock's reveal animation lasts.",
                        {.leftLabel = "Slow",
                         .rightLabel = "Fast",
                         .value = settings.binding(&DockSettings::animationSpeed)}),
               speedRow(
                   {.title = "Delay", .symbol = "timer"},
                   "How long the mouse must be against the screen edge before the dock reveals.",
                   {.leftLabel = "Long", .rightLabel = "Short", .value = settings.binding(&DockSettings::delaySpeed)})},
      .footer = footnote("Delay setting is ignored in fullscreen mode.")};
}

View ContentView::minimizeEffect() const {
  const std::string title = "Minimize windows using";
  return view::Section{
      .rows = {view::LabeledRow{
          .label = view::Label{.title = title, .symbol = "arrow.down.right.and.arrow.up.left"},
          .title = title,
          .control = view::makePicker<MinEffect>(
              title, settings.binding(&DockSettings::minEffect),
              {{.tag = MinEffect::genie, .item = {.title = "Genie Effect", .symbol = "wand.and.stars.inverse"}},
               {.tag = MinEffect::scale, .item = {.title = "Scale Effect", .symbol = "square.resize.down"}},
               {.tag = MinEffect::suck, .item = {.title = "Suck Effect", .symbol = "tornado"}}})}},
      .footer = footnote("Choose from the existing system effects or an additional \"suck\" effect.")};
}

View ContentView::behaviour() const {
  const View singleAppMode = systemVersion.get() < withoutSingleApp
                                 ? switchRow({.title = "Single app mode", .symbol = "macwindow"},
                                             "Clicking an app icon in the dock will hide other app windows.",
                                             settings.binding(&DockSettings::singleAppMode))
                                 : view::EmptyView{};
  return view::Section{
      .rows = {switchRow({.title = "Scroll to Exposé", .symbol = "rectangle.and.hand.point.up.left.filled"},
                         "Scroll up on a Dock icon to show all Space's opened windows for an app, or open stack.",
                         settings.binding(&DockSettings::scrollToExpose)),
               switchRow({.title = "Dim hidden apps", .symbol = "eye.slash"},
                         "Shows an app was hidden by dimming the icon in the dock.",
                         settings.binding(&DockSettings::showHidden)),
               singleAppMode}};
}

View ContentView::activeApps() const {
  const View caution = View(view::Label{.title = "Caution", .symbol = "exclamationmark.circle"})
                           .labelStyle(view::LabelStyle::iconOnly)
                           .foregroundStyle(kit::ColorRole::secondary);
  const View warning = footnote("Do not pin apps while this is active, or existing pinned apps will be removed.");
  return view::Section{
      .rows = {switchRow({.title = "Show active apps only", .symbol = "app.badge.checkmark.fill"},
                         "Only show opened applications in the dock.",
                         settings.binding(&DockSettings::activeAppsOnly))},
      .footer = view::HStack{.children = {view::HStack{.children = {caution, warning}}, view::Spacer{}}}};
}

View ContentView::buttons() const {
  const auto model = settings.get();
  const View save = View(view::Button{.title = "Save",
                                      .keyboardShortcut = view::KeyboardShortcut::defaultAction,
                                      .action = [model] { model->save(); }})
                        .disabled(model->matchesCurrent());
  const View reset = View(view::Button{.title = "Reset to Defaults",
                                       .role = kit::Button::Role::destructive,
                                       .action = [model] { model->resetToDefaults(); }})
                         .disabled(model->matchesDefaults());
  const View help = View(HelpButton{.action = [model] { model->openHelp(); }}).accessibilityLabel("Help");
  return view::Section{.footer = view::HStack{.children = {save, view::Spacer{}, reset, help}}};
}

}  // namespace tarnwell::dockscreen
