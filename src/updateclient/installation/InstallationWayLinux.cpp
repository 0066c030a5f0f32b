#include <algorithm>
#include <array>

#include "updateclient/installation/InstallationWay.h"

namespace tarnwell::updateclient {

const InstallationWay* installationWay(std::string_view kind) {
  static constexpr std::array<const InstallationWay*, 2> ways = {&debianWay, &appImageWay};
  const auto* found = std::find_if(ways.begin(), ways.end(), [kind](const auto* way) { return way->kind == kind; });
  return found == ways.end() ? nullptr : *found;
}

}  // namespace tarnwell::updateclient
