#include "host/linux/IcuNumberFormat.h"

#include "host/linux/NumberLocale.h"
#include "kit/ports/TypedNumber.h"

#include <unicode/decimfmt.h>
#include <unicode/numberformatter.h>
#include <unicode/numsys.h>
#include <unicode/ures.h>

#include <algorithm>

namespace tarnwell::host_linux {
namespace {

using Symbol = icu::DecimalFormatSymbols::ENumberFormatSymbol;

bool isKnown(const icu::Locale& locale) {
  // Without a language it is ICU's root, which groups.
  if (*locale.getLanguage() == '\0') {
    return false;
  }
  UErrorCode status = U_ZERO_ERROR;
  const icu::LocalUResourceBundlePointer bundle(ures_open(nullptr, locale.getName(), &status));
  return U_SUCCESS(status) && status != U_USING_DEFAULT_WARNING;
}

icu::Locale localeOrPlain(const std::string& name) {
  // For older names ICU reads a table, which takes longer than all else here.
  if (auto named = icu::Locale::createFromName(name.c_str()); name.find('@') == std::string::npos && isKnown(named)) {
    return named;
  }
  const auto locale = icu::Locale::createCanonical(name.c_str());
  return isKnown(locale) ? locale : icu::Locale(plainLocale.data());
}

char32_t characterOf(const icu::DecimalFormatSymbols& symbols, Symbol symbol) {
  return static_cast<char32_t>(symbols.getConstSymbol(symbol).char32At(0));
}

// Some locales write ASCII digits and have digits of their own on the keyboard all the same.
void addNativeZero(const icu::Locale& locale, kit::NumberSymbols& symbols) {
  UErrorCode status = U_ZERO_ERROR;
  icu::Locale native = locale;
  native.setKeywordValue("numbers", "native", status);
  const std::unique_ptr<icu::NumberingSystem> system(icu::NumberingSystem::createInstance(native, status));
  if (U_FAILURE(status) || system->isAlgorithmic()) {
    return;
  }
  symbols.zeros.push_back(static_cast<char32_t>(system->getDescription().char32At(0)));
}

kit::NumberSymbols symbolsOf(const icu::Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::NumberFormat> format(icu::NumberFormat::createInstance(locale, status));
  const auto* decimal = dynamic_cast<const icu::DecimalFormat*>(format.get());
  if (U_FAILURE(status) || decimal == nullptr) {
    return {};
  }
  const icu::DecimalFormatSymbols& written = *decimal->getDecimalFormatSymbols();
  kit::NumberSymbols symbols;
  symbols.decimal = characterOf(written, Symbol::kDecimalSeparatorSymbol);
  symbols.grouping = characterOf(written, Symbol::kGroupingSeparatorSymbol);
  symbols.firstGroup = decimal->isGroupingUsed() ? decimal->getGroupingSize() : 0;
  const int further = decimal->getSecondaryGroupingSize();
  symbols.furtherGroups = further > 0 ? further : symbols.firstGroup;
  symbols.zeros.push_back(characterOf(written, Symbol::kZeroDigitSymbol));
  addNativeZero(locale, symbols);
  return symbols;
}

std::u32string codePoints(std::string_view text) {
  const auto units = icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
  std::u32string points;
  for (int32_t at = 0; at < units.length(); at = units.moveIndex32(at, 1)) {
    points += static_cast<char32_t>(units.char32At(at));
  }
  return points;
}

}  // namespace

struct IcuNumberFormat::Locale {
  explicit Locale(const icu::Locale& locale)
      : name(locale), formatter(icu::number::NumberFormatter::withLocale(locale).roundingMode(UNUM_ROUND_HALFEVEN)) {}

  icu::Locale name;
  icu::number::LocalizedNumberFormatter formatter;
  /// Not needed before something is typed, and they take as long as all else here.
  std::optional<kit::NumberSymbols> symbols = {};
};

IcuNumberFormat::IcuNumberFormat(const std::string& locale)
    : locale_(std::make_unique<Locale>(localeOrPlain(locale))) {}

IcuNumberFormat::~IcuNumberFormat() = default;

std::string IcuNumberFormat::text(double value, int mostFractionDigits) const {
  // ICU takes no more than this.
  constexpr int mostDigits = 999;
  const int digits = std::clamp(mostFractionDigits, 0, mostDigits);
  UErrorCode status = U_ZERO_ERROR;
  std::string result;
  locale_->formatter.precision(icu::number::Precision::maxFraction(digits))
      .formatDouble(value, status)
      .toString(status)
      .toUTF8String(result);
  return result;
}

std::optional<double> IcuNumberFormat::value(std::string_view text) const {
  if (!locale_->symbols) {
    locale_->symbols = symbolsOf(locale_->name);
  }
  return kit::typedNumber(codePoints(text), *locale_->symbols);
}

}  // namespace tarnwell::host_linux
