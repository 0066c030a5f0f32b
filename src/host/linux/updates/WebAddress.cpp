#include "host/linux/updates/WebAddress.h"

#include <algorithm>

namespace tarnwell::host_linux::updates {
namespace {

bool isPrintable(char c) { return c > ' ' && c != '\x7f'; }

bool startsWith(std::string_view text, std::string_view lowerPrefix) {
  return text.size() >= lowerPrefix.size() &&
         std::equal(lowerPrefix.begin(), lowerPrefix.end(), text.begin(),
                    [](char low, char c) { return low == c || (c >= 'A' && c <= 'Z' && low == c - 'A' + 'a'); });
}

std::string_view withoutScheme(std::string_view address) {
  for (const std::string_view scheme : {"https://", "http://"}) {
    if (startsWith(address, scheme)) {
      return address.substr(scheme.size());
    }
  }
  return {};
}

}  // namespace

bool isWebAddress(std::string_view address) {
  return !hostIn(address).empty() && std::all_of(address.begin(), address.end(), isPrintable);
}

std::string hostIn(std::string_view address) {
  std::string_view rest = withoutScheme(address);
  rest = rest.substr(0, rest.find_first_of("/?#"));
  rest = rest.substr(rest.find('@') + 1);  // From the start where there is none.
  const bool isNumber = rest.starts_with('[');
  return std::string(rest.substr(0, isNumber ? rest.find(']') : rest.find(':')));
}

}  // namespace tarnwell::host_linux::updates
