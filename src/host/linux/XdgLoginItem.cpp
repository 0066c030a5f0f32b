#include "host/linux/XdgLoginItem.h"

#include <system_error>

#include "host/linux/DesktopEntry.h"
#include "installation/BaseFolders.h"
#include "installation/FindProgram.h"
#include "system/files/AtomicFile.h"
#include "system/files/ReadFile.h"

namespace tarnwell::host_linux {
namespace {

namespace fs = std::filesystem;

constexpr const char* hiddenKey = "Hidden";
constexpr const char* enabledKey = "X-GNOME-Autostart-enabled";
constexpr std::size_t largestEntry = 1024UL * 1024;  // Bytes; a few hundred are usual.

// Where writing goes: to the file that a link leads to, so that one who keeps the file elsewhere keeps doing so.
fs::path behindLinks(const fs::path& path) {
  std::error_code error;
  const fs::path real = fs::canonical(path, error);
  return fs::is_regular_file(real, error) ? real : path;
}

bool isLink(const fs::path& path) {
  std::error_code error;
  return fs::is_symlink(path, error);
}

// Nothing there is an empty text; so is a device or a folder, which can be no entry.
system::Result<std::string> contentOf(const fs::path& path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) {
    return std::string();
  }
  auto content = system::readFile(path, largestEntry);
  return content ? content : system::Failure{"cannot read " + path.string()};
}

bool isOn(const DesktopEntry& entry) {
  return !entry.value("Exec").value_or("").empty() && !entry.isTrue(hiddenKey) && !entry.isFalse(enabledKey);
}

void switchOn(DesktopEntry& entry) {
  entry.erase(hiddenKey);
  if (entry.isFalse(enabledKey)) {
    entry.erase(enabledKey);
  }
}

// Whether a line starts what `exec` does, perhaps by another program that sets things up.
bool starts(const std::string& line, const std::string& exec) {
  const std::string padded = " " + line + " ";
  return padded.find(" " + exec + " ") != std::string::npos;
}

bool startsSomething(const DesktopEntry& entry) {
  return installation::isFound(programOf(entry.value("Exec").value_or("")));
}

// Desktops pass over an entry that asks for a program which is not there.
bool isPassedOver(const DesktopEntry& entry) {
  const std::string program = unescaped(entry.value("TryExec").value_or(""));
  return !program.empty() && !installation::isFound(program);
}

void setWhereMissing(DesktopEntry& entry, const std::string& key, const std::string& value) {
  if (!entry.value(key)) {
    entry.set(key, value);
  }
}

std::optional<std::string> words(const system::Result<void>& result) {
  return result ? std::nullopt : std::optional(result.error().message);
}

}  // namespace

kit::LoginItem::Status XdgLoginItem::status() const {
  const auto path = file();
  if (!path) {
    return Status::notFound;
  }
  const auto content = contentOf(*path);
  const DesktopEntry entry(content ? *content : "");
  if (!isOn(entry)) {
    return Status::notRegistered;
  }
  return startsSomething(entry) && !isPassedOver(entry) ? Status::enabled : Status::notFound;
}

std::optional<std::string> XdgLoginItem::registerItem() { return words(tryRegister()); }

std::optional<std::string> XdgLoginItem::unregisterItem() { return words(tryUnregister()); }

system::Result<fs::path> XdgLoginItem::folder() {
  const fs::path base = installation::configurationFolder();
  if (base.empty()) {
    return system::Failure{"neither XDG_CONFIG_HOME nor HOME names a folder"};
  }
  return base / "autostart";
}

system::Result<void> XdgLoginItem::tryRegister() const {
  const auto path = file();
  if (!path) {
    return path.error();
  }
  const auto exec = execLine();
  if (!exec) {
    return exec.error();
  }
  const fs::path target = behindLinks(*path);
  const auto content = contentOf(target);
  if (!content) {
    return content.error();
  }
  if (content->empty()) {
    return system::replaceFile(target, ownText(*exec));
  }
  DesktopEntry entry(*content);
  switchOn(entry);
  setWhereMissing(entry, "Name", program_.name);
  setWhereMissing(entry, "Type", "Application");
  if (isPassedOver(entry)) {
    entry.erase("TryExec");
  }
  if (!startsSomething(entry) || !starts(entry.value("Exec").value_or(""), *exec)) {
    entry.set("Exec", *exec);
  }
  return system::replaceFile(target, entry.text());
}

system::Result<void> XdgLoginItem::tryUnregister() const {
  const auto path = file();
  if (!path) {
    return path.error();
  }
  const auto content = contentOf(*path);
  if (!content) {
    return content.error();
  }
  const auto exec = execLine();
  if (content->empty()) {
    return {};
  }
  if (exec && *content == ownText(*exec) && !isLink(*path)) {
    std::error_code error;
    fs::remove(*path, error);
    return error ? system::Failure{"cannot remove " + path->string() + ": " + error.message()} : system::Result<void>();
  }
  DesktopEntry entry(*content);
  entry.set(hiddenKey, "true");
  return system::replaceFile(behindLinks(*path), entry.text());
}

system::Result<fs::path> XdgLoginItem::file() const {
  auto place = folder();
  if (place) {
    *place /= program_.id + ".desktop";
  }
  return place;
}

system::Result<std::string> XdgLoginItem::execLine() const {
  if (const auto line = execValue({program_.executable.string(), program_.argument})) {
    return *line;
  }
  return system::Failure{"an autostart entry cannot name " + program_.executable.string() + ": there is a \"=\" in it"};
}

std::string XdgLoginItem::ownText(const std::string& exec) const {
  return "[Desktop Entry]\nType=Application\nName=" + program_.name + "\nIcon=" + program_.id + "\nExec=" + exec + "\n";
}

}  // namespace tarnwell::host_linux
