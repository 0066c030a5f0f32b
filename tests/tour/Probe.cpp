// Loaded into the engine that ships: when it says its first line its fences stand, and this tries what they are to
// prevent. What it gets away with is written to the file that its environment names, which was open before.
#include <arpa/inet.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

int journal = -1;

void note(const char* what, bool isDone) {
  const std::string line = std::string(what) + (isDone ? " yes\n" : " no\n");
  (void)!::write(journal, line.data(), line.size());
}

const char* named(const char* variable) {
  const char* value = ::getenv(variable);
  return value == nullptr ? "" : value;
}

bool canRead(const char* path) {
  const int file = ::open(path, O_RDONLY | O_CLOEXEC);
  return file >= 0 && ::close(file) == 0;
}

bool canWrite(const std::string& path) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  return file >= 0 && ::close(file) == 0;
}

bool canStart(const char* program) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::execl(program, program, "--version", nullptr);
    ::_exit(127);
  }
  int status = 0;
  return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) != 127;
}

bool canConnectLocally(const char* path) {
  sockaddr_un address = {.sun_family = AF_UNIX, .sun_path = {}};
  std::strncpy(address.sun_path, path, sizeof address.sun_path - 1);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  return socket >= 0 && ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

bool canConnectOut(const char* port) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(std::atoi(port)));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  return socket >= 0 && ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

void probe() {
  note("settings", canRead(named("PROBE_SETTINGS")));
  note("home", canWrite(std::string(named("PROBE_HOME")) + "/written"));
  note("shell", canStart("/bin/sh"));
  note("tool", canStart("/usr/bin/dpkg-deb"));
  note("bus", canConnectLocally(named("PROBE_BUS")));
  note("network", canConnectOut(named("PROBE_PORT")));
  note("kill", ::kill(::getppid(), 0) == 0);
  note("memory", std::malloc(std::size_t{8} << 30U) != nullptr);
  note("certificates", canRead("/etc/ssl/openssl.cnf") || canRead("/etc/ssl/certs"));
}

}  // namespace

// Before main, when nothing is closed yet.
__attribute__((constructor)) static void openJournal() {
  journal = ::open(named("PROBE_JOURNAL"), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
}

// In the place of the C library's.
extern "C" ssize_t write(int file, const void* bytes, std::size_t count) {
  static const auto real = reinterpret_cast<ssize_t (*)(int, const void*, std::size_t)>(::dlsym(RTLD_NEXT, "write"));
  static bool isProbed = false;
  if (file == STDOUT_FILENO && !isProbed) {
    isProbed = true;
    probe();
  }
  return real(file, bytes, count);
}
