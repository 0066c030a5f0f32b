#include "publish/Program.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>

namespace tarnwell::publish {

ProgramEnd makeFeed(const std::string& arguments, const std::string& before) {
  ProgramEnd end;
  std::FILE* pipe = ::popen((before + MAKE_FEED " " + arguments + " 2>&1").c_str(), "re");
  if (pipe == nullptr) {
    return end;
  }
  std::array<char, 4096> buffer = {};
  for (std::size_t count = 1; count > 0;) {
    count = std::fread(buffer.data(), 1, buffer.size(), pipe);
    end.output.append(buffer.data(), count);
  }
  const int status = ::pclose(pipe);
  end.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return end;
}

}  // namespace tarnwell::publish
