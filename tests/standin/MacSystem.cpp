#include "standin/MacSystem.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace tarnwell::standin {

Outcome MacSystem::defaults(const Words& arguments) const {
  Words command = {DEFAULTS_PATH};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return run(command, environment());
}

Outcome MacSystem::shell(const std::string& text) const { return run({"/bin/sh", "-c", text}, environment()); }

void MacSystem::runWrites(const fixtures::Commands& commands) const {
  for (const std::string& command : commands) {
    shell(R"(defaults() { "$D" "$@"; }; killall() { :; }; )" + command);
  }
}

std::string MacSystem::value(const std::string& key) const {
  std::string text = defaults({"read", "com.apple.dock", key}).output;
  if (text.ends_with('\n')) {
    text.pop_back();
  }
  return text;
}

Words MacSystem::environment() const {
  return {"MACOS_ROOT=" + root(), "PATH=/usr/bin:/bin", std::string("D=") + DEFAULTS_PATH};
}

void MacSystem::store(const std::string& bytes) const {
  std::filesystem::create_directories(preferences());
  std::ofstream(dockStore(), std::ios::binary) << bytes;
}

Words MacSystem::preferenceNames() const {
  Words names;
  for (const auto& entry : std::filesystem::directory_iterator(preferences())) {
    if (entry.path().filename() != ".defaults.lock") {
      names.push_back(entry.path().filename().string());
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string fileContent(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string binaryOf(const PropertyList& list) {
  const system::Result<std::string> bytes = binaryText(list.get());
  return bytes ? *bytes : std::string();
}

PropertyList listIn(std::string_view bytes) {
  system::Result<PropertyList> list = parsePropertyList(bytes);
  return list ? *std::move(list) : nullptr;
}

PropertyList everyType() {
  PropertyList list(plist_new_dict());
  plist_t nested = plist_new_dict();
  plist_t array = plist_new_array();
  plist_array_append_item(array, plist_new_string("h\xC3\xA9 \xF0\x9F\x98\x80"));
  plist_array_append_item(array, plist_new_array());
  plist_dict_set_item(nested, "array", array);
  plist_dict_set_item(nested, "", plist_new_string(""));
  plist_dict_set_item(list.get(), "nested", nested);
  plist_dict_set_item(list.get(), "date", plist_new_date(700000000, 123456));
  plist_dict_set_item(list.get(), "data", plist_new_data("\0\xFF\x01", 3));
  plist_dict_set_item(list.get(), "uid", plist_new_uid(42));
  plist_dict_set_item(list.get(), "real", plist_new_real(0.1));
  plist_dict_set_item(list.get(), "small", plist_new_real(5e-324));
  plist_dict_set_item(list.get(), "negative", plist_new_uint(static_cast<std::uint64_t>(-5)));
  plist_dict_set_item(list.get(), "least", plist_new_uint(1ULL << 63U));
  plist_dict_set_item(list.get(), "no", plist_new_bool(0));
  plist_dict_set_item(list.get(), "control", plist_new_string("a\x01\n\"b"));
  return list;
}

}  // namespace tarnwell::standin
