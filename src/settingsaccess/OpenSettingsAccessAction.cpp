#include "settingsaccess/OpenSettingsAccessAction.h"

#include <utility>

#include "kit/application/Platform.h"
#include "settingsaccess/LegacyOpener.h"
#include "settingsaccess/OpenSettingsError.h"

namespace tarnwell::settingsaccess {
namespace {

using OptionalAction = std::optional<kit::Action>;

view::Binding<OptionalAction> constantNone() {
  return {.get = [] { return OptionalAction(); }, .set = [](const OptionalAction&) {}};
}

OpenSettingsError translated(LegacyOpenSettingsError error) {
  return error == LegacyOpenSettingsError::selectorNotFound ? OpenSettingsError::selectorNotFound
                                                            : OpenSettingsError::unsupportedPlatform;
}

/// Legacy failures under their new name, all others as they are.
std::exception_ptr translated(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const Failure<LegacyOpenSettingsError>& legacy) {
    return std::make_exception_ptr(Failure(translated(legacy.error())));
  } catch (...) {
    return failure;
  }
}

}  // namespace

std::shared_ptr<OpenSettingsAccessAction> OpenSettingsAccessAction::create(kit::Application& application) {
  std::shared_ptr<OpenSettingsAccessAction> action(new OpenSettingsAccessAction);
  action->closureBinding = constantNone();
  if (application.platform().systemVersion() >= kit::SystemVersion{.major = 14}) {
    action->closureBinding = action->liveBinding();
  } else {
    action->closure = [&application] {
      const auto error = openSettingsThroughDelegate(application);
      return error ? std::make_exception_ptr(Failure(*error)) : nullptr;
    };
  }
  return action;
}

std::exception_ptr OpenSettingsAccessAction::operator()() const {
  // A copy: what it does may connect another.
  const FallibleAction connected = closure;
  if (!connected) {
    return std::make_exception_ptr(Failure(OpenSettingsError::settingsLinkNotConnected));
  }
  const std::exception_ptr failure = connected();
  return failure ? translated(failure) : nullptr;
}

view::Binding<OptionalAction> OpenSettingsAccessAction::liveBinding() {
  const auto get = [weak = weak_from_this()]() -> OptionalAction {
    const auto self = weak.lock();
    if (!self || !self->closure) {
      return std::nullopt;
    }
    return [closure = self->closure] { closure(); };
  };
  const auto set = [weak = weak_from_this()](const OptionalAction& action) {
    const auto self = weak.lock();
    if (!self) {
      return;
    }
    self->closure = nullptr;
    if (action) {
      self->closure = [action = *action]() -> std::exception_ptr {
        action();
        return nullptr;
      };
    }
  };
  return {.get = get, .set = set};
}

}  // namespace tarnwell::settingsaccess
