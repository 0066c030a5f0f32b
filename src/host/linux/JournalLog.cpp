#include "host/linux/JournalLog.h"

// The reader wants to know which part of the application spoke, not which line of it.
#define SD_JOURNAL_SUPPRESS_LOCATION
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <utility>

namespace tarnwell::host_linux {
namespace {

// The library takes a journal that is not there for success.
bool journalListens() { return ::access("/run/systemd/journal/socket", W_OK) == 0; }

}  // namespace

JournalLog::JournalLog(std::string identifier) : identifier_(std::move(identifier)) {
  ::openlog(identifier_.c_str(), LOG_PID, LOG_USER);
}

JournalLog::~JournalLog() { ::closelog(); }

void JournalLog::error(const std::string& subsystem, const std::string& category, const std::string& message) {
  const bool told =
      journalListens() &&
      ::sd_journal_send("MESSAGE=%s", message.c_str(), "PRIORITY=%i", LOG_ERR, "SUBSYSTEM=%s", subsystem.c_str(),
                        "CATEGORY=%s", category.c_str(), "SYSLOG_IDENTIFIER=%s", identifier_.c_str(), nullptr) >= 0;
  if (!told) {
    ::syslog(LOG_ERR, "[%s:%s] %s", subsystem.c_str(), category.c_str(), message.c_str());
  }
}

}  // namespace tarnwell::host_linux
