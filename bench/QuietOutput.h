#pragma once

#include <fstream>
#include <streambuf>

namespace tarnwell::bench {

/// While it lives, what the application prints on standard output is lost, and what is written to `std::cout` is not:
/// the report of a benchmark stays readable.
class QuietOutput {
 public:
  QuietOutput();
  QuietOutput(const QuietOutput&) = delete;
  QuietOutput& operator=(const QuietOutput&) = delete;
  ~QuietOutput();

 private:
  int terminal_ = -1;
  std::ofstream report_;
  std::streambuf* previous_ = nullptr;
};

}  // namespace tarnwell::bench
