#include "commandline/commands/Session.h"

#include "profile/values/Setting.h"

namespace tarnwell::commandline {
namespace {

constexpr int firstWithoutSingleApp = 15;

}  // namespace

bool Session::knows(std::size_t setting) const {
  return profile::settings.at(setting).gate == core::Gate::everySystem || system.front() < firstWithoutSingleApp;
}

std::string noEffectText(std::size_t setting) {
  return std::string(profile::settings.at(setting).key) + " has no effect from macOS " +
         std::to_string(firstWithoutSingleApp) + " on";
}

}  // namespace tarnwell::commandline
