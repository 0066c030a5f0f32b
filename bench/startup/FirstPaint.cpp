// Starts a program and tells when its first window stood painted on the screen, seen from the X server.
// usage: first-paint COMMAND [ARGUMENT...]
// Prints milliseconds from start to the end of the first paint, processor milliseconds and peak memory.

#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/damage.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

namespace {

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};
template <class T>
using Reply = std::unique_ptr<T, Free>;

/// Smaller windows are a toolkit's own, never shown.
constexpr int smallestWindow = 100;
constexpr unsigned char eventKind = 0x7f;
/// The server clears a window before the program paints it, maybe in several steps; after such a pause it is done.
constexpr int pauseMilliseconds = 300;

using Clock = std::chrono::steady_clock;

[[noreturn]] void fail(const char* message) {
  std::fprintf(stderr, "first-paint: %s\n", message);
  std::exit(EXIT_FAILURE);
}

std::string statusOf(pid_t process, const std::string& field) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind(field + ":", 0) == 0) {
      return line.substr(field.size() + 1);
    }
  }
  return "?";
}

long processorMilliseconds(pid_t process) {
  std::ifstream stat("/proc/" + std::to_string(process) + "/stat");
  std::string line;
  std::getline(stat, line);
  // The name in parentheses may hold blanks; user and system time are the 12th and 13th field behind it.
  std::istringstream fields(line.substr(line.rfind(')') + 1));
  std::string skipped;
  for (int field = 0; field < 11; ++field) {
    fields >> skipped;
  }
  long user = 0;
  long system = 0;
  fields >> user >> system;
  return (user + system) * 1000 / ::sysconf(_SC_CLK_TCK);
}

class Screen {
 public:
  Screen() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_) != 0) {
      fail("no display");
    }
    damageEvent_ = xcb_get_extension_data(connection_, &xcb_damage_id)->first_event + XCB_DAMAGE_NOTIFY;
    const Reply<xcb_damage_query_version_reply_t> version(
        xcb_damage_query_version_reply(connection_, xcb_damage_query_version(connection_, 1, 1), nullptr));
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    xcb_change_window_attributes(connection_, root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection_);
  }
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  ~Screen() { xcb_disconnect(connection_); }

  /// Returns when the last part of the first paint reached the screen. `process` is a descriptor of who paints.
  Clock::time_point waitForPaint(int process) {
    Clock::time_point painted = {};
    do {
      while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
        if (isPaint(*event)) {
          painted = Clock::now();
        }
      }
    } while (waitForEvent(process, painted == Clock::time_point() ? -1 : pauseMilliseconds));
    return painted;
  }

 private:
  void watch(xcb_window_t window) {
    xcb_damage_create(connection_, xcb_generate_id(connection_), window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    xcb_flush(connection_);
  }

  bool waitForEvent(int process, int milliseconds) {
    std::array<pollfd, 2> sources = {pollfd{xcb_get_file_descriptor(connection_), POLLIN, 0},
                                     pollfd{process, POLLIN, 0}};
    const bool isReady = ::poll(sources.data(), sources.size(), milliseconds) > 0;
    if (sources.back().revents != 0) {
      fail("the command ended before it had painted");
    }
    return isReady;
  }

  bool isPaint(const xcb_generic_event_t& event) {
    const int kind = event.response_type & eventKind;
    if (kind == XCB_CREATE_NOTIFY) {
      watch(reinterpret_cast<const xcb_create_notify_event_t&>(event).window);
    }
    return kind == damageEvent_ &&
           reinterpret_cast<const xcb_damage_notify_event_t&>(event).area.width >= smallestWindow;
  }

  xcb_connection_t* connection_;
  int damageEvent_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    fail("usage: first-paint COMMAND [ARGUMENT...]");
  }
  Screen screen;
  const auto began = Clock::now();
  pid_t process = 0;
  if (::posix_spawnp(&process, argv[1], nullptr, nullptr, argv + 1, environ) != 0) {
    fail("cannot start the command");
  }
  const auto ended = static_cast<int>(::syscall(SYS_pidfd_open, process, 0));
  if (ended < 0) {
    fail("cannot watch the command");
  }
  const std::chrono::duration<double, std::milli> elapsed = screen.waitForPaint(ended) - began;
  std::printf("%.1f ms  %ld ms of processor time  %s at the most\n", elapsed.count(), processorMilliseconds(process),
              statusOf(process, "VmHWM").c_str());
  ::kill(process, SIGTERM);
  ::waitpid(process, nullptr, 0);
  return EXIT_SUCCESS;
}
