#include "commandline/commands/ProfileFile.h"

#include <fcntl.h>
#include <unistd.h>

#include "profile/toml/ProfileReader.h"
#include "system/base/Descriptor.h"

namespace tarnwell::commandline {
namespace {

system::Descriptor openInput(const std::string& name) {
  return system::Descriptor(name == "-" ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)
                                        : ::open(name.c_str(), O_RDONLY | O_CLOEXEC));
}

}  // namespace

system::Result<profile::Profile> readProfileFile(const std::string& name) {
  const std::string shown = name == "-" ? "standard input" : name;
  const system::Descriptor file = openInput(name);
  const auto text = file ? file.readAll(profile::largestProfile) : std::nullopt;
  return text ? profile::readProfile(*text, shown) : system::systemFailure("cannot read " + shown);
}

}  // namespace tarnwell::commandline
