#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "fuzz/Mutation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void runTarget(const std::string& input) {
  // In a block of its own length, so that a look behind its end is seen.
  const std::vector<std::uint8_t> bytes(input.begin(), input.end());
  LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

std::map<std::string, std::string> seedsIn(const std::filesystem::path& folder) {
  std::map<std::string, std::string> seeds;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::ifstream file(entry.path(), std::ios::binary);
    seeds[entry.path().filename()] = std::string(std::istreambuf_iterator<char>(file), {});
  }
  return seeds;
}

}  // namespace

// Runs a target over every seed in a folder and over as many changes of each as are asked for. The last name that is
// printed is the one of the seed that something was found with.
int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: " << *argv << " FOLDER CHANGES\n";
    return EXIT_FAILURE;
  }
  const auto seeds = seedsIn(argv[1]);
  if (seeds.empty()) {
    std::cerr << argv[1] << " has no seeds\n";
    return EXIT_FAILURE;
  }
  std::vector<std::string> texts;
  std::transform(seeds.begin(), seeds.end(), std::back_inserter(texts), [](const auto& seed) { return seed.second; });
  tarnwell::fuzz::Mutation mutation(texts);
  const int changes = std::stoi(argv[2]);
  for (const auto& [name, text] : seeds) {
    std::cout << name << std::endl;
    runTarget(text);
    for (int count = 0; count < changes; ++count) {
      runTarget(mutation.of(text));
    }
  }
  return EXIT_SUCCESS;
}
