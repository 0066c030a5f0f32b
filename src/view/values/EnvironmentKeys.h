#pragma once

#include <functional>
#include <memory>
#include <string>

#include "kit/application/Product.h"
#include "kit/host/TextStyle.h"
#include "kit/menus/MenuItem.h"
#include "kit/ports/NumberFormat.h"
#include "kit/ports/SystemVersion.h"

namespace tarnwell::view {

/// A key of that type; where no view above set a value, its first or empty one is read.
template <class V>
struct KeyOf {
  using Value = V;
  static Value initial() { return {}; }
};

/// The body's, unless set.
struct FontKey : KeyOf<kit::FontRole> {};

/// Primary, unless set.
struct ForegroundKey : KeyOf<kit::ColorRole> {};

struct EnabledKey {
  using Value = bool;
  static Value initial() { return true; }
};

enum class LabelStyle { titleAndIcon, iconOnly };

struct LabelStyleKey : KeyOf<LabelStyle> {};

/// What a screen reader calls the controls below; empty leaves them their own titles.
struct AccessibleNameKey : KeyOf<std::string> {};

/// Radians by which each slider below is turned about its own centre.
struct RotationKey : KeyOf<double> {};

struct KeyEquivalentKey : KeyOf<kit::MenuItem::KeyEquivalent> {};

/// Null outside an application; a view that shows a number needs one.
struct NumberFormatKey : KeyOf<std::shared_ptr<const kit::NumberFormat>> {};

/// Does nothing outside an application.
struct OpenUrlKey {
  using Value = std::function<void(const std::string& address)>;
  static Value initial() {
    return [](const std::string&) {};
  }
};

/// Without a name outside an application.
struct ProductKey : KeyOf<kit::Product> {};

struct SystemVersionKey : KeyOf<kit::SystemVersion> {};

}  // namespace tarnwell::view
