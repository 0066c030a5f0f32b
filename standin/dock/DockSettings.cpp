#include "standin/dock/DockSettings.h"

#include <array>

#include "standin/store/OldStyleText.h"
#include "standin/store/ValueText.h"

namespace tarnwell::standin {
namespace {

struct DockKey {
  const char* name = nullptr;
  plist_type type = PLIST_NONE;
};

constexpr std::array<DockKey, 7> dockKeys = {{{"autohide-delay", PLIST_REAL},
                                              {"autohide-time-modifier", PLIST_REAL},
                                              {"scroll-to-open", PLIST_BOOLEAN},
                                              {"mineffect", PLIST_STRING},
                                              {"showhidden", PLIST_BOOLEAN},
                                              {"static-only", PLIST_BOOLEAN},
                                              {"single-app", PLIST_BOOLEAN}}};

std::string keyText(const StoredPreferences& stored, const DockKey& key) {
  if (stored.state == StoreState::absent) {
    return "absent";
  }
  if (stored.state != StoreState::sound) {
    return "unreadable";
  }
  plist_t node = plist_dict_get_item(stored.dictionary.get(), key.name);
  if (node == nullptr) {
    return "absent";
  }
  if (plist_get_node_type(node) != key.type) {
    return std::string("wrong-type(") + typeName(node) + ")";
  }
  return quotedText(valueText(node));
}

}  // namespace

std::string dockSettingsText(const StoredPreferences& stored) {
  std::string text;
  for (const DockKey& key : dockKeys) {
    if (!text.empty()) {
      text += ' ';
    }
    text += std::string(key.name) + "=" + keyText(stored, key);
  }
  return text;
}

}  // namespace tarnwell::standin
