#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "fuzz/OwnFolder.h"
#include "fuzz/Require.h"
#include "host/linux/DesktopEntry.h"
#include "host/linux/XdgLoginItem.h"

namespace tarnwell::fuzz {
namespace {

using host_linux::DesktopEntry;
using host_linux::XdgLoginItem;
using Status = kit::LoginItem::Status;

constexpr const char* key = "Exec";

/// A key is set and taken away again, and every other line stays as it was. A group is added at the end if need be.
void checkLines(std::string_view text) {
  DesktopEntry without(text);
  require(without.text() == text);
  without.erase(key);
  require(!without.value(key));
  DesktopEntry with(text);
  with.set(key, "some program");
  require(with.value(key) == "some program" && DesktopEntry(with.text()).value(key) == "some program");
  with.erase(key);
  std::string rest = without.text();
  rest.resize(rest.ends_with('\n') ? rest.size() - 1 : rest.size());
  require(with.text().starts_with(rest));
}

/// The text is a program, which an entry names and starts.
void checkProgram(std::string_view text) {
  const auto line = host_linux::execValue({std::string(text), "--argument"});
  require(line.has_value() == (text.find('=') == std::string_view::npos));
  if (line) {
    require(line->find('\n') == std::string::npos && host_linux::programOf(*line) == text);
  }
  host_linux::programOf(text);
}

/// The text is the entry that is there. Whatever it says, it can be switched on and off, and on again to the byte.
void checkLoginItem(std::string_view text) {
  const OwnFolder folder;
  ::setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
  const auto file = folder.path() / "autostart/example.desktop";
  std::filesystem::create_directory(file.parent_path());
  writeFile(file, text);
  XdgLoginItem item({.id = "example", .name = "Example", .executable = "/bin/true", .argument = "--argument"});
  require(item.status() == item.status() && contentOf(file) == text);
  require(!item.registerItem() && item.status() == Status::enabled);
  const std::string on = contentOf(file);
  require(!item.registerItem() && contentOf(file) == on);
  require(!item.unregisterItem() && item.status() == Status::notRegistered);
  require(!item.registerItem() && contentOf(file) == on);
}

void run(std::string_view text) {
  checkLines(text);
  checkProgram(text);
  checkLoginItem(text);
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
