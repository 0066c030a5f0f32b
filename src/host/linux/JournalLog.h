#pragma once

#include <string>

#include "kit/ports/Log.h"

namespace tarnwell::host_linux {

/// The system's journal, with subsystem and category as fields; where no journal listens, the older log, with both in
/// front of the message. One at a time: the older log keeps one name for the whole process.
class JournalLog final : public kit::Log {
 public:
  /// The name that both logs show.
  explicit JournalLog(std::string identifier);
  JournalLog(const JournalLog&) = delete;
  JournalLog& operator=(const JournalLog&) = delete;
  ~JournalLog() override;

  void error(const std::string& subsystem, const std::string& category, const std::string& message) override;

 private:
  std::string identifier_;
};

}  // namespace tarnwell::host_linux
