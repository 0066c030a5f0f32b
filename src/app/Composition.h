#pragma once

#include <memory>

#include "app/TarnwellApp.h"
#include "core/CommandRunner.h"
#include "kit/application/Application.h"
#include "view/scenes/SceneRunner.h"

namespace tarnwell::app {

/// The whole application put together on a platform: the application object, its environment and its scenes.
class Composition {
 public:
  /// Both are borrowed and outlive it. `runner` runs the command lines of the settings.
  Composition(kit::Platform& platform, core::CommandRunner& runner);
  Composition(const Composition&) = delete;
  Composition& operator=(const Composition&) = delete;

  /// Once: puts the scenes onto the platform, which opens the first window when it is ready.
  void install();

  kit::Application& application() { return *application_; }
  updates::UpdaterEnv& updaterEnv() { return *root_.updaterEnv(); }
  view::SceneRunner& scenes() { return scenes_; }

 private:
  std::shared_ptr<kit::Application> application_;
  TarnwellApp root_;
  view::SceneRunner scenes_;
  kit::Subscription reopening_;
};

/// Runs Tarnwell on `platform` until it ends; returns the status of the process. All that the program of a host calls.
int run(kit::Platform& platform);

}  // namespace tarnwell::app
