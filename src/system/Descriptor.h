#pragma once

namespace tarnwell::system {

/// Owns a file descriptor and closes it. Empty when the number is -1.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept;
  Descriptor& operator=(Descriptor&& other) noexcept;
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(); }

  int number() const { return number_; }
  bool isEmpty() const { return number_ < 0; }

  /// Lets go early; empty afterwards.
  void close();

 private:
  int number_ = -1;
};

/// Moves a descriptor away from the numbers 0 to 2, where it lands when the process was started with closed standard
/// streams and where a child's streams would overwrite it. The result is closed on exec; empty, with errno set, when
/// there is no number left.
Descriptor aboveStandardStreams(Descriptor descriptor);

}  // namespace tarnwell::system
