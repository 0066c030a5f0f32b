#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace tarnwell::standin {

/// Owns an open file descriptor, or none.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept;
  ~Descriptor();

  explicit operator bool() const { return number_ >= 0; }
  int number() const { return number_; }

  /// Closes now. False when the system reports a late write error, with errno set.
  bool close();

  /// Everything from the current place to the end. False on a read error, with errno set.
  bool readAll(std::string& bytes) const;

  /// Writes every byte. False when the system took fewer (a full disk, a size limit), with errno set.
  bool writeAll(std::string_view bytes) const;

 private:
  int number_ = -1;
};

}  // namespace tarnwell::standin
