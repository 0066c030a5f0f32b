#pragma once

#include <string>
#include <string_view>

namespace tarnwell::host_linux {

/// The locale for what the environment calls "C", and for a name that is none.
inline constexpr std::string_view plainLocale = "en_US_POSIX";

/// The locale in which the environment asks for numbers: the first of LC_ALL, LC_NUMERIC and LANG that is set and not
/// empty, in the form that localeNamed() gives.
std::string numberLocaleOfEnvironment();

/// "language_REGION.codeset@modifier" as the environment writes it, in ICU's form: the codeset is dropped, a modifier
/// that names a script becomes one ("sr_RS.UTF-8@latin" is "sr_Latn_RS"), other modifiers say nothing about numbers.
std::string localeNamed(std::string_view environmentName);

}  // namespace tarnwell::host_linux
