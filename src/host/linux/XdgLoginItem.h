#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "kit/ports/LoginItem.h"
#include "system/base/Result.h"

namespace tarnwell::host_linux {

/// The application among the programs that a desktop starts at login: `autostart/ID.desktop` in the user's
/// configuration folder. Desktops and users edit that file as well, so it is read each time, and what we did not write
/// stays in it: a file that is ours alone is removed, an edited one is only switched off. Registering puts right what
/// would keep the entry from starting the application where it is now, and nothing else.
class XdgLoginItem final : public kit::LoginItem {
 public:
  struct Program {
    std::string id = {};
    std::string name = {};
    /// Absolute.
    std::filesystem::path executable = {};
    /// With which it learns that it was started at login.
    std::string argument = {};
  };

  explicit XdgLoginItem(Program program) : program_(std::move(program)) {}

  /// Not found where the entry is on but the program that it starts, or asks for, has gone.
  Status status() const override;
  std::optional<std::string> registerItem() override;
  std::optional<std::string> unregisterItem() override;

  /// "autostart" in XDG_CONFIG_HOME or, where that is unset or not absolute, in ~/.config.
  static system::Result<std::filesystem::path> folder();

 private:
  system::Result<void> tryRegister() const;
  system::Result<void> tryUnregister() const;
  system::Result<std::filesystem::path> file() const;
  system::Result<std::string> execLine() const;
  std::string ownText(const std::string& exec) const;

  Program program_;
};

}  // namespace tarnwell::host_linux
