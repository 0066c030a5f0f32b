#include "host/macos/system/LocaleNumberFormat.h"

#include <algorithm>
#include <string>

#include "host/macos/look/Conversions.h"
#include "kit/ports/TypedNumber.h"

namespace tarnwell::host_macos {
namespace {

// A new one each time: the region may have been changed meanwhile.
NSNumberFormatter* makeFormatter() {
  NSNumberFormatter* formatter = [[[NSNumberFormatter alloc] init] autorelease];
  [formatter setNumberStyle:NSNumberFormatterDecimalStyle];
  return formatter;
}

std::u32string codePoints(NSString* text) {
  NSData* data = [text dataUsingEncoding:NSUTF32LittleEndianStringEncoding];
  std::u32string points([data length] / sizeof(char32_t), U'\0');
  [data getBytes:points.data() length:points.size() * sizeof(char32_t)];
  return points;
}

// Nothing for a mark that the region does not write.
char32_t characterOf(NSString* mark) {
  const std::u32string points = codePoints(mark);
  return points.empty() ? U'\0' : points.front();
}

kit::NumberSymbols symbolsOf(NSNumberFormatter* formatter) {
  kit::NumberSymbols symbols;
  symbols.decimal = characterOf([formatter decimalSeparator]);
  symbols.grouping = characterOf([formatter groupingSeparator]);
  symbols.firstGroup = [formatter usesGroupingSeparator] ? static_cast<int>([formatter groupingSize]) : 0;
  const auto further = static_cast<int>([formatter secondaryGroupingSize]);
  symbols.furtherGroups = further > 0 ? further : symbols.firstGroup;
  // A region may have digits of its own.
  symbols.zeros.push_back(characterOf([formatter stringFromNumber:[NSNumber numberWithInt:0]]));
  return symbols;
}

}  // namespace

std::string LocaleNumberFormat::text(double value, int mostFractionDigits) const {
  NSNumberFormatter* formatter = makeFormatter();
  [formatter setMaximumFractionDigits:static_cast<NSUInteger>(std::max(mostFractionDigits, 0))];
  [formatter setRoundingMode:NSNumberFormatterRoundHalfEven];
  return toString([formatter stringFromNumber:[NSNumber numberWithDouble:value]]);
}

std::optional<double> LocaleNumberFormat::value(std::string_view text) const {
  return kit::typedNumber(codePoints(toNSString(text)), symbolsOf(makeFormatter()));
}

}  // namespace tarnwell::host_macos
