#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/StoredValue.h"

namespace tarnwell::commandline {

/// The dictionary that a property list is, read by the library that the system has for them.
class Dictionary {
 public:
  /// Nothing where `xml` is no property list, or one that is something else.
  static std::optional<Dictionary> read(std::string_view xml);

  core::StoredValue value(const std::string& key) const;

 private:
  explicit Dictionary(std::shared_ptr<const void> content) : content_(std::move(content)) {}

  std::shared_ptr<const void> content_;
};

}  // namespace tarnwell::commandline
