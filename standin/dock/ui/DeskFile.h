#pragma once

#include <string>

#include "standin/dock/model/Desk.h"

namespace tarnwell::standin {

/// Keeps what became of the demonstration applications, so that they outlive the dock as real ones do. Losing it costs
/// nothing but the places of a few windows: a file that cannot be read or written is passed over.
class DeskFile {
 public:
  explicit DeskFile(std::string path);

  void restore(Desk& desk) const;
  void save(const Desk& desk) const;

 private:
  std::string path_;
};

}  // namespace tarnwell::standin
