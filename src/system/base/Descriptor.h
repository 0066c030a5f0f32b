#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tarnwell::system {

/// Owns a file descriptor and closes it, or owns none. What fails says why in errno.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept;
  ~Descriptor() { close(); }

  explicit operator bool() const { return number_ >= 0; }
  /// -1 where there is none. Borrowed.
  int number() const { return number_; }

  /// Lets go early; none is owned afterwards. False where a write turns out to have failed.
  bool close();

  /// Everything from the current place to the end, or the first byte more than `most`. Nothing on a read error. Blocks
  /// for as long as it takes.
  std::optional<std::string> readAll(std::size_t most = std::string::npos) const;

  /// What there is to read at the current place, 64 KiB at most, as much as a pipe holds; empty at the end. Nothing on
  /// a read error. Blocks while there is nothing yet.
  std::optional<std::string> readPart() const;

  /// Blocks until it can be read, or its other end is gone. False when `end` has come first.
  bool waitUntilReadable(std::chrono::steady_clock::time_point end) const;

  /// Writes every byte, however often a signal interrupts. False when the system took fewer: a full disk, a limit.
  bool writeAll(std::string_view bytes) const;

  /// Appends what the file `source` holds, from its start to its end; a megabyte or a gigabyte, it takes little memory.
  bool copyFrom(int source) const;

 private:
  int number_ = -1;
};

/// Moves a descriptor away from the numbers 0 to 2, where it lands when the process was started with closed standard
/// streams and where a child's streams would overwrite it. The result is closed on exec; none, with errno set, when
/// there is no number left.
Descriptor aboveStandardStreams(Descriptor descriptor);

/// What the system has just answered with, moved `aboveStandardStreams`. Where it is no descriptor, with errno set, the
/// process ends with a fault that names `action`.
Descriptor requiredDescriptor(int number, std::string_view action);

}  // namespace tarnwell::system
