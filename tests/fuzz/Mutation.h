#pragma once

#include <random>
#include <string>
#include <vector>

namespace tarnwell::fuzz {

/// Makes inputs out of others. The same seeds in the same order give the same inputs.
class Mutation {
 public:
  /// At least one seed.
  explicit Mutation(std::vector<std::string> seeds) : seeds_(std::move(seeds)) {}

  /// The seed with a few changes: bits turned, parts left out, repeated, or taken from another seed.
  std::string of(const std::string& seed);

 private:
  std::size_t below(std::size_t bound);
  std::string partOf(const std::string& text);
  void change(std::string& text);

  std::vector<std::string> seeds_;
  std::mt19937 random_;
};

}  // namespace tarnwell::fuzz
