#pragma once

#include <filesystem>
#include <string>

namespace tarnwell::publish {

/// What a publisher says of a package. What is empty is left out.
struct Release {
  std::filesystem::path package = {};
  std::filesystem::path privateKey = {};
  std::filesystem::path notes = {};  // A file with plain or simple rich text.
  std::string title = {};            // The product's name and the shown version where it is empty.
  std::string version = {};
  std::string shownVersion = {};
  std::string url = {};
  std::string channel = {};
  std::string minimumSystemVersion = {};
  bool isCritical = false;
};

}  // namespace tarnwell::publish
