#include "publish/SecretKey.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "fixtures/OwnMemory.h"
#include "fixtures/Sandbox.h"
#include "system/base/Descriptor.h"

namespace tarnwell::publish {
namespace {

// Both stand where the program cannot write.
constexpr std::string_view seed = "the seed of a key that tests own";
constexpr std::string_view inBase64 = "dGhlIHNlZWQgb2YgYSBrZXkgdGhhdCB0ZXN0cyBvd24=";
/// Allocators write over the beginning of what is freed.
constexpr std::string_view endOfText = inBase64.substr(16);

/// So far down the stack that what is called afterwards does not write over what it left there.
template <class Work>
auto farDown(const Work& work) {
  std::array<volatile char, 1U << 16U> between = {};
  between.front() = 1;
  return work();
}

class SecretKeyTest : public testing::Test {
 protected:
  SecretKeyTest() {
    const system::Descriptor made(::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    EXPECT_TRUE(made.writeAll(inBase64));
    EXPECT_TRUE(SecretKey::generate().store(other));
    EXPECT_FALSE(memory->holds(seed));
  }

  void use(const std::function<void(const SecretKey&)>& work) {
    // At the first call of a function, here with another key, the system's linker saves registers with what they hold.
    useOf(other, work);
    useOf(file, [&](const SecretKey& key) {
      EXPECT_TRUE(memory->holds(seed));
      work(key);
    });
  }

  static void useOf(const std::filesystem::path& path, const std::function<void(const SecretKey&)>& work) {
    farDown([&] {
      const auto key = SecretKey::read(path);
      ASSERT_TRUE(key);
      work(*key);
    });
  }

  fixtures::Sandbox sandbox;
  const std::filesystem::path file = sandbox / "private";
  const std::filesystem::path other = sandbox / "other";
  const std::filesystem::path copy = sandbox / "copy";
  std::unique_ptr<fixtures::OwnMemory> memory = std::make_unique<fixtures::OwnMemory>();
};

TEST_F(SecretKeyTest, aFileThatIsLargerThanMemoryIsSaid) {
  const system::Descriptor large(::memfd_create("key", MFD_CLOEXEC));
  ASSERT_EQ(::fchmod(large.number(), 0600), 0);
  ASSERT_EQ(::ftruncate(large.number(), off_t{1} << 62U), 0);
  const std::string path = "/proc/self/fd/" + std::to_string(large.number());
  const auto key = SecretKey::read(path);
  ASSERT_FALSE(key);
  EXPECT_EQ(key.error().message, path + ": cannot read the file: Cannot allocate memory");
}

TEST_F(SecretKeyTest, whatWasReadIsWiped) {
  use([](const SecretKey&) {});
  EXPECT_FALSE(memory->holds(seed));
  EXPECT_FALSE(memory->holds(endOfText));
}

TEST_F(SecretKeyTest, whatWasSignedWithIsWiped) {
  use([](const SecretKey& key) {
    const std::string signature = farDown([&key] { return key.sign("bytes"); });
    EXPECT_EQ(signature.size(), 88U);
  });
  EXPECT_FALSE(memory->holds(seed));
}

TEST_F(SecretKeyTest, whatWasStoredIsWiped) {
  use([this](const SecretKey& key) {
    EXPECT_TRUE(key.store(copy));
    EXPECT_TRUE(std::filesystem::remove(copy));
  });
  EXPECT_FALSE(memory->holds(seed));
  EXPECT_FALSE(memory->holds(endOfText));
}

}  // namespace
}  // namespace tarnwell::publish
