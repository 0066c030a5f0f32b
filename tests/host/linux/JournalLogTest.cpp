#include "host/linux/JournalLog.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <fstream>
#include <iostream>

#include "fixtures/Subprocess.h"

namespace tarnwell::host_linux {
namespace {

constexpr int refused = 77;

bool writeTo(const char* path, const std::string& text) {
  std::ofstream file(path);
  file << text << std::flush;
  return file.good();
}

// A mount table of this process's own, in which it may mount as if it were root.
bool enterOwnMountTable() {
  const std::string user = std::to_string(::geteuid());
  const std::string group = std::to_string(::getegid());
  return ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && writeTo("/proc/self/setgroups", "deny") &&
         writeTo("/proc/self/uid_map", "0 " + user + " 1") && writeTo("/proc/self/gid_map", "0 " + group + " 1") &&
         ::mount("tmpfs", "/run", "tmpfs", 0, nullptr) == 0 && ::mount("tmpfs", "/dev", "tmpfs", 0, nullptr) == 0 &&
         ::mkdir("/run/systemd", 0755) == 0 && ::mkdir("/run/systemd/journal", 0755) == 0;
}

int listenAt(const char* path) {
  const int number = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, path, sizeof(address.sun_path) - 1);
  return ::bind(number, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0 ? number : -1;
}

// What arrived; empty when nothing did.
std::string received(int number) {
  std::array<char, 4096> bytes = {};
  const ssize_t count = ::recv(number, bytes.data(), bytes.size(), MSG_DONTWAIT);
  return {bytes.data(), static_cast<std::size_t>(count < 0 ? 0 : count)};
}

bool holdsLine(const std::string& text, const std::string& line) {
  return ("\n" + text).find("\n" + line + "\n") != std::string::npos;
}

void speak(const std::string& message = "100 %s of it") {
  JournalLog log("tarnwell");
  log.error("example.part", "main", message);
}

int failing(const std::string& text) {
  std::cerr << "received: " << text << "\n";
  return 1;
}

TEST(JournalLogTest, theJournalGetsTheFields) {
  const int status = fixtures::exitStatusOf([] {
    if (!enterOwnMountTable()) {
      return refused;
    }
    const int journal = listenAt("/run/systemd/journal/socket");
    const int olderLog = listenAt("/dev/log");
    speak("a line\nmore");
    const std::string text = received(journal);
    for (const char* line : {"PRIORITY=3", "SUBSYSTEM=example.part", "CATEGORY=main", "SYSLOG_IDENTIFIER=tarnwell"}) {
      if (!holdsLine(text, line)) {
        return failing(text);
      }
    }
    const bool hasMessage = text.find(std::string("MESSAGE\n\x0b\0\0\0\0\0\0\0a line\nmore\n", 28)) == 0;
    return hasMessage && received(olderLog).empty() ? 0 : failing(text);
  });
  if (status == refused) {
    GTEST_SKIP() << "the system lets us make no mount table";
  }
  EXPECT_EQ(status, 0);
}

TEST(JournalLogTest, withoutAJournalTheOlderLogGetsTheLine) {
  const int status = fixtures::exitStatusOf([] {
    if (!enterOwnMountTable()) {
      return refused;
    }
    const int olderLog = listenAt("/dev/log");
    speak();
    const std::string text = received(olderLog);
    const bool isError = text.starts_with("<11>");  // The user's programs, an error.
    return isError && text.find("tarnwell[") != std::string::npos &&
                   text.ends_with("]: [example.part:main] 100 %s of it")
               ? 0
               : failing(text);
  });
  if (status == refused) {
    GTEST_SKIP() << "the system lets us make no mount table";
  }
  EXPECT_EQ(status, 0);
}

TEST(JournalLogTest, withoutAnyLogTheApplicationGoesOn) {
  const int status = fixtures::exitStatusOf([] {
    if (!enterOwnMountTable()) {
      return refused;
    }
    speak();
    return 0;
  });
  if (status == refused) {
    GTEST_SKIP() << "the system lets us make no mount table";
  }
  EXPECT_EQ(status, 0);
}

TEST(JournalLogTest, logsThatReadNoMoreStopNothing) {
  const int status = fixtures::exitStatusOf([] {
    if (!enterOwnMountTable()) {
      return refused;
    }
    constexpr unsigned patience = 60;
    ::alarm(patience);
    const int journal = listenAt("/run/systemd/journal/socket");
    const int olderLog = listenAt("/dev/log");
    // More than the system keeps of what was not read.
    for (int i = 0; i < 2000; ++i) {
      speak();
    }
    return received(journal).empty() || received(olderLog).empty() ? failing("nothing") : 0;
  });
  if (status == refused) {
    GTEST_SKIP() << "the system lets us make no mount table";
  }
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace tarnwell::host_linux
