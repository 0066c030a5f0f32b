#include "host/macos/SeenView.h"

#include <optional>
#include <stdexcept>
#include <utility>

#include "host/macos/look/Conversions.h"
#include "kit/controls/ranges/Slider.h"

namespace tarnwell::host_macos {
namespace {

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
  return [view isKindOfClass:[NSControl class]] ? [static_cast<NSControl*>(view) isEnabled]
                                                : [view isAccessibilityEnabled];
}

bool isDefault(NSView* view) {
  return [view isKindOfClass:[NSButton class]] && [[static_cast<NSButton*>(view) keyEquivalent] isEqualToString:@"\r"];
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

void setValue(NSControl* control, double value) {
  [control setDoubleValue:value];
  [control sendAction:[control action] to:[control target]];
}

// A menu is followed until a button of the mouse goes up.
void openAndClose(NSPopUpButton* button) {
  NSWindow* window = [button window];
  [NSApp postEvent:[NSEvent mouseEventWithType:NSEventTypeLeftMouseUp
                                      location:NSZeroPoint
                                 modifierFlags:0
                                     timestamp:0
                                  windowNumber:[window windowNumber]
                                       context:nil
                                   eventNumber:0
                                    clickCount:1
                                      pressure:0]
           atStart:NO];
  // The row under the pointer is the chosen one, which is not to be told.
  const SEL action = [button action];
  [button setAction:nullptr];
  [button performClick:nil];
  [button setAction:action];
}

}  // namespace

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

kit::Accessible lookAt(NSToolbar* toolbar) {
  bool isEnabled = false;
  NSArray* items = [toolbar items];
  for (NSUInteger i = 0; i < [items count]; ++i) {
    isEnabled = isEnabled || [static_cast<NSToolbarItem*>([items objectAtIndex:i]) isEnabled];
  }
  return {.role = kit::AccessibleRole::tabBar, .actions = {kit::AccessibleAction::choosePart}, .isEnabled = isEnabled};
}

std::vector<kit::AccessiblePart> partsOf(NSView* view) {
  switch (roleOf(view)) {
    case kit::AccessibleRole::popUpButton:
      return rowsOf(static_cast<NSPopUpButton*>(view));
    case kit::AccessibleRole::document:
      return linkNamesOf(static_cast<NSTextView*>(view));
    default:
      return {};
  }
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
    case kit::AccessibleAction::showMenu:
      openAndClose(static_cast<NSPopUpButton*>(control));
      break;
    default:
      throw std::invalid_argument("a part is chosen by other ways");
  }
}

void follow(NSTextView* view, int index) {
  const NSUInteger at = linksIn(view).at(static_cast<std::size_t>(index)).location;
  [view clickedOnLink:[[view textStorage] attribute:NSLinkAttributeName atIndex:at effectiveRange:nullptr] atIndex:at];
}

}  // namespace tarnwell::host_macos
