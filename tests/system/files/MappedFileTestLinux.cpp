#include <fcntl.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>

#include "fixtures/Sandbox.h"
#include "system/base/Descriptor.h"
#include "system/files/MappedFile.h"

namespace tarnwell::system {
namespace {

/// What the system has been told of the memory that begins there.
std::string flagsOf(const void* start) {
  std::ostringstream address;
  address << std::hex << reinterpret_cast<std::uintptr_t>(start) << '-';
  std::ifstream maps("/proc/self/smaps");
  bool isFound = false;
  for (std::string line; std::getline(maps, line);) {
    isFound = isFound || line.starts_with(address.str());
    if (isFound && line.starts_with("VmFlags:")) {
      return line;
    }
  }
  return "";
}

TEST(MappedFileTest, needNotStayInMemoryOnceItIsRead) {
  const fixtures::Sandbox sandbox;
  sandbox.write("file", "text");
  const auto file = MappedFile::create(Descriptor(::open((sandbox / "file").c_str(), O_RDONLY | O_CLOEXEC)).number());
  ASSERT_TRUE(file);
  EXPECT_NE(flagsOf(file->bytes()).find(" sr "), std::string::npos);
}

}  // namespace
}  // namespace tarnwell::system
