#pragma once

#include <plist/plist.h>

#include <string>

namespace tarnwell::standin {

/// The word that read-type has for a value: boolean, integer, float, string, data, date, array, dictionary.
const char* typeName(plist_t node);

/// A value that is no container, as `read DOMAIN KEY` prints it: nothing is quoted. Booleans are 1 and 0.
std::string valueText(plist_t node);

/// A real number: 7 significant digits when it fits 32 bits, else 15, without trailing zeros.
std::string realText(double value);

}  // namespace tarnwell::standin
