#pragma once

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kit/ports/NumberFormat.h"

namespace tarnwell::kit {

// What every number format must answer: run the tables that fit its locale.

struct WrittenNumber {
  double value = 0;
  int mostFractionDigits = 0;
  std::string_view text = {};
};

struct ReadNumber {
  std::string_view text = {};
  std::optional<double> value = {};
};

inline void expectWritten(const NumberFormat& format, const std::vector<WrittenNumber>& rows) {
  for (const WrittenNumber& row : rows) {
    EXPECT_EQ(format.text(row.value, row.mostFractionDigits), row.text)
        << row.value << " with " << row.mostFractionDigits << " fraction digits";
  }
}

inline void expectRead(const NumberFormat& format, const std::vector<ReadNumber>& rows) {
  for (const ReadNumber& row : rows) {
    EXPECT_EQ(format.value(row.text), row.value) << '"' << row.text << '"';
  }
}

/// The tables of a format that writes numbers as American English does.
inline const std::vector<WrittenNumber> americanNumbersWritten = {
    {0, 2, "0"},
    {0.2, 2, "0.2"},
    {0.456, 2, "0.46"},
    {0.125, 2, "0.12"},
    {0.135, 2, "0.14"},
    {0.145, 2, "0.14"},
    {0.375, 2, "0.38"},
    {2.675, 2, "2.68"},
    {-0.5, 2, "-0.5"},
    {-0.125, 2, "-0.12"},
    {100, 2, "100"},
    {999.999, 2, "1,000"},
    {1000, 2, "1,000"},
    {12345.678, 2, "12,345.68"},
    {-1234567, 0, "-1,234,567"},
    {0.5, 0, "0"},
    {1.5, 0, "2"},
    {2.5, 0, "2"},
    {0.001, 2, "0"},
    {-0.001, 2, "-0"},
    {0.1, 17, "0.1"},
    {1e21, 2, "1,000,000,000,000,000,000,000"},
    {0.7, -1, "1"},
    {std::numeric_limits<double>::quiet_NaN(), 2, "NaN"},
    {std::numeric_limits<double>::infinity(), 2, "\u221E"},
    {-std::numeric_limits<double>::infinity(), 2, "-\u221E"},
};

inline const std::vector<ReadNumber> americanNumbersTaken = {
    {"0", 0.0},
    {"5", 5.0},
    {"0.456", 0.456},
    {".5", 0.5},
    {"5.", 5.0},
    {"007", 7.0},
    {"-0.5", -0.5},
    {"-.5", -0.5},
    {"1000", 1000.0},
    {"1,000", 1000.0},
    {"1,234,567.25", 1234567.25},
    {"12,345", 12345.0},
    {" 0.5 ", 0.5},
    {"\t5", 5.0},
    {"\u00A05\u202F", 5.0},
    {"\u22120.5", -0.5},
    {"0.1000000000000000055511151231257827", 0.1},
};

inline const std::vector<std::string_view> americanNumbersRefused = {
    "",        " ",     ".",    "-",      "-.",       "abc",   "1x",   "x1",       "--1",      "+1",     "1-",
    "- 1",     "1e5",   "1E5",  "0x10",   "nan",      "NaN",   "inf",  "-inf",     "Infinity", "\u221E", "1 2",
    "1 000",   "0,5",   "1,00", "1,0000", "1000,000", ",000",  "1,",   "1,,000",   "0,456",    "00,456", "1,000,00",
    "0.5,000", "0.5.5", "0..5", "1\n2",   "\u0661",   "1\xFF", "\xFF", {"1\0", 2}, "$1",       "50%",
};

inline void expectAmericanNumbers(const NumberFormat& format) {
  expectWritten(format, americanNumbersWritten);
  expectRead(format, americanNumbersTaken);
  for (const std::string_view text : americanNumbersRefused) {
    EXPECT_EQ(format.value(text), std::nullopt) << '"' << text << '"';
  }
  EXPECT_EQ(format.value(std::string(400, '9')), std::nullopt);
  EXPECT_EQ(format.value(format.text(std::numeric_limits<double>::quiet_NaN(), 2)), std::nullopt);
  EXPECT_EQ(format.value(format.text(-std::numeric_limits<double>::infinity(), 2)), std::nullopt);
}

/// The tables of a format that writes numbers as German does.
inline void expectGermanNumbers(const NumberFormat& format) {
  const std::vector<WrittenNumber> written = {
      {0.5, 2, "0,5"}, {0.456, 2, "0,46"}, {-0.125, 2, "-0,12"}, {1000, 2, "1.000"}, {1234567.891, 2, "1.234.567,89"},
  };
  const std::vector<ReadNumber> read = {
      {"0,5", 0.5},    {"-,5", -0.5}, {"1.000", 1000.0}, {"1000", 1000.0}, {"1.234,5", 1234.5},
      {"5,", 5.0},     {"0.5", {}},   {"0.456", {}},     {"00.456", {}},   {"1.00", {}},
      {"1,000.5", {}}, {"1,2,3", {}}, {"1 000", {}},
  };
  expectWritten(format, written);
  expectRead(format, read);
}

}  // namespace tarnwell::kit
