#pragma once

#include <memory>
#include <string>

#include "kit/application/MenuItem.h"
#include "kit/application/Product.h"
#include "kit/host/TextStyle.h"
#include "kit/ports/NumberFormat.h"
#include "kit/ports/OpenUrl.h"
#include "kit/ports/SystemVersion.h"

namespace tarnwell::view {

struct FontKey {
  using Value = kit::FontRole;
  static Value initial() { return kit::FontRole::body; }
};

struct ForegroundKey {
  using Value = kit::ColorRole;
  static Value initial() { return kit::ColorRole::primary; }
};

struct EnabledKey {
  using Value = bool;
  static Value initial() { return true; }
};

enum class LabelStyle { titleAndIcon, iconOnly };

struct LabelStyleKey {
  using Value = LabelStyle;
  static Value initial() { return LabelStyle::titleAndIcon; }
};

/// What a screen reader calls the controls below; empty leaves them their own titles.
struct AccessibleNameKey {
  using Value = std::string;
  static Value initial() { return {}; }
};

/// Radians by which each slider below is turned about its own centre.
struct RotationKey {
  using Value = double;
  static Value initial() { return 0; }
};

struct KeyEquivalentKey {
  using Value = kit::MenuItem::KeyEquivalent;
  static Value initial() { return {}; }
};

/// Null outside an application; a view that shows a number needs one.
struct NumberFormatKey {
  using Value = std::shared_ptr<const kit::NumberFormat>;
  static Value initial() { return nullptr; }
};

/// Does nothing outside an application.
struct OpenUrlKey {
  using Value = kit::OpenUrl;
  static Value initial() {
    return [](const std::string&) {};
  }
};

/// Without a name outside an application.
struct ProductKey {
  using Value = kit::Product;
  static Value initial() { return {}; }
};

struct SystemVersionKey {
  using Value = kit::SystemVersion;
  static Value initial() { return {}; }
};

}  // namespace tarnwell::view
