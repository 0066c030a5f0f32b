#pragma once

#include <filesystem>

#include "system/processes/ChildReaper.h"
#include "updateclient/engine/Engine.h"
#include "updateclient/engine/Watch.h"

namespace tarnwell::updateclient {

/// The engine that lies beside this program.
class EngineProcess final : public Engine {
 public:
  EngineProcess(std::filesystem::path program, Watch watch);

  system::Result<std::unique_ptr<Job>> start(const Order& order, Listener listener) override;

 private:
  class Run;

  std::filesystem::path program_;
  Watch watch_;
  system::ChildReaper ended_;
  kit::Subscription reaping_;
};

}  // namespace tarnwell::updateclient
