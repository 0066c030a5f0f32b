#pragma once

#include <string>

namespace tarnwell::core {

/// The shortest decimal text that reads back to the same double, whatever the process's locale is.
///
/// Decimal exponents from -4 to 15 stand in fixed notation, with ".0" behind integral values ("0.2", "1.0"); all others
/// in exponent form with at least two exponent digits ("1e-05", "1e+16"). The rest is "inf", "-inf" and "nan".
std::string decimalText(double value);

/// The same in fixed notation, however small or large the value is ("0.00001").
std::string plainDecimalText(double value);

/// What `defaults read` prints of a 32-bit number: seven digits at most, and an exponent below 0.0001 ("0.2", "1",
/// "5e-05").
std::string printedDecimalText(float value);

/// The nearest number that 32 bits, six decimals and what `defaults read` prints can say: what all tools keep of one.
/// Up to ten million.
float roundedDecimal(double value);

/// The shortest decimal text that reads back to the same 32-bit number, which is a rounded one: in fixed notation with
/// a point and at most six decimals ("0.15", "0.0").
std::string roundedDecimalText(float value);

}  // namespace tarnwell::core
