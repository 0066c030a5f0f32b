#pragma once

#include <array>
#include <string_view>

#include "profile/exports/Formats.h"

namespace tarnwell::profile {

/// What one target alone makes something of.
enum class OwnOption { none, identifier, restart };

struct Target {
  /// What it is called on the command line.
  std::string_view name;
  /// One line that says what takes it.
  std::string_view purpose;
  /// Fails where the options lack what the target needs.
  system::Result<Export> (*write)(const Profile& profile, const ExportOptions& options);
  OwnOption option = OwnOption::none;
};

/// In the order in which they are listed.
extern const std::array<Target, 8> targets;

}  // namespace tarnwell::profile
