#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/Composition.h"
#include "fakes/RecordingCommandRunner.h"
#include "kit/control/Control.h"
#include "view/scenes/HostedWindow.h"

namespace tarnwell::app {

/// The whole application on any platform, over a runner that answers from a table: a Dock at its defaults.
class RunningApplication {
 public:
  /// The platform is borrowed.
  explicit RunningApplication(kit::Platform& platform);

  /// Puts its scenes onto the platform.
  void install() { composition_->install(); }

  /// Null before it was opened for the first time.
  view::HostedWindow* settingsWindow() const { return composition_->scenes().settingsWindow(); }
  kit::Window& settings() const { return settingsWindow()->window(); }
  /// Of the settings, by the name that a screen reader says.
  kit::Control& control(const std::string& name) const;
  bool has(const std::string& name) const;
  /// The commands that read since the last call.
  std::vector<std::string> reads();

  kit::Application& application() { return composition_->application(); }
  updates::UpdaterEnv& updaterEnv() { return composition_->updaterEnv(); }
  view::SceneRunner& scenes() { return composition_->scenes(); }
  fakes::RecordingCommandRunner& runner() { return runner_; }

 private:
  fakes::RecordingCommandRunner runner_;
  std::unique_ptr<Composition> composition_;
};

}  // namespace tarnwell::app
