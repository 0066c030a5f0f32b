#include "standin/dock/DockBehavior.h"

#include <charconv>
#include <cstdint>

#include "standin/dock/model/Reveal.h"
#include "standin/store/ValueText.h"

namespace tarnwell::standin {
namespace {

plist_t nodeOf(const StoredPreferences& stored, const char* key, plist_type type) {
  if (stored.state != StoreState::sound) {
    return nullptr;
  }
  plist_t node = plist_dict_get_item(stored.dictionary.get(), key);
  return node != nullptr && plist_get_node_type(node) == type ? node : nullptr;
}

void read(const StoredPreferences& stored, const char* key, double& value) {
  if (plist_t node = nodeOf(stored, key, PLIST_REAL)) {
    plist_get_real_val(node, &value);
    value = Reveal::usable(Reveal::Seconds(value)).count();
  }
}

void read(const StoredPreferences& stored, const char* key, bool& value) {
  if (plist_t node = nodeOf(stored, key, PLIST_BOOLEAN)) {
    std::uint8_t stands = 0;
    plist_get_bool_val(node, &stands);
    value = stands != 0;
  }
}

void read(const StoredPreferences& stored, const char* key, MinimizeEffect& value) {
  if (plist_t node = nodeOf(stored, key, PLIST_STRING)) {
    value = effectNamed(valueText(node));
  }
}

/// Meets each key with its value, so that reading and listing have one table.
template <class Behavior, class Visitor>
void visit(Behavior& behavior, const Visitor& visitor) {
  visitor("autohide-delay", behavior.autohideDelay);
  visitor("autohide-time-modifier", behavior.autohideTimeModifier);
  visitor("scroll-to-open", behavior.scrollToOpen);
  visitor("mineffect", behavior.minimizeEffect);
  visitor("showhidden", behavior.showHidden);
  visitor("static-only", behavior.staticOnly);
  visitor("single-app", behavior.singleApp);
}

std::string textOf(double value) { return realText(value); }
std::string textOf(bool value) { return value ? "1" : "0"; }
std::string textOf(MinimizeEffect value) { return std::string(effectName(value)); }

void take(std::string_view text, double& value) {
  double found = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), found).ec == std::errc()) {
    value = found;
  }
}

void take(std::string_view text, bool& value) { value = text == textOf(true); }
void take(std::string_view text, MinimizeEffect& value) { value = effectNamed(text); }

}  // namespace

DockBehavior dockBehavior(const StoredPreferences& stored) {
  DockBehavior behavior;
  visit(behavior, [&](const char* key, auto& value) { read(stored, key, value); });
  return behavior;
}

std::string listText(const DockBehavior& behavior) {
  std::string text;
  visit(behavior, [&](const char* key, const auto& value) { text += std::string(key) + " " + textOf(value) + "\n"; });
  return text;
}

DockBehavior listedBehavior(std::string_view text) {
  DockBehavior behavior;
  visit(behavior, [&](const std::string& key, auto& value) {
    const std::size_t begin = text.find(key + " ");
    if (begin != std::string_view::npos) {
      const std::string_view rest = text.substr(begin + key.size() + 1);
      take(rest.substr(0, rest.find('\n')), value);
    }
  });
  return behavior;
}

}  // namespace tarnwell::standin
