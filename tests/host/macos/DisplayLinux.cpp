#include "host/macos/Display.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

#include "system/processes/Pipe.h"
#include "system/processes/Process.h"

namespace tarnwell::host_macos {

// The server ends with this process.
void openDisplay() {
  system::Pipe pipe = system::Pipe::create();
  const auto server = system::Process::start({
      .words = {"Xvfb", "-displayfd", "3", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"},
      .extra = pipe.writeEnd.number(),
      .endsWithStarter = true,
  });
  pipe.writeEnd.close();
  std::string number = pipe.readEnd.readAll().value_or("");
  if (!server || number.empty()) {
    throw std::runtime_error("Xvfb does not start");
  }
  number.pop_back();
  ::setenv("DISPLAY", (":" + number).c_str(), 1);
}

}  // namespace tarnwell::host_macos
