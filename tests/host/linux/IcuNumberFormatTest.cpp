#include "host/linux/IcuNumberFormat.h"

#include <gtest/gtest.h>

#include <vector>

#include "fixtures/CommaLocale.h"
#include "fixtures/EnvironmentScope.h"
#include "host/linux/NumberLocale.h"
#include "kit/ports/NumberFormatTable.h"

namespace tarnwell::host_linux {
namespace {

using fixtures::EnvironmentScope;
using kit::expectRead;
using kit::ReadNumber;

struct Example {
  const char* locale = "";
  std::string_view thousands = {};
};

TEST(IcuNumberFormat, answersTheAmericanTable) { kit::expectAmericanNumbers(IcuNumberFormat("en_US")); }

TEST(IcuNumberFormat, answersTheGermanTable) { kit::expectGermanNumbers(IcuNumberFormat("de_DE")); }

TEST(IcuNumberFormat, writesAsTheLocaleDoes) {
  const std::vector<Example> examples = {
      {"en_US_POSIX", "1234567.5"},
      {"en_GB", "1,234,567.5"},
      {"fr_FR", "1\u202F234\u202F567,5"},
      {"sv_SE", "1\u00A0234\u00A0567,5"},
      {"de_CH", "1\u2019234\u2019567.5"},
      {"en_IN", "12,34,567.5"},
      {"hi_IN", "12,34,567.5"},
      {"ar_EG", "\u0661\u066C\u0662\u0663\u0664\u066C\u0665\u0666\u0667\u066B\u0665"},
      {"sr_Latn_RS", "1.234.567,5"},
      {"mr_IN", "\u0967\u0968,\u0969\u096A,\u096B\u096C\u096D.\u096B"},
      {"ff_Adlm_GN", "\U0001E951\u2E41\U0001E952\U0001E953\U0001E954\u2E41\U0001E955\U0001E956\U0001E957.\U0001E955"},
  };
  for (const Example& example : examples) {
    EXPECT_EQ(IcuNumberFormat(example.locale).text(1234567.5, 2), example.thousands) << example.locale;
  }
}

TEST(IcuNumberFormat, readsWhatItWrites) {
  for (const char* locale : {"en_US", "de_DE", "fr_FR", "de_CH", "sv_SE", "hi_IN", "mr_IN", "ar_EG", "fa_IR", "he_IL",
                             "bn_BD", "ne_NP", "my_MM", "es_ES", "pl_PL", "pt_PT", "ff_Adlm_GN", "en_US_POSIX"}) {
    const IcuNumberFormat format(locale);
    for (const double number : {0.0, 0.25, -0.75, 1234.5, -1234567.25, 9876543210.0}) {
      EXPECT_EQ(format.value(format.text(number, 2)), number) << locale << ' ' << format.text(number, 2);
    }
  }
}

TEST(IcuNumberFormat, readsWhatTheKeyboardHas) {
  const std::vector<ReadNumber> french = {{"1 234,5", 1234.5}, {"1\u00A0234,5", 1234.5}, {"1 23,5", {}}, {"1.5", {}}};
  const std::vector<ReadNumber> swiss = {{"1'234.5", 1234.5}, {"1\u2019234.5", 1234.5}, {"1,234", {}}};
  const std::vector<ReadNumber> hindi = {
      {"12,34,567", 1234567.0}, {"1,234,567", {}}, {"\u0967\u0968.\u096B", 12.5}, {"0.5", 0.5}, {"123,456", {}}};
  const std::vector<ReadNumber> arabic = {{"\u0660\u066B\u0665", 0.5},
                                          {"0\u066B5", 0.5},
                                          {"\u061C-\u0665", -5.0},
                                          {"0.5", {}},
                                          {"\u0660\u066C\u0664\u0665\u0666", {}}};
  const std::vector<ReadNumber> plain = {{"1234.5", 1234.5}, {"1,234", {}}, {"0,5", {}}};
  expectRead(IcuNumberFormat("fr_FR"), french);
  expectRead(IcuNumberFormat("de_CH"), swiss);
  expectRead(IcuNumberFormat("hi_IN"), hindi);
  expectRead(IcuNumberFormat("ar_EG"), arabic);
  expectRead(IcuNumberFormat("en_US_POSIX"), plain);
}

TEST(IcuNumberFormat, unknownLocaleIsPlain) {
  // The library would take the language of its process instead, which it asks for once.
  const EnvironmentScope all("LC_ALL", "de_DE.UTF-8");
  for (const char* locale : {"", "xx_YY", "tlh", "not a locale", "12", "_", "en_US_POSIX@x"}) {
    EXPECT_EQ(IcuNumberFormat(locale).text(1234.5, 2), "1234.5") << locale;
  }
}

TEST(IcuNumberFormat, knowsRetiredNamesAndUnknownRegions) {
  EXPECT_EQ(IcuNumberFormat("no_NO").text(0.5, 2), "0,5");
  EXPECT_EQ(IcuNumberFormat("iw_IL").text(0.5, 2), "0.5");
  EXPECT_EQ(IcuNumberFormat("de_QQ").text(0.5, 2), "0,5");
  EXPECT_EQ(IcuNumberFormat("de").text(0.5, 2), "0,5");
}

TEST(IcuNumberFormat, processLocaleAndLanguagePlayNoRole) {
  const fixtures::CommaLocale comma;
  const EnvironmentScope language("LANGUAGE", "de");
  EXPECT_EQ(IcuNumberFormat("en_US").text(0.5, 2), "0.5");
  EXPECT_EQ(IcuNumberFormat("en_US").value("0.5"), 0.5);
}

TEST(IcuNumberFormat, environmentChoosesTheLocale) {
  const EnvironmentScope all("LC_ALL", "de_DE.UTF-8");
  const IcuNumberFormat format(numberLocaleOfEnvironment());
  const EnvironmentScope later("LC_ALL", "en_US.UTF-8");
  EXPECT_EQ(format.text(0.5, 2), "0,5");
  EXPECT_EQ(IcuNumberFormat(numberLocaleOfEnvironment()).text(0.5, 2), "0.5");
}

}  // namespace
}  // namespace tarnwell::host_linux
