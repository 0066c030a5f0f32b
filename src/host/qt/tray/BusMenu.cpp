#include "host/qt/tray/BusMenu.h"

#include <algorithm>
#include <utility>

#include "host/qt/look/Conversions.h"
#include "host/qt/look/Keys.h"
#include "host/qt/session/RunLater.h"
#include "kit/application/Application.h"

namespace tarnwell::host_qt {
namespace {

constexpr int rootId = 0;
constexpr uint protocolVersion = 3;

const QString menuInterfaceName = QStringLiteral("com.canonical.dbusmenu");

// An underline of a title marks no letter.
QString labelOf(const kit::MenuItem& item) { return toQString(item.title()).replace('_', "__"); }

// One equivalent, which is a list of its keys.
QVariant shortcutOf(const QStringList& keys) { return QVariant::fromValue(QList<QStringList>{keys}); }

BusError noEntry(int id) { return BusError::invalidArguments(QStringLiteral("no entry %1").arg(id)); }

}  // namespace

BusMenu::BusMenu(const QDBusConnection& bus, const QString& path, kit::Application& application,
                 std::shared_ptr<kit::Menu> menu)
    : BusObject(bus, path, menuInterfaceName), application_(application), menu_(std::move(menu)) {
  declare();
  number(*menu_, items_);
  changes_ = menu_->observe([this] { follow(); });
}

void BusMenu::declare() {
  interface().addProperty("Version", [] { return protocolVersion; });
  interface().addProperty("TextDirection", [] { return QStringLiteral("ltr"); });
  interface().addProperty("Status", [] { return QStringLiteral("normal"); });
  interface().addProperty("IconThemePath", [] { return QStringList(); });
  addMethod("GetLayout", {"parentId", "recursionDepth", "propertyNames", "revision", "layout"}, &BusMenu::layout);
  addMethod("GetGroupProperties", {"ids", "propertyNames", "properties"}, &BusMenu::groupProperties);
  addMethod("GetProperty", {"id", "name", "value"}, &BusMenu::itemProperty);
  addMethod("Event", {"id", "eventId", "data", "timestamp"}, &BusMenu::eventOn);
  addMethod("EventGroup", {"events", "idErrors"}, &BusMenu::eventGroup);
  addMethod("AboutToShow", {"id", "needUpdate"}, &BusMenu::aboutToShow);
  addMethod("AboutToShowGroup", {"ids", "updatesNeeded", "idErrors"}, &BusMenu::aboutToShowGroup);
  interface().addSignal<uint, int>("LayoutUpdated", {"revision", "parent"});
}

void BusMenu::follow() {
  std::map<int, Item> numbered;
  number(*menu_, numbered);
  items_ = std::move(numbered);
  ++revision_;
  emitSignal(QStringLiteral("LayoutUpdated"), {revision_, rootId});
}

void BusMenu::number(const kit::Menu& menu, std::map<int, Item>& numbered) {
  for (const Item& item : menu.items()) {
    const int known = numberOf(item);
    numbered.emplace(known != rootId ? known : nextId_++, item);
    if (item->submenu()) {
      number(*item->submenu(), numbered);
    }
  }
}

int BusMenu::numberOf(const Item& item) const {
  const auto found = std::ranges::find(items_, item, &std::pair<const int, Item>::second);
  return found != items_.end() ? found->first : rootId;
}

bool BusMenu::has(int id) const { return id == rootId || items_.contains(id); }

BusReply<uint, BusMenuLayout> BusMenu::layout(int id, int depth, const QStringList& /*names*/) {
  if (!has(id)) {
    return noEntry(id);
  }
  const kit::Menu* submenu = id == rootId ? menu_.get() : items_.at(id)->submenu().get();
  return std::tuple(revision_, layoutOf(id, submenu, depth));
}

// A negative depth has no end.
BusMenuLayout BusMenu::layoutOf(int id, const kit::Menu* submenu, int depth) const {
  BusMenuLayout layout{.id = id, .properties = propertiesOf(id)};
  if (submenu != nullptr && depth != 0) {
    const int below = depth > 0 ? depth - 1 : depth;
    for (const Item& item : submenu->items()) {
      layout.children += QVariant::fromValue(layoutOf(numberOf(item), item->submenu().get(), below));
    }
  }
  return layout;
}

QVariantMap BusMenu::propertiesOf(int id) const {
  const auto found = items_.find(id);
  if (found == items_.end()) {
    return id == rootId ? QVariantMap{{"children-display", "submenu"}} : QVariantMap();
  }
  const kit::MenuItem& item = *found->second;
  if (item.isSeparator()) {
    return {{"type", "separator"}};
  }
  QVariantMap properties = {{"label", labelOf(item)}, {"enabled", application_.responders().canChoose(item)}};
  if (const QStringList keys = keyEquivalentNames(item.keyEquivalent()); !keys.isEmpty()) {
    properties.insert("shortcut", shortcutOf(keys));
  }
  if (item.submenu()) {
    properties.insert("children-display", "submenu");
  }
  return properties;
}

BusReply<QList<BusMenuItem>> BusMenu::groupProperties(const BusList<int>& ids, const QStringList& /*names*/) {
  QList<int> wanted = ids.items;
  if (wanted.isEmpty()) {
    // None stands for all.
    std::ranges::transform(items_, std::back_inserter(wanted), &std::pair<const int, Item>::first);
  }
  QList<BusMenuItem> group;
  for (const int id : wanted) {
    if (has(id)) {
      group += {.id = id, .properties = propertiesOf(id)};
    }
  }
  return std::tuple(group);
}

BusReply<QDBusVariant> BusMenu::itemProperty(int id, const QString& name) {
  const QVariantMap properties = propertiesOf(id);
  const auto found = properties.constFind(name);
  if (found == properties.constEnd()) {
    return BusError::invalidArguments(QStringLiteral("entry %1 has no %2").arg(id).arg(name));
  }
  return std::tuple(QDBusVariant(*found));
}

BusReply<> BusMenu::eventOn(int id, const QString& kind, const QDBusVariant& /*data*/, uint /*timestamp*/) {
  return handle(id, kind) ? BusReply<>() : noEntry(id);
}

BusReply<QList<int>> BusMenu::eventGroup(const BusList<BusMenuEvent>& events) {
  QList<int> unknown;
  for (const BusMenuEvent& event : events.items) {
    if (!handle(event.id, event.kind)) {
      unknown += event.id;
    }
  }
  return std::tuple(unknown);
}

BusReply<bool> BusMenu::aboutToShow(int id) {
  if (!has(id)) {
    return noEntry(id);
  }
  return std::tuple(updateToShow());
}

BusReply<QList<int>, QList<int>> BusMenu::aboutToShowGroup(const BusList<int>& ids) {
  QList<int> unknown;
  std::ranges::copy_if(ids.items, std::back_inserter(unknown), [this](int id) { return !has(id); });
  return std::tuple(updateToShow() ? ids.items : QList<int>(), unknown);
}

bool BusMenu::updateToShow() {
  const uint shown = revision_;
  application_.responders().menuNeedsUpdate(*menu_);
  return revision_ != shown;
}

bool BusMenu::handle(int id, const QString& kind) {
  const auto found = items_.find(id);
  if (kind == QLatin1String("clicked") && found != items_.end()) {
    // After the answer: what is chosen may take its time, or end the program.
    runLater(*this, [this, item = found->second] { application_.responders().choose(item); });
  }
  return has(id);
}

}  // namespace tarnwell::host_qt
