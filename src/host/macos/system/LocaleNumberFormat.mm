#include "host/macos/system/LocaleNumberFormat.h"

#include "host/macos/look/Conversions.h"

namespace tarnwell::host_macos {
namespace {

// A new one each time: the region may have been changed meanwhile.
NSNumberFormatter* makeFormatter() {
  NSNumberFormatter* formatter = [[[NSNumberFormatter alloc] init] autorelease];
  [formatter setNumberStyle:NSNumberFormatterDecimalStyle];
  return formatter;
}

}  // namespace

std::string LocaleNumberFormat::text(double value, int mostFractionDigits) const {
  NSNumberFormatter* formatter = makeFormatter();
  [formatter setMaximumFractionDigits:static_cast<NSUInteger>(mostFractionDigits)];
  [formatter setRoundingMode:NSNumberFormatterRoundHalfEven];
  return toString([formatter stringFromNumber:[NSNumber numberWithDouble:value]]);
}

std::optional<double> LocaleNumberFormat::value(std::string_view text) const {
  NSNumberFormatter* formatter = makeFormatter();
  [formatter setLenient:NO];
  NSNumber* number = [formatter numberFromString:toNSString(text)];
  return number != nil ? std::optional([number doubleValue]) : std::nullopt;
}

}  // namespace tarnwell::host_macos
