#include <cstdlib>
#include <stdexcept>

#include "host/macos/MacHost.h"
#include "host/macos/Toolkit.h"
#include "host/macos/ViewDriver.h"
#include "host/macos/look/Conversions.h"
#include "kit/control/Window.h"
#include "kit/controls/PopUpButton.h"
#include "kit/controls/RichText.h"
#include "kit/controls/Slider.h"
#include "kit/controls/Stepper.h"
#include "kit/controls/TabBar.h"
#include "kit/controls/TextField.h"
#include "kit/controls/TextLabel.h"
#include "kit/controls/Toggle.h"
#include "scenarios/Driver.h"

namespace tarnwell::scenarios {
namespace {

namespace driver = host_macos::driver;
using host_macos::toNSString;
using host_macos::toString;

NSString* charactersOf(Key key) {
  switch (key) {
    case Key::enter:
      return @"\r";
    case Key::escape:
      return @"\x1b";
    case Key::tab:
      return @"\t";
    case Key::space:
      return @" ";
  }
  throw std::logic_error("no such key");
}

NSString* arrow(bool toTheLeft) {
  const unichar character = toTheLeft ? NSLeftArrowFunctionKey : NSRightArrowFunctionKey;
  return [NSString stringWithCharacters:&character length:1];
}

// What the platform's accessibility makes of a view, as far as the view itself knows it.

kit::AccessibleRole roleOf(NSView* view) {
  using Role = kit::AccessibleRole;
  static const std::vector<std::pair<Class, Role>> roles = {{[NSPopUpButton class], Role::popUpButton},
                                                            {[NSSwitch class], Role::toggle},
                                                            {[NSSlider class], Role::slider},
                                                            {[NSStepper class], Role::stepper},
                                                            {[NSImageView class], Role::image},
                                                            {[NSTextView class], Role::document},
                                                            {[NSProgressIndicator class], Role::progressBar}};
  if (![view isAccessibilityElement]) {
    return Role::decoration;
  }
  for (const auto& [kind, role] : roles) {
    if ([view isKindOfClass:kind]) {
      return role;
    }
  }
  if ([view isKindOfClass:[NSButton class]]) {
    return [static_cast<NSButtonCell*>([static_cast<NSButton*>(view) cell]) showsStateBy] != 0 ? Role::toggle
                                                                                               : Role::button;
  }
  if ([view isKindOfClass:[NSTextField class]]) {
    return [static_cast<NSTextField*>(view) isEditable] ? Role::textField : Role::text;
  }
  return Role::group;
}

std::string nameOf(NSView* view, kit::AccessibleRole role) {
  if (NSString* label = [view accessibilityLabel]) {
    return toString(label);
  }
  if (role == kit::AccessibleRole::text) {
    return toString([static_cast<NSTextField*>(view) stringValue]);
  }
  return [view isKindOfClass:[NSButton class]] && role != kit::AccessibleRole::popUpButton
             ? toString([static_cast<NSButton*>(view) title])
             : "";
}

kit::AccessibleValue valueOf(NSView* view, kit::AccessibleRole role) {
  using Role = kit::AccessibleRole;
  switch (role) {
    case Role::toggle:
      return [static_cast<NSButton*>(view) state] == NSControlStateValueOn;
    case Role::slider:
    case Role::stepper:
      return [static_cast<NSControl*>(view) doubleValue];
    case Role::progressBar:
      return [static_cast<NSProgressIndicator*>(view) isIndeterminate]
                 ? kit::AccessibleValue()
                 : kit::AccessibleValue([static_cast<NSProgressIndicator*>(view) doubleValue]);
    case Role::popUpButton:
      return toString([static_cast<NSPopUpButton*>(view) titleOfSelectedItem]);
    case Role::textField: {
      NSText* editor = [static_cast<NSTextField*>(view) currentEditor];
      return toString(editor != nil ? [editor string] : [static_cast<NSTextField*>(view) stringValue]);
    }
    case Role::document:
      return toString([static_cast<NSTextView*>(view) string]);
    default:
      return {};
  }
}

std::optional<kit::AccessibleRange> rangeOf(NSView* view, kit::AccessibleRole role) {
  using Role = kit::AccessibleRole;
  if (role == Role::slider) {
    auto* slider = static_cast<NSSlider*>(view);
    const double range = [slider maxValue] - [slider minValue];
    return kit::AccessibleRange{
        .least = [slider minValue], .most = [slider maxValue], .step = kit::Slider::arrowStep * range};
  }
  if (role == Role::stepper) {
    auto* stepper = static_cast<NSStepper*>(view);
    return kit::AccessibleRange{.least = [stepper minValue], .most = [stepper maxValue], .step = [stepper increment]};
  }
  if (role == Role::progressBar && ![static_cast<NSProgressIndicator*>(view) isIndeterminate]) {
    auto* bar = static_cast<NSProgressIndicator*>(view);
    return kit::AccessibleRange{.least = [bar minValue], .most = [bar maxValue]};
  }
  return std::nullopt;
}

/// The links of a text, each with its place.
std::vector<NSRange> linksIn(NSTextView* view) {
  std::vector<NSRange> links;
  NSTextStorage* text = [view textStorage];
  for (NSUInteger at = 0; at < [text length];) {
    NSRange run;
    if ([text attribute:NSLinkAttributeName
                          atIndex:at
            longestEffectiveRange:&run
                          inRange:NSMakeRange(0, [text length])] != nil) {
      links.push_back(run);
    }
    at = NSMaxRange(run);
  }
  return links;
}

std::vector<kit::AccessibleAction> actionsOf(NSView* view, kit::AccessibleRole role) {
  using Action = kit::AccessibleAction;
  using Role = kit::AccessibleRole;
  switch (role) {
    case Role::button:
      return {Action::press};
    case Role::toggle:
      return {Action::toggle};
    case Role::slider:
    case Role::stepper:
      return {Action::increment, Action::decrement, Action::setValue};
    case Role::textField:
      return {Action::setValue};
    case Role::popUpButton:
      return {Action::showMenu, Action::choosePart};
    case Role::document:
      return linksIn(static_cast<NSTextView*>(view)).empty() ? std::vector<Action>() : std::vector{Action::choosePart};
    default:
      return {};
  }
}

bool isEnabled(NSView* view) {
  return ![view isKindOfClass:[NSControl class]] || [static_cast<NSControl*>(view) isEnabled];
}

bool isDefault(NSView* view) {
  return [view isKindOfClass:[NSButton class]] && [[static_cast<NSButton*>(view) keyEquivalent] isEqualToString:@"\r"];
}

kit::Accessible lookAt(NSView* view) {
  const kit::AccessibleRole role = roleOf(view);
  return {.role = role,
          .name = nameOf(view, role),
          .value = valueOf(view, role),
          .range = rangeOf(view, role),
          .actions = actionsOf(view, role),
          .isDefault = isDefault(view),
          .isEnabled = isEnabled(view)};
}

std::vector<kit::AccessiblePart> rowsOf(NSPopUpButton* button) {
  std::vector<kit::AccessiblePart> rows;
  for (NSInteger i = 0; i < [button numberOfItems]; ++i) {
    rows.push_back({.name = toString([button itemTitleAtIndex:i]), .selected = i == [button indexOfSelectedItem]});
  }
  return rows;
}

std::vector<kit::AccessiblePart> linkNamesOf(NSTextView* view) {
  std::vector<kit::AccessiblePart> names;
  for (const NSRange& link : linksIn(view)) {
    names.push_back({.name = toString([[view string] substringWithRange:link])});
  }
  return names;
}

std::vector<kit::AccessiblePart> tabsOf(NSToolbar* toolbar) {
  std::vector<kit::AccessiblePart> tabs;
  NSArray* items = [toolbar items];
  for (NSUInteger i = 0; i < [items count]; ++i) {
    NSToolbarItem* item = [items objectAtIndex:i];
    const bool chosen = [[item itemIdentifier] isEqualToString:[toolbar selectedItemIdentifier]];
    tabs.push_back({.name = toString([item label]), .selected = chosen});
  }
  return tabs;
}

// What the platform's accessibility does to a view.

void follow(NSTextView* view, int index) {
  const NSUInteger at = linksIn(view).at(static_cast<std::size_t>(index)).location;
  [view clickedOnLink:[[view textStorage] attribute:NSLinkAttributeName atIndex:at effectiveRange:nullptr] atIndex:at];
}

void setValue(NSControl* control, double value) {
  [control setDoubleValue:value];
  [control sendAction:[control action] to:[control target]];
}

void performOn(NSControl* control, const kit::Accessible& seen, const kit::AccessibleRequest& request) {
  switch (request.action) {
    case kit::AccessibleAction::press:
    case kit::AccessibleAction::toggle:
      [control performClick:nil];
      break;
    case kit::AccessibleAction::increment:
      setValue(control, [control doubleValue] + seen.range->step);
      break;
    case kit::AccessibleAction::decrement:
      setValue(control, [control doubleValue] - seen.range->step);
      break;
    case kit::AccessibleAction::setValue:
      setValue(control, std::get<double>(request.value));
      break;
    default:
      throw std::invalid_argument("GNUstep does not show a menu and go on");
  }
}

class MacDriver final : public Driver {
 public:
  MacDriver() { host_macos::startToolkit(); }

  kit::Host& host() override { return host_; }

  void click(kit::Control& control) override { driver::click(control); }
  void drag(kit::Slider& slider, double place) override { driver::drag(slider, place); }

  void nudge(kit::Slider& slider, int steps) override {
    driver::focus(slider);
    for (int i = 0; i < std::abs(steps); ++i) {
      driver::key(*slider.window(), arrow(steps < 0));
    }
  }

  void type(kit::TextField& field, const std::string& text) override { driver::type(field, text); }
  void stepUp(kit::Stepper& stepper) override { driver::clickAt(stepper, 0.5, 0.25); }
  void stepDown(kit::Stepper& stepper) override { driver::clickAt(stepper, 0.5, 0.75); }
  void choose(kit::PopUpButton& button, int index) override { driver::choose(button, index); }
  void chooseTab(kit::TabBar& bar, int index) override { driver::clickTab(bar, index); }

  void pressKey(kit::Window& window, kit::Control& control, Key key) override {
    driver::focus(control);
    pressKey(window, key);
  }
  void pressKey(kit::Window& window, Key key) override { driver::key(window, charactersOf(key)); }

  kit::Accessible look(kit::Control& control) override {
    if (dynamic_cast<kit::TabBar*>(&control) != nullptr) {
      return {.role = kit::AccessibleRole::tabBar, .actions = {kit::AccessibleAction::choosePart}};
    }
    return lookAt(driver::view(control));
  }

  std::vector<kit::AccessiblePart> parts(kit::Control& control) override {
    if (dynamic_cast<kit::TabBar*>(&control) != nullptr) {
      return tabsOf([driver::window(*control.window()) toolbar]);
    }
    NSView* view = driver::view(control);
    switch (roleOf(view)) {
      case kit::AccessibleRole::popUpButton:
        return rowsOf(static_cast<NSPopUpButton*>(view));
      case kit::AccessibleRole::document:
        return linkNamesOf(static_cast<NSTextView*>(view));
      default:
        return {};
    }
  }

  void perform(kit::Control& control, const kit::AccessibleRequest& request) override {
    if (auto* bar = dynamic_cast<kit::TabBar*>(&control)) {
      return driver::clickTab(*bar, request.part);
    }
    NSView* view = driver::view(control);
    if (!isEnabled(view)) {
      return;
    }
    const kit::Accessible seen = lookAt(view);
    if (seen.role == kit::AccessibleRole::textField) {
      driver::type(static_cast<kit::TextField&>(control), std::get<std::string>(request.value));
    } else if (request.action != kit::AccessibleAction::choosePart) {
      performOn(static_cast<NSControl*>(view), seen, request);
    } else if (seen.role == kit::AccessibleRole::popUpButton) {
      driver::choose(static_cast<kit::PopUpButton&>(control), request.part);
    } else {
      follow(static_cast<NSTextView*>(view), request.part);
    }
  }

 private:
  host_macos::MacHost host_;
};

}  // namespace

std::unique_ptr<Driver> makeDriver() { return std::make_unique<MacDriver>(); }

}  // namespace tarnwell::scenarios
