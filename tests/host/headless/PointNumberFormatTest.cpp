#include "host/headless/PointNumberFormat.h"

#include <gtest/gtest.h>

#include "kit/ports/NumberFormatTable.h"

namespace tarnwell::host_headless {
namespace {

TEST(PointNumberFormatTest, answersTheAmericanTable) { kit::expectAmericanNumbers(PointNumberFormat()); }

TEST(PointNumberFormatTest, answersTheGermanTable) { kit::expectGermanNumbers(PointNumberFormat(',', '.')); }

}  // namespace
}  // namespace tarnwell::host_headless
