#include "host/linux/JournalLog.h"

#include <syslog.h>
#include <unistd.h>

#include <ctime>
#include <iomanip>
#include <locale>
#include <sstream>
#include <utility>

#include "host/linux/start/Datagram.h"

namespace tarnwell::host_linux {
namespace {

// A log that reads no more must not stop the application, as it would in the system's own functions.
bool tell(const char* log, const std::string& bytes) {
  const auto address = socketAddress(log);
  return address && leaveDatagram(*address, bytes);
}

std::string journalField(const std::string& name, const std::string& value) { return name + "=" + value + "\n"; }

// Of any bytes, line ends too: its length follows the name, the lowest byte of eight first.
std::string journalBytes(const std::string& name, const std::string& value) {
  std::string length;
  for (unsigned shift = 0; shift < 64U; shift += 8U) {
    length += static_cast<char>(static_cast<unsigned char>(value.size() >> shift));
  }
  return name + "\n" + length + value + "\n";
}

std::string timeOfDay() {
  const std::time_t now = std::time(nullptr);
  std::tm local = {};
  ::localtime_r(&now, &local);
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << std::put_time(&local, "%b %e %T");
  return text.str();
}

}  // namespace

JournalLog::JournalLog(std::string identifier) : identifier_(std::move(identifier)) {}

void JournalLog::error(const std::string& subsystem, const std::string& category, const std::string& message) {
  const bool told = tell("/run/systemd/journal/socket",
                         journalBytes("MESSAGE", message) + journalField("PRIORITY", std::to_string(LOG_ERR)) +
                             journalField("SUBSYSTEM", subsystem) + journalField("CATEGORY", category) +
                             journalField("SYSLOG_IDENTIFIER", identifier_));
  if (!told) {
    tell("/dev/log", "<" + std::to_string(LOG_USER | LOG_ERR) + ">" + timeOfDay() + " " + identifier_ + "[" +
                         std::to_string(::getpid()) + "]: [" + subsystem + ":" + category + "] " + message);
  }
}

}  // namespace tarnwell::host_linux
