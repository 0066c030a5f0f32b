#include "system/files/MappedFile.h"

#include <sys/mman.h>
#include <sys/stat.h>

#include <utility>

namespace tarnwell::system {

Result<MappedFile> MappedFile::create(int descriptor) {
  struct stat status = {};
  if (::fstat(descriptor, &status) != 0) {
    return systemFailure("cannot read the file");
  }
  const auto length = static_cast<std::size_t>(status.st_size);
  if (length == 0) {
    return MappedFile(nullptr, 0);
  }
  void* start = ::mmap(nullptr, length, PROT_READ, MAP_PRIVATE, descriptor, 0);
  if (start == MAP_FAILED) {
    return systemFailure("cannot read the file");
  }
  // Read once from start to end: what was looked at need not stay in memory.
  ::madvise(start, length, MADV_SEQUENTIAL);
  return MappedFile(start, length);
}

MappedFile::MappedFile(MappedFile&& other) noexcept
    : start_(std::exchange(other.start_, nullptr)), length_(std::exchange(other.length_, 0)) {}

MappedFile::~MappedFile() {
  if (start_ != nullptr) {
    ::munmap(start_, length_);
  }
}

}  // namespace tarnwell::system
