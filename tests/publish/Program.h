#pragma once

#include <string>

namespace tarnwell::publish {

/// What `make-feed` printed, errors included, and its exit status.
struct ProgramEnd {
  std::string output = {};
  int status = -1;
};

/// Runs it with these arguments, as a shell splits them; that does what stands `before` first.
ProgramEnd makeFeed(const std::string& arguments, const std::string& before = "");

}  // namespace tarnwell::publish
