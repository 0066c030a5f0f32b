#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "system/base/Result.h"

namespace tarnwell::publish {

/// What a publisher signs with. Its bytes are wiped from memory in the end.
class SecretKey {
 public:
  /// A new one, by chance.
  static SecretKey generate();
  /// Refuses a file that others can read.
  static system::Result<SecretKey> read(const std::filesystem::path& file);

  SecretKey(SecretKey&&) = default;
  SecretKey& operator=(SecretKey&&) = delete;
  ~SecretKey();

  /// Into a new file that only its owner can read; never over one that is there.
  system::Result<void> store(const std::filesystem::path& file) const;

  /// The public half, in base64.
  std::string publicText() const;
  /// Over the whole file behind `descriptor`, in base64.
  system::Result<std::string> sign(int descriptor) const;
  /// Over these bytes.
  std::string sign(std::string_view bytes) const;

 private:
  using Seed = std::array<unsigned char, 32>;

  SecretKey() = default;

  Seed seed_ = {};
};

}  // namespace tarnwell::publish
