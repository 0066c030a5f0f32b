#include "profile/exports/Formats.h"
#include "profile/exports/Notes.h"

namespace tarnwell::profile {
namespace {

constexpr std::string_view play = R"(# The collection community.general has the module.
# Without dock_hosts all hosts are meant.
- name: Hidden settings of the Dock
  hosts: "{{ dock_hosts | default('all') }}"
  gather_facts: false
  module_defaults:
    community.general.osx_defaults:
      domain: com.apple.dock
  tasks:)";

constexpr std::string_view handlers = R"(
  handlers:
    - name: Restart the Dock
      ansible.builtin.command: killall Dock
      register: dock_restart
      changed_when: dock_restart.rc == 0
      failed_when: dock_restart.rc > 1
)";

std::string task(const std::string& name, const std::string& key, const std::string& rest) {
  return "    - name: " + name + "\n      community.general.osx_defaults:\n        key: " + key + '\n' + rest +
         "      notify: Restart the Dock\n";
}

std::string_view typeName(Type type) {
  constexpr std::array<std::string_view, 3> names = {"float", "bool", "string"};
  return names.at(static_cast<std::size_t>(type));
}

}  // namespace

system::Result<Export> ansiblePlay(const Profile& profile, const ExportOptions&) {
  std::vector<std::string> tasks;
  for (const auto& [setting, value] : valuesOf(profile)) {
    const std::string key(setting.key);
    tasks.push_back(
        task("Set " + key, key,
             "        type: " + std::string(typeName(setting.type)) + "\n        value: " + text(value) + '\n'));
  }
  for (const std::string& key : unsetKeysOf(profile)) {
    tasks.push_back(task("Leave " + key + " to the Dock", key, "        state: absent\n"));
  }
  std::string text = "---\n" + headComment("Settings of the Dock.", profile).append(play);
  text += tasks.empty() ? " []\n" : "\n";
  for (const std::string& each : tasks) {
    text += (&each == &tasks.front() ? "" : "\n") + each;
  }
  return Export{text.append(tasks.empty() ? "" : handlers)};
}

}  // namespace tarnwell::profile
