#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarnwell::host_headless {

/// What the application asked of the platform, in order.
class Journal {
 public:
  void note(std::string line) { notes_.push_back({.subject = std::make_shared<const std::string>(std::move(line))}); }
  /// "subject: what", where `what` lives for ever. Most lines are never read, and only those that are become text.
  void note(std::shared_ptr<const std::string> subject, std::string_view what) {
    notes_.push_back({.subject = std::move(subject), .what = what});
  }

  const std::vector<std::string>& lines() const {
    for (std::size_t i = lines_.size(); i < notes_.size(); ++i) {
      const auto& [subject, what] = notes_[i];
      lines_.push_back(what.empty() ? *subject : *subject + ": " + std::string(what));
    }
    return lines_;
  }

  void clear() {
    notes_.clear();
    lines_.clear();
  }

 private:
  struct Note {
    std::shared_ptr<const std::string> subject = {};
    std::string_view what = {};
  };

  std::vector<Note> notes_;
  mutable std::vector<std::string> lines_;  // the first of the notes
};

}  // namespace tarnwell::host_headless
