#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/Require.h"
#include "standin/dock/DockBehavior.h"
#include "standin/dock/model/Desk.h"

namespace tarnwell::fuzz {
namespace {

using standin::Desk;
using standin::DocumentId;
using standin::DocumentState;

/// What is minimized is in the dock once, and nothing else is.
void checkMinimized(const Desk& desk) {
  std::size_t count = 0;
  for (std::size_t application = 0; application < desk.applications().size(); ++application) {
    for (std::size_t i = 0; i < desk.applications()[application].documents.size(); ++i) {
      const DocumentId id{application, i};
      const bool isMinimized = desk.document(id).state == DocumentState::minimized;
      require(std::ranges::count(desk.minimized(), id) == (isMinimized ? 1 : 0));
      count += isMinimized ? 1 : 0;
    }
  }
  require(count == desk.minimized().size());
}

/// The text is what became of the applications, and what a Dock tells its UI. Whatever is made of it is written and
/// read again as it is.
void run(std::string_view text) {
  Desk desk;
  desk.restoreFrom(text);
  checkMinimized(desk);
  const std::string kept = desk.text();
  Desk again;
  again.restoreFrom(kept);
  require(again.text() == kept && again.minimized() == desk.minimized());

  const std::string told = standin::listText(standin::listedBehavior(text));
  require(standin::listText(standin::listedBehavior(told)) == told);
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
