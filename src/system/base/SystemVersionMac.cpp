#include <sys/sysctl.h>

#include <array>

#include "system/base/SystemVersion.h"

namespace tarnwell::system {

std::string systemVersion() {
  std::array<char, 32> text{};
  std::size_t size = text.size() - 1;
  ::sysctlbyname("kern.osproductversion", text.data(), &size, nullptr, 0);
  return text.data();
}

}  // namespace tarnwell::system
