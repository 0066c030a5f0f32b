#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "system/base/Descriptor.h"

namespace tarnwell::system {

/// Many descriptors that are watched as one. Those in it are borrowed.
class DescriptorSet {
 public:
  /// Where the system has none it is a fault that names `action`.
  explicit DescriptorSet(std::string_view action);

  /// Readable while one of those in it is.
  const Descriptor& descriptor() const { return set_; }

  /// False, with errno set, when the system cannot watch one more.
  bool add(int number) const;
  /// To be called before it is closed: what another process has open as well would be told of for ever.
  void remove(int number) const;

  /// Those that can be read now, `most` of them at most.
  std::vector<int> readable(std::size_t most) const;

 private:
  Descriptor set_;
};

}  // namespace tarnwell::system
