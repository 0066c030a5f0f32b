#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tarnwell::host_headless {

/// What the application asked of the platform, in order.
class Journal {
 public:
  void note(std::string line) { lines_.push_back(std::move(line)); }
  const std::vector<std::string>& lines() const { return lines_; }
  void clear() { lines_.clear(); }

 private:
  std::vector<std::string> lines_;
};

}  // namespace tarnwell::host_headless
