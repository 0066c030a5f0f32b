#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "kit/host/Geometry.h"

namespace tarnwell::kit {

/// What an object was saved as: named values, under the names that the platform's keyed archives have (`NSCoder`).
class Coder {
 public:
  using Values = std::map<std::string, std::variant<int, double, Rect>, std::less<>>;

  explicit Coder(Values values) : values_(std::move(values)) {}

  /// The value of that name; `otherwise` where there is none, or one of another type.
  template <class T>
  T decode(std::string_view name, T otherwise) const {
    const auto entry = values_.find(name);
    const T* value = entry != values_.end() ? std::get_if<T>(&entry->second) : nullptr;
    return value != nullptr ? *value : otherwise;
  }

 private:
  Values values_;
};

}  // namespace tarnwell::kit
