#include "standin/dock/ui/ShownDock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <sstream>
#include <thread>

#include "fixtures/WaitFor.h"

namespace tarnwell::standin {
namespace {

using fixtures::waitFor;

constexpr int bottom = Display::height - 1;
// Where there is nothing but the shelf at its full height: between the first two icons.
constexpr int shelfColumn = 422;
constexpr int shelfLine = Display::height - 40;

bool isAsleep(const std::string& status) { return status.find("State:\tS") != std::string::npos; }

// How often it has been on a processor and left it. What else the kernel says, as of memory, changes without it.
std::string turnsOf(const std::string& status) {
  const auto turns = status.find("voluntary_ctxt_switches:");
  return turns == std::string::npos ? "" : status.substr(turns);
}

}  // namespace

ShownDock::ShownDock() { display_.act("mousemove 640 300"); }

void ShownDock::write(const std::string& key, const std::string& value) const {
  const Outcome outcome = system_.shell("\"$D\" write com.apple.dock " + key + " " + value);
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
}

void ShownDock::start() {
  supervisor_.emplace(Words{SUPERVISOR_PATH}, environment());
  ASSERT_TRUE(waitFor([this] { return isShown(); })) << supervisor_->errors();
}

void ShownDock::restart(int times) {
  for (int i = 0; i < times; ++i) {
    const std::size_t before = starts();
    ::kill(process(), SIGTERM);
    ASSERT_TRUE(waitFor([&] { return starts() > before; }));
  }
  ASSERT_TRUE(waitFor([this] { return isShown(); })) << supervisor_->errors();
  // That may have been the former one, until it has heard of the last.
  ASSERT_TRUE(comesToRest()) << supervisor_->errors();
}

void ShownDock::hide() const {
  display_.act("mousemove 640 300");
  ASSERT_TRUE(waitFor([this] { return isHidden(); }));
}

void ShownDock::reveal() const {
  display_.act("mousemove 640 " + std::to_string(bottom));
  ASSERT_TRUE(waitFor([this] { return isShown(); }));
}

void ShownDock::click(int application, int button) const {
  display_.act("mousemove " + std::to_string(iconColumn(application)) + " " + std::to_string(iconLine) + " click " +
               std::to_string(button));
}

Process ShownDock::beginClick() const { return {Words{"/usr/bin/xdotool", "click", "1"}, environment()}; }

void ShownDock::openNotebook() const {
  click(notebook);
  EXPECT_TRUE(waitFor([this] { return display_.windowCount("Ideas") == 1; }));
}

std::size_t ShownDock::starts() const {
  const std::string log = this->log();
  return static_cast<std::size_t>(std::ranges::count(log, '\n'));
}

pid_t ShownDock::process() const {
  const std::string log = this->log();
  return std::stoi(log.substr(log.rfind("Dock[") + 5));
}

pid_t ShownDock::ui() const {
  const std::string supervisor = std::to_string(supervisor_->id());
  std::istringstream children(fileContent("/proc/" + supervisor + "/task/" + supervisor + "/children"));
  for (pid_t child = 0; children >> child;) {
    if (fileContent("/proc/" + std::to_string(child) + "/comm") == "dock-ui\n") {
      return child;
    }
  }
  return -1;
}

ShownDock::Reveal ShownDock::watchReveal() const {
  constexpr std::chrono::milliseconds restful{400};
  // Looking all the time would take from the dock the time that it needs.
  constexpr std::chrono::milliseconds betweenLooks{1};
  const Colors before = column();
  Process pointer({"/usr/bin/xdotool", "mousemove", "640", std::to_string(bottom)}, environment());
  while (!display_.isPointerAtLine(bottom)) {
    std::this_thread::sleep_for(betweenLooks);
  }
  const auto arrival = Clock::now();
  auto first = arrival;
  auto last = arrival;
  Reveal reveal;
  Colors latest = before;
  // Until nothing has changed for a while.
  while (reveal.frames == 0 || Clock::now() - last < restful) {
    Colors now = column();
    if (now != latest) {
      last = Clock::now();
      first = reveal.frames++ == 0 ? last : first;
      latest = std::move(now);
    }
    std::this_thread::sleep_for(betweenLooks);
  }
  reveal.delay = first - arrival;
  reveal.duration = last - first;
  return reveal;
}

// Had the Dock said or its UI read or painted anything in between, the kernel would count more turns of theirs; and one
// that waits for the processor does not sleep.
bool ShownDock::comesToRest() const {
  constexpr int looks = 100;
  std::string last;
  int same = 0;
  return waitFor([&] {
    const std::string dock = fileContent("/proc/" + std::to_string(process()) + "/status");
    const std::string ui = fileContent("/proc/" + std::to_string(this->ui()) + "/status");
    const bool sleep = isAsleep(dock) && isAsleep(ui);
    const std::string turns = turnsOf(dock) + turnsOf(ui);
    same = sleep && turns == last ? same + 1 : 0;
    last = turns;
    return same == looks;
  });
}

bool ShownDock::isHidden() const {
  return display_.color(shelfColumn, bottom - 1) == 0 && display_.windowCount("Dock") == 0;
}

bool ShownDock::isShown() const {
  return display_.color(shelfColumn, shelfLine) != 0 && display_.color(shelfColumn, bottom) == 0;
}

// One pixel wide and as high as the dock.
Colors ShownDock::column() const { return display_.colors(shelfColumn, Display::height - 90, 1, 90); }

Words ShownDock::environment() const {
  Words words = system_.environment();
  const std::string folder = system_.folder().path().string();
  words.push_back("DISPLAY=" + display_.name());
  words.push_back("HOME=" + folder);
  words.push_back("XDG_RUNTIME_DIR=" + folder);
  return words;
}

}  // namespace tarnwell::standin
