#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace tarnwell::fuzz {

/// An empty folder of this process's own, for as long as this lives: in memory where the system has such folders, since
/// a disk makes every write that is to last wait.
class OwnFolder {
 public:
  OwnFolder() {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directory(path_);
  }
  OwnFolder(const OwnFolder&) = delete;
  OwnFolder& operator=(const OwnFolder&) = delete;
  ~OwnFolder() { std::filesystem::remove_all(path_); }

  const std::filesystem::path& path() const { return path_; }

 private:
  static std::filesystem::path parent() {
    const std::filesystem::path memory = "/dev/shm";
    return ::access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
  }

  std::filesystem::path path_ = parent() / ("tarnwell-fuzz-" + std::to_string(::getpid()));
};

inline void writeFile(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string contentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tarnwell::fuzz
