#pragma once

#include <cstddef>

#include "system/base/Result.h"

namespace tarnwell::system {

/// A file's bytes in memory for as long as this lives, read from the disk as they are looked at. Only for files that
/// no other process truncates meanwhile: looking behind their new end would end the process.
class MappedFile {
 public:
  /// Of the whole file as long as it is now, which may be empty. The descriptor may be closed afterwards.
  static Result<MappedFile> create(int descriptor);

  MappedFile(MappedFile&& other) noexcept;
  MappedFile& operator=(MappedFile&&) = delete;
  ~MappedFile();

  const unsigned char* bytes() const { return static_cast<const unsigned char*>(start_); }
  std::size_t length() const { return length_; }

 private:
  MappedFile(void* start, std::size_t length) : start_(start), length_(length) {}

  void* start_ = nullptr;
  std::size_t length_ = 0;
};

}  // namespace tarnwell::system
