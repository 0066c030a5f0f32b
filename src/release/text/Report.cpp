#include "release/text/Report.h"

#include "diagnostics/Console.h"
#include "release/text/PlainLine.h"

namespace tarnwell::release {

namespace {

// More than the longest path.
constexpr std::size_t longestReport = 6000;

}  // namespace

void report(const system::Failure& failure) { diagnostics::reportError(plainLine(failure.message, longestReport)); }

void report(const system::Result<void>& result) {
  if (!result) {
    report(result.error());
  }
}

}  // namespace tarnwell::release
