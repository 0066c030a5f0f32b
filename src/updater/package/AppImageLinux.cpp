#include "updater/package/PackageKind.h"

namespace tarnwell::updater {
namespace {

bool isAppImage(std::string_view start) {
  constexpr std::string_view executable =
      "\x7f"
      "ELF";
  constexpr std::string_view secondType = "AI\x02";
  constexpr std::size_t typePosition = 8;
  return start.size() > typePosition && start.starts_with(executable) &&
         start.substr(typePosition).starts_with(secondType);
}

system::Failure unplacedAppImage(const std::string& target, const std::string& reason) {
  return {"The new version cannot take the place of " + target + ": " + reason +
          ". The version that you have was left as it is. See that there is room and that you may write there, and try "
          "again."};
}

}  // namespace

constinit const PackageKind appImage = {.name = "app-image",
                                        .isOne = &isAppImage,
                                        .ownVersion = nullptr,
                                        .isVersionOf = nullptr,
                                        .place = &placeFile,
                                        .unplaced = &unplacedAppImage};

}  // namespace tarnwell::updater
