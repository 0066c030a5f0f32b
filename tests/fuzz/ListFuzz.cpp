#include <cstddef>
#include <cstdint>
#include <string_view>
#include <variant>

#include "fuzz/Require.h"
#include "standin/store/lists/OldStyleText.h"
#include "standin/store/lists/PropertyList.h"
#include "system/base/Utf8.h"

namespace tarnwell::fuzz {
namespace {

using standin::PropertyList;

/// What has been read can be written, and comes back.
void checkStore(std::string_view bytes) {
  const auto list = standin::parsePropertyList(bytes);
  if (list) {
    require(*list != nullptr && standin::binaryText(list->get()));
  }
}

/// What has been read can be printed, and comes back.
void checkText(std::string_view text) {
  const PropertyList list = system::isUtf8(text) ? standin::parseOldStyleText(text) : nullptr;
  if (list) {
    const PropertyList again = standin::parseOldStyleText(standin::oldStyleText(list.get()));
    require(again != nullptr && standin::isSame(list.get(), again.get()));
  }
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  tarnwell::fuzz::checkStore(bytes);
  tarnwell::fuzz::checkText(bytes);
  return 0;
}
