#include "profile/exports/nix/NixText.h"

namespace tarnwell::profile {

std::string nixAttributes(std::string_view name, std::span<const WantedValue> values) {
  if (values.empty()) {
    return {};
  }
  std::string result = "  " + std::string(name) + " = {\n";
  for (const WantedValue& each : values) {
    const std::string value = text(each.value);
    result += "    " + std::string(each.setting.key) + " = " +
              (each.setting.type == Type::effect ? '"' + value + '"' : value) + ";\n";
  }
  return result + "  };\n";
}

}  // namespace tarnwell::profile
