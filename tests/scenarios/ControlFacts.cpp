#include "scenarios/ControlFacts.h"

#include "core/DecimalText.h"
#include "kit/controls/buttons/Button.h"
#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/containers/Box.h"
#include "kit/controls/containers/Pane.h"
#include "kit/controls/containers/ScrollArea.h"
#include "kit/controls/ranges/ProgressBar.h"
#include "kit/controls/ranges/Slider.h"
#include "kit/controls/ranges/Stepper.h"
#include "kit/controls/text/RichText.h"
#include "kit/controls/text/SymbolView.h"
#include "kit/controls/text/TextField.h"
#include "kit/controls/text/TextLabel.h"

namespace tarnwell::scenarios {
namespace {

using Action = kit::AccessibleAction;
using Hear = ControlFacts::Hear;
using Role = kit::AccessibleRole;

std::unique_ptr<kit::Control> makeSlider(const Hear& hear, bool upsideDown) {
  auto slider = std::make_unique<kit::Slider>(
      50, 0, 100, [hear](const kit::Slider& moved) { hear(core::decimalText(moved.doubleValue())); });
  slider->setUpsideDown(upsideDown);
  return slider;
}

std::unique_ptr<kit::Control> makeSymbol(const std::string& name) {
  auto symbol = std::make_unique<kit::SymbolView>();
  symbol->setSymbol("timer");
  symbol->setAccessibleName(name);
  return symbol;
}

template <class C>
std::unique_ptr<kit::Control> makeChoice(const Hear& hear, std::unique_ptr<C> control) {
  control->setSelectedIndex(0);
  control->setAction([hear](int index) { hear(std::to_string(index)); });
  return control;
}

ControlFacts button() {
  return {.name = "button",
          .make =
              [](const Hear& hear) {
                auto button = std::make_unique<kit::Button>();
                button->setTitle("Save");
                button->setDefault(true);
                button->setAction([hear] { hear("pressed"); });
                return button;
              },
          .seen = {.role = Role::button, .name = "Save", .actions = {Action::press}, .isDefault = true},
          .deeds = {{.request = {.action = Action::press}, .heard = {"pressed"}}}};
}

ControlFacts toggle() {
  return {.name = "toggle",
          .make =
              [](const Hear& hear) {
                auto toggle = std::make_unique<kit::Toggle>();
                toggle->setAction([hear](bool on) { hear(on ? "on" : "off"); });
                return toggle;
              },
          .seen = {.role = Role::toggle, .value = false, .actions = {Action::toggle}},
          .deeds = {{.request = {.action = Action::toggle}, .heard = {"on"}, .value = true}}};
}

ControlFacts checkBox() {
  ControlFacts facts = toggle();
  facts.name = "checkBox";
  facts.make = [make = facts.make](const Hear& hear) {
    auto box = make(hear);
    static_cast<kit::Toggle&>(*box).setStyle(kit::Toggle::Style::checkBox);
    static_cast<kit::Toggle&>(*box).setTitle("Download");
    return box;
  };
  facts.seen.name = "Download";
  return facts;
}

std::unique_ptr<kit::Control> makeProgressBar(std::optional<double> share) {
  auto bar = std::make_unique<kit::ProgressBar>();
  bar->setShare(share);
  return bar;
}

ControlFacts slider(const std::string& name, bool upsideDown) {
  return {.name = name,
          .make = [upsideDown](const Hear& hear) { return makeSlider(hear, upsideDown); },
          .seen = {.role = Role::slider,
                   .value = 50.0,
                   .range = kit::AccessibleRange{.least = 0, .most = 100, .step = 1},
                   .actions = {Action::increment, Action::decrement, Action::setValue}},
          .deeds = {{.request = {.action = Action::increment}, .heard = {"51.0"}, .value = 51.0},
                    {.request = {.action = Action::decrement}, .heard = {"49.0"}, .value = 49.0},
                    {.request = {.action = Action::setValue, .value = 12.5}, .heard = {"12.5"}, .value = 12.5},
                    {.request = {.action = Action::setValue, .value = -3.0}, .heard = {"0.0"}, .value = 0.0}}};
}

ControlFacts stepper() {
  return {.name = "stepper",
          .make =
              [](const Hear& hear) {
                auto stepper = std::make_unique<kit::Stepper>();
                stepper->setRange({.least = 0, .most = 10, .step = 2});
                stepper->setValue(5);
                stepper->setAction([hear](double value) { hear(core::decimalText(value)); });
                return stepper;
              },
          .seen = {.role = Role::stepper,
                   .value = 5.0,
                   .range = kit::AccessibleRange{.least = 0, .most = 10, .step = 2},
                   .actions = {Action::increment, Action::decrement, Action::setValue}},
          .deeds = {{.request = {.action = Action::increment}, .heard = {"7.0"}, .value = 7.0},
                    {.request = {.action = Action::decrement}, .heard = {"3.0"}, .value = 3.0},
                    {.request = {.action = Action::setValue, .value = 6.5}, .heard = {"6.5"}, .value = 6.5},
                    {.request = {.action = Action::setValue, .value = 1000.0}, .heard = {"10.0"}, .value = 10.0}}};
}

ControlFacts textField() {
  return {.name = "textField",
          .make =
              [](const Hear& hear) {
                auto field = std::make_unique<kit::TextField>();
                field->setText("0.25");
                field->setAction([hear](const std::string& text) { hear(text); });
                return field;
              },
          .seen = {.role = Role::textField, .value = "0.25", .actions = {Action::setValue}},
          // Typed, not committed.
          .deeds = {{.request = {.action = Action::setValue, .value = "0.3"}, .value = "0.3"}}};
}

ControlFacts popUpButton() {
  return {.name = "popUpButton",
          .make =
              [](const Hear& hear) {
                auto button = std::make_unique<kit::PopUpButton>();
                button->setItems({{.title = "Genie"}, {.title = "Scale & shrink"}, {.title = "Suck"}});
                return makeChoice(hear, std::move(button));
              },
          .seen = {.role = Role::popUpButton, .value = "Genie", .actions = {Action::showMenu, Action::choosePart}},
          .parts = {{.name = "Genie", .selected = true}, {.name = "Scale & shrink"}, {.name = "Suck"}},
          .deeds = {
              {.request = {.action = Action::showMenu}, .value = "Genie", .selected = 0},
              {.request = {.action = Action::choosePart, .part = 2}, .heard = {"2"}, .value = "Suck", .selected = 2}}};
}

ControlFacts tabBar() {
  return {.name = "tabBar",
          .make =
              [](const Hear& hear) {
                auto bar = std::make_unique<kit::TabBar>();
                bar->setItems({{.title = "Dock"}, {.title = "General"}});
                return makeChoice(hear, std::move(bar));
              },
          .seen = {.role = Role::tabBar, .actions = {Action::choosePart}},
          // They may be the toolbar of the window; each goes by its title.
          .takesName = false,
          .parts = {{.name = "Dock", .selected = true}, {.name = "General"}},
          .deeds = {{.request = {.action = Action::choosePart, .part = 1}, .heard = {"1"}, .selected = 1}}};
}

ControlFacts label() {
  return {.name = "label",
          .make =
              [](const Hear& /*hear*/) {
                auto label = std::make_unique<kit::TextLabel>();
                label->setText("Delay");
                return label;
              },
          .seen = {.role = Role::text, .name = "Delay"}};
}

ControlFacts richText() {
  return {
      .name = "richText",
      .make =
          [](const Hear& hear) {
            auto text = std::make_unique<kit::RichText>();
            using Style = kit::StyledText::Paragraph::Style;
            text->setText(
                {{{.style = Style::heading, .level = 2, .runs = {{.text = "What is new"}}},
                  {.style = Style::item, .level = 1, .runs = {{.text = "Less "}, {.text = "memory", .isBold = true}}},
                  {.runs = {{.text = "More in "},
                            {.text = "the notes", .link = "https://updates.invalid/notes"},
                            {.text = " and "},
                            {.text = "elsewhere", .link = "https://updates.invalid/else"}}}}});
            text->setLinkAction([hear](const std::string& link) { hear(link); });
            text->setAccessibleName("Release notes");
            return text;
          },
      .seen = {.role = Role::document,
               .name = "Release notes",
               .value = std::string("What is new\n• Less memory\nMore in the notes and elsewhere"),
               .actions = {Action::choosePart}},
      .parts = {{.name = "the notes"}, {.name = "elsewhere"}},
      .deeds = {{.request = {.action = Action::choosePart, .part = 1},
                 .heard = {"https://updates.invalid/else"},
                 .value = std::string("What is new\n• Less memory\nMore in the notes and elsewhere")}}};
}

}  // namespace

const std::vector<ControlFacts>& controlFacts() {
  static const std::vector<ControlFacts> facts = {
      button(),
      toggle(),
      checkBox(),
      slider("slider", false),
      slider("turnedSlider", true),
      stepper(),
      textField(),
      popUpButton(),
      tabBar(),
      label(),
      {.name = "progressBar",
       .make = [](const Hear& /*hear*/) { return makeProgressBar(0.25); },
       .seen = {.role = Role::progressBar, .value = 0.25, .range = kit::AccessibleRange{.least = 0, .most = 1}}},
      {.name = "progressBarOfUnknownShare",
       .make = [](const Hear& /*hear*/) { return makeProgressBar(std::nullopt); },
       .seen = {.role = Role::progressBar}},
      richText(),
      {.name = "namedSymbol",
       .make = [](const Hear& /*hear*/) { return makeSymbol("Timer"); },
       .seen = {.role = Role::image, .name = "Timer"}},
      {.name = "symbolBesideItsTitle",
       .make = [](const Hear& /*hear*/) { return makeSymbol(""); },
       .seen = {.role = Role::decoration}},
      {.name = "box",
       .make = [](const Hear& /*hear*/) { return std::make_unique<kit::Box>(kit::Box::Kind::group); },
       .seen = {.role = Role::decoration}},
      {.name = "pane",
       .make = [](const Hear& /*hear*/) { return std::make_unique<kit::Pane>(); },
       .seen = {.role = Role::group}},
      {.name = "scrollArea",
       .make = [](const Hear& /*hear*/) { return std::make_unique<kit::ScrollArea>(); },
       .seen = {.role = Role::group}}};
  return facts;
}

}  // namespace tarnwell::scenarios
