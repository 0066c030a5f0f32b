#pragma once

#include <any>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "kit/host/TextStyle.h"
#include "kit/menus/MenuItem.h"
#include "kit/turn/Action.h"
#include "kit/turn/NotificationCenter.h"
#include "view/values/Description.h"
#include "view/values/EnvironmentKeys.h"
#include "view/values/EnvironmentValues.h"
#include "view/values/Same.h"

namespace tarnwell::view {

/// A fixed or a least width, a fixed or a greatest height (points), and where the content stands in what it does not
/// fill.
struct Frame {
  std::optional<double> width = std::nullopt;
  std::optional<double> minWidth = std::nullopt;
  std::optional<double> height = std::nullopt;
  std::optional<double> maxHeight = std::nullopt;
  kit::TextAlignment alignment = kit::TextAlignment::center;
  friend bool operator==(const Frame&, const Frame&) = default;
};

/// An immutable description of a piece of the screen; a copy costs a reference count. Any kind of view converts to it,
/// and modifiers return a new one:
///
///     VStack{.children = {Text{"sec"}.asView().font(kit::FontRole::caption), TextField{.title = "Speed"}}}
class View {
 public:
  template <class V>
  requires(!std::same_as<V, View> && Mountable<V>) View(V value)
      : description_(std::make_shared<const ValueDescription<V>>(std::move(value))) {}

  const Description& description() const { return *description_; }

  /// The value of a view of kind `V`; null for any other kind.
  template <class V>
  const V* valueIf() const {
    const auto* found = dynamic_cast<const ValueDescription<V>*>(description_.get());
    return found != nullptr ? &found->value() : nullptr;
  }

  View frame(Frame frame) const;
  /// The ideal size, whatever the parent offers.
  View fixedSize() const;
  /// With that much room on each side, in points.
  View padding(double length) const;
  /// Another identity makes what stands here anew, with a new state and without the keyboard.
  View identity(int identity) const;

  /// Turns each slider below about its centre, by the nearest half turn; layout does not see it. Other controls stay.
  View rotation(double radians) const;

  /// Stands behind, in the middle, and takes no part in the size.
  View background(View background) const;

  /// Runs at every showing: when the window opens, and when the view is put into one that is open.
  View onAppear(kit::Action action) const;

  /// Runs after every change of `value`, whatever made it, with the new value; not for the value at mounting.
  template <class T>
  View onChange(T value, std::function<void(const T&)> action) const {
    return onChange(std::any(std::move(value)), &sameErased<T>, [action = std::move(action)](const std::any& changed) {
      action(std::any_cast<const T&>(changed));
    });
  }

  /// Calls `subscribe` when the view is mounted and ends the subscription when it goes. What it hands over is called
  /// within a turn, and reaches the handler of the newest description.
  View onReceive(std::function<kit::Subscription(kit::NotificationCenter::Handler)> subscribe,
                 kit::NotificationCenter::Handler handler) const;

  template <EnvironmentKey K>
  View environment(typename K::Value value) const {
    return environment([value = std::move(value)](const EnvironmentValues& outer) { return outer.with<K>(value); });
  }

  template <class O>
  View environmentObject(std::shared_ptr<O> object) const {
    return environment(
        [object = std::move(object)](const EnvironmentValues& outer) { return outer.withObject(object); });
  }

  View font(kit::FontRole font) const { return environment<FontKey>(font); }
  View foregroundStyle(kit::ColorRole color) const { return environment<ForegroundKey>(color); }
  View labelStyle(LabelStyle style) const { return environment<LabelStyleKey>(style); }
  View accessibilityLabel(std::string name) const { return environment<AccessibleNameKey>(std::move(name)); }
  /// For the entries of a menu.
  View keyboardShortcut(kit::MenuItem::KeyEquivalent equivalent) const {
    return environment<KeyEquivalentKey>(std::move(equivalent));
  }
  /// What is disabled stays disabled whatever stands below.
  View disabled(bool disabled) const;

 private:
  View onChange(std::any value, AnySame same, std::function<void(const std::any&)> action) const;
  View environment(std::function<EnvironmentValues(const EnvironmentValues&)> change) const;

  std::shared_ptr<const Description> description_;
};

}  // namespace tarnwell::view
