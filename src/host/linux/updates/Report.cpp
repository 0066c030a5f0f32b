#include "host/linux/updates/Report.h"

#include "diagnostics/Console.h"

namespace tarnwell::host_linux::updates {

void report(const Failure& failure) { diagnostics::printErrorLine("tarnwell: " + failure.message); }

void report(const std::optional<Failure>& failure) {
  if (failure) {
    report(*failure);
  }
}

}  // namespace tarnwell::host_linux::updates
