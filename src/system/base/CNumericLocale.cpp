#include "system/base/CNumericLocale.h"

#include "diagnostics/Fault.h"

namespace tarnwell::system {
namespace {

locale_t plainLocale() {
  // Made once and never freed: it serves until the process ends.
  static const locale_t locale = ::newlocale(LC_ALL_MASK, "C", nullptr);
  if (locale == nullptr) {
    diagnostics::fault("the C locale is missing");
  }
  return locale;
}

}  // namespace

CNumericLocale::CNumericLocale() : previous_(::uselocale(plainLocale())) {}

CNumericLocale::~CNumericLocale() { ::uselocale(previous_); }

}  // namespace tarnwell::system
