#include "host/macos/SeenView.h"

#include <optional>
#include <stdexcept>
#include <utility>

#include "host/macos/Frameworks.h"
#include "host/macos/look/Conversions.h"
#include "host/macos/look/FlippedView.h"

namespace tarnwell::host_macos {
namespace {

using Action = kit::AccessibleAction;
using Role = kit::AccessibleRole;

// A control of the platform's may leave it to its cell. Nil for what is left out.
id elementOf(NSView* view) {
  if ([view isAccessibilityElement]) {
    return view;
  }
  NSCell* cell = [view isKindOfClass:[NSControl class]] ? [static_cast<NSControl*>(view) cell] : nil;
  return [cell isAccessibilityElement] ? cell : nil;
}

Role roleOf(NSView* view) {
  static const std::vector<std::pair<NSString*, Role>> roles = {
      {NSAccessibilityButtonRole, Role::button},
      {NSAccessibilityCheckBoxRole, Role::toggle},
      {NSAccessibilityGroupRole, Role::group},
      {NSAccessibilityImageRole, Role::image},
      {NSAccessibilityIncrementorRole, Role::stepper},
      {NSAccessibilityPopUpButtonRole, Role::popUpButton},
      {NSAccessibilityProgressIndicatorRole, Role::progressBar},
      {NSAccessibilityScrollAreaRole, Role::group},
      {NSAccessibilitySliderRole, Role::slider},
      {NSAccessibilityStaticTextRole, Role::text},
      {NSAccessibilityTextAreaRole, Role::document},
      {NSAccessibilityTextFieldRole, Role::textField}};
  id element = elementOf(view);
  if (element == nil) {
    // What is a ground alone is left out, and what stands on it is not.
    return [view isKindOfClass:[TWFlippedView class]] ? Role::group : Role::decoration;
  }
  for (const auto& [told, role] : roles) {
    if ([[element accessibilityRole] isEqualToString:told]) {
      return role;
    }
  }
  throw std::invalid_argument("no control is a " + toString([element accessibilityRole]));
}

std::string nameOf(id element, Role role) {
  const std::string label = toString([element accessibilityLabel]);
  if (!label.empty()) {
    return label;
  }
  return toString(role == Role::text ? [element accessibilityValue] : [element accessibilityTitle]);
}

kit::AccessibleValue valueOf(id element, Role role) {
  id value = [element accessibilityValue];
  switch (role) {
    case Role::toggle:
      return [value boolValue] == YES;
    case Role::slider:
    case Role::stepper:
    case Role::progressBar:
      return value != nil ? kit::AccessibleValue([value doubleValue]) : kit::AccessibleValue();
    case Role::popUpButton:
    case Role::textField:
    case Role::document:
      return toString(value);
    default:
      return {};
  }
}

std::optional<kit::AccessibleRange> rangeOf(id element) {
  NSNumber* least = [element accessibilityMinValue];
  NSNumber* most = [element accessibilityMaxValue];
  if (least == nil || most == nil || [element accessibilityValue] == nil) {
    return std::nullopt;
  }
  return kit::AccessibleRange{.least = [least doubleValue], .most = [most doubleValue]};
}

bool allows(id element, SEL request) { return [element isAccessibilitySelectorAllowed:request] == YES; }

Action pressOf(Role role) {
  if (role == Role::toggle) {
    return Action::toggle;
  }
  return role == Role::popUpButton ? Action::showMenu : Action::press;
}

std::vector<Action> actionsOf(id element, Role role) {
  std::vector<Action> actions;
  const auto add = [&](SEL request, Action action) {
    if (allows(element, request)) {
      actions.push_back(action);
    }
  };
  add(@selector(accessibilityPerformPress), pressOf(role));
  add(@selector(accessibilityPerformIncrement), Action::increment);
  add(@selector(accessibilityPerformDecrement), Action::decrement);
  add(@selector(setAccessibilityValue:), Action::setValue);
  return actions;
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
    at = run.location + run.length;
  }
  return links;
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

id objectOf(const kit::AccessibleValue& value) {
  if (const auto* number = std::get_if<double>(&value)) {
    return [NSNumber numberWithDouble:*number];
  }
  return toNSString(std::get<std::string>(value));
}

}  // namespace

kit::Accessible lookAt(NSView* view) {
  const Role role = roleOf(view);
  id element = elementOf(view);
  if (element == nil) {
    return {
        .role = role, .name = toString([view accessibilityLabel]), .isEnabled = [view isAccessibilityEnabled] == YES};
  }
  kit::Accessible seen = {.role = role,
                          .name = nameOf(element, role),
                          .value = valueOf(element, role),
                          .range = rangeOf(element),
                          .actions = actionsOf(element, role),
                          .isDefault = isDefault(view),
                          .isEnabled = [element isAccessibilityEnabled] == YES};
  if (!partsOf(view).empty()) {
    seen.actions.push_back(Action::choosePart);
  }
  return seen;
}

kit::Accessible lookAt(NSToolbar* toolbar) {
  bool isEnabled = false;
  NSArray* items = [toolbar items];
  for (NSUInteger i = 0; i < [items count]; ++i) {
    isEnabled = isEnabled || [static_cast<NSToolbarItem*>([items objectAtIndex:i]) isEnabled];
  }
  return {.role = Role::tabBar, .actions = {Action::choosePart}, .isEnabled = isEnabled};
}

std::vector<kit::AccessiblePart> partsOf(NSView* view) {
  if ([view isKindOfClass:[NSPopUpButton class]]) {
    return rowsOf(static_cast<NSPopUpButton*>(view));
  }
  return [view isKindOfClass:[NSTextView class]] ? linkNamesOf(static_cast<NSTextView*>(view))
                                                 : std::vector<kit::AccessiblePart>();
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

void performOn(NSView* view, const kit::AccessibleRequest& request) {
  id element = elementOf(view);
  switch (request.action) {
    case Action::press:
    case Action::toggle:
      [element accessibilityPerformPress];
      break;
    case Action::increment:
      [element accessibilityPerformIncrement];
      break;
    case Action::decrement:
      [element accessibilityPerformDecrement];
      break;
    case Action::setValue:
      [element setAccessibilityValue:objectOf(request.value)];
      break;
    case Action::showMenu:
      if ([element isAccessibilityEnabled]) {
        frameworks::openAndClose(static_cast<NSPopUpButton*>(view));
      }
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
