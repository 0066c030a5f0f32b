#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "commandline/dock/Element.h"
#include "commandline/dock/PropertyList.h"
#include "fuzz/Require.h"

namespace tarnwell::fuzz {
namespace {

/// The text is what `defaults export` prints. It is refused in a line, or each value found there has an element that
/// is read as the same or, like a date that is none, not at all: undo brings back what was there, or leaves it out.
void run(std::string_view text) {
  const auto values = commandline::storedValuesIn(text);
  if (!values) {
    require(!values.error().message.empty());
    return;
  }
  for (const core::StoredValue& value : *values) {
    const std::string element = commandline::elementOf(value);
    if (!element.empty()) {
      const auto again = commandline::storedValueOf(element);
      require(!again || (again->index() == value.index() && commandline::elementOf(*again) == element));
    }
  }
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
