#pragma once

#include <string>

#include "kit/ports/Log.h"

namespace tarnwell::host_linux {

/// The system's journal, with subsystem and category as fields; where no journal listens, the older log, with both in
/// front of the message. Never waits: what a log that reads no more has no room for is lost.
class JournalLog final : public kit::Log {
 public:
  /// The name that both logs show.
  explicit JournalLog(std::string identifier);

  void error(const std::string& subsystem, const std::string& category, const std::string& message) override;

 private:
  std::string identifier_;
};

}  // namespace tarnwell::host_linux
