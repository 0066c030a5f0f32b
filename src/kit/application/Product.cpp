#include "kit/application/Product.h"

#include "diagnostics/Fault.h"

namespace tarnwell::kit {

std::string Product::page(std::string_view path) const {
  constexpr std::string_view hostCharacters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-:";
  std::string address = "https://" + webHost + std::string(path);
  if (webHost.empty() || webHost.find_first_not_of(hostCharacters) != std::string::npos) {
    diagnostics::fault("no address: " + address);
  }
  return address;
}

}  // namespace tarnwell::kit
