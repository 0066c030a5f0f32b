#include "standin/dock/DockBehavior.h"

#include <charconv>
#include <cstdint>

#include "standin/dock/motion/Reveal.h"
#include "standin/store/lists/OldStyleText.h"
#include "standin/store/lists/ValueText.h"

namespace tarnwell::standin {
namespace {

/// Meets each key with its value, so that reading, listing and logging have one table.
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

// The type that a preference has in the store.
plist_type storedTypeOf(double /*value*/) { return PLIST_REAL; }
plist_type storedTypeOf(bool /*value*/) { return PLIST_BOOLEAN; }
plist_type storedTypeOf(MinimizeEffect /*value*/) { return PLIST_STRING; }

// From a node of that type.
void read(plist_t node, double& value) {
  plist_get_real_val(node, &value);
  value = Reveal::usable(Reveal::Seconds(value)).count();
}

void read(plist_t node, bool& value) {
  std::uint8_t stands = 0;
  plist_get_bool_val(node, &stands);
  value = stands != 0;
}

void read(plist_t node, MinimizeEffect& value) { value = effectNamed(valueText(node)); }

std::string foundText(const StoredPreferences& stored, const char* key, plist_type type) {
  if (stored.state == StoreState::absent) {
    return "absent";
  }
  if (stored.state != StoreState::sound) {
    return "unreadable";
  }
  plist_t node = plist_dict_get_item(stored.dictionary.get(), key);
  if (node == nullptr) {
    return "absent";
  }
  if (plist_get_node_type(node) != type) {
    return std::string("wrong-type(") + typeName(node) + ")";
  }
  return quotedText(valueText(node));
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
  if (stored.state == StoreState::sound) {
    visit(behavior, [&](const char* key, auto& value) {
      plist_t node = plist_dict_get_item(stored.dictionary.get(), key);
      if (node != nullptr && plist_get_node_type(node) == storedTypeOf(value)) {
        read(node, value);
      }
    });
  }
  return behavior;
}

std::string logText(const StoredPreferences& stored) {
  constexpr DockBehavior unset;
  std::string text;
  visit(unset, [&](const std::string& key, const auto& value) {
    text += (text.empty() ? "" : " ") + key + "=" + foundText(stored, key.c_str(), storedTypeOf(value));
  });
  return text;
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
