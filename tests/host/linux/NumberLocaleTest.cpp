#include "host/linux/NumberLocale.h"

#include <gtest/gtest.h>

#include <vector>

#include "fixtures/EnvironmentScope.h"

namespace tarnwell::host_linux {
namespace {

using fixtures::EnvironmentScope;

struct Name {
  const char* environment = "";
  const char* locale = "";
};

TEST(NumberLocale, readsTheEnvironmentsNames) {
  const std::vector<Name> names = {
      {"de_DE", "de_DE"},
      {"de_DE.UTF-8", "de_DE"},
      {"de_DE.ISO-8859-15@euro", "de_DE"},
      {"de_DE@euro", "de_DE"},
      {"de", "de"},
      {"pt-BR", "pt-BR"},
      {"sr_RS@latin", "sr_Latn_RS"},
      {"sr_RS.UTF-8@latin", "sr_Latn_RS"},
      {"uz_UZ@cyrillic", "uz_Cyrl_UZ"},
      {"ks_IN@devanagari", "ks_Deva_IN"},
      {"sr@latin", "sr_Latn"},
      {"ca_ES@valencia", "ca_ES"},
      {"C", "en_US_POSIX"},
      {"C.UTF-8", "en_US_POSIX"},
      {"POSIX", "en_US_POSIX"},
      {"C@latin", "en_US_POSIX"},
      {"", "en_US_POSIX"},
      {".UTF-8", "en_US_POSIX"},
      {"@latin", "en_US_POSIX"},
      {"/usr/share/locale/de", "en_US_POSIX"},
      {"de DE", "en_US_POSIX"},
  };
  for (const Name& name : names) {
    EXPECT_EQ(localeNamed(name.environment), name.locale) << name.environment;
  }
}

TEST(NumberLocale, nameOfNoReasonableLengthIsPlain) { EXPECT_EQ(localeNamed(std::string(65, 'd')), plainLocale); }

TEST(NumberLocale, firstVariableThatIsSetDecides) {
  const EnvironmentScope all("LC_ALL", "");
  const EnvironmentScope numeric("LC_NUMERIC", "");
  const EnvironmentScope language("LANG", "");
  EXPECT_EQ(numberLocaleOfEnvironment(), plainLocale);
  const EnvironmentScope setLanguage("LANG", "de_DE.UTF-8");
  EXPECT_EQ(numberLocaleOfEnvironment(), "de_DE");
  const EnvironmentScope setNumeric("LC_NUMERIC", "fr_FR.UTF-8");
  EXPECT_EQ(numberLocaleOfEnvironment(), "fr_FR");
  const EnvironmentScope setAll("LC_ALL", "C");
  EXPECT_EQ(numberLocaleOfEnvironment(), plainLocale);
}

}  // namespace
}  // namespace tarnwell::host_linux
