#include "confinement/RulesetLinux.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarnwell::confinement {
namespace {

/// What a kernel of that version documents, and how much it takes.
struct Kernel {
  long version;
  Ruleset ruleset;
  std::size_t size;
};

const std::vector<Kernel> kernels = {{-1, {0x1fff, 0, 0}, 8}, {1, {0x1fff, 0, 0}, 8},  {2, {0x3fff, 0, 0}, 8},
                                     {3, {0x7fff, 0, 0}, 8},  {4, {0x7fff, 3, 0}, 16}, {5, {0x7fff, 3, 0}, 16},
                                     {6, {0x7fff, 3, 3}, 24}, {7, {0x7fff, 3, 3}, 24}};

TEST(RulesetTest, closesAllThatAKernelKnowsOfAndNothingElse) {
  for (const Kernel& kernel : kernels) {
    const Ruleset closed = everything(kernel.version, false);
    EXPECT_EQ(closed.files, kernel.ruleset.files) << kernel.version;
    EXPECT_EQ(closed.network, kernel.ruleset.network) << kernel.version;
    EXPECT_EQ(closed.scopes, kernel.ruleset.scopes) << kernel.version;
    EXPECT_EQ(sizeFor(kernel.version), kernel.size) << kernel.version;
  }
}

TEST(RulesetTest, leavesTheNetworkOpenWhereItIsNeeded) {
  for (const Kernel& kernel : kernels) {
    const Ruleset closed = everything(kernel.version, true);
    EXPECT_EQ(closed.files, kernel.ruleset.files) << kernel.version;
    EXPECT_EQ(closed.network, 0U) << kernel.version;
    EXPECT_EQ(closed.scopes, kernel.ruleset.scopes) << kernel.version;
  }
}

}  // namespace
}  // namespace tarnwell::confinement
