#pragma once

#include <string>
#include <vector>

#include "kit/ports/Log.h"

namespace tarnwell::host_headless {

/// Keeps what was logged.
class HeadlessLog final : public kit::Log {
 public:
  struct Line {
    std::string subsystem = {};
    std::string category = {};
    std::string message = {};
    friend bool operator==(const Line&, const Line&) = default;
  };

  const std::vector<Line>& lines() const { return lines_; }

  void error(const std::string& subsystem, const std::string& category, const std::string& message) override {
    lines_.push_back({.subsystem = subsystem, .category = category, .message = message});
  }

 private:
  std::vector<Line> lines_;
};

}  // namespace tarnwell::host_headless
