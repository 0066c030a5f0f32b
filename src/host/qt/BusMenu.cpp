#include "host/qt/BusMenu.h"

#include <QtDBus/QDBusMetaType>
#include <algorithm>
#include <utility>

#include "host/qt/Conversions.h"
#include "host/qt/KeyEquivalentText.h"
#include "host/qt/RunLater.h"
#include "kit/Application.h"

namespace tarnwell::host_qt {
namespace {

constexpr int rootId = 0;
constexpr uint protocolVersion = 3;

const QString menuInterfaceName = QStringLiteral("com.canonical.dbusmenu");
const QString menuDescription = QStringLiteral(R"xml(<interface name="com.canonical.dbusmenu">
  <property name="Version" type="u" access="read"/>
  <property name="TextDirection" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="IconThemePath" type="as" access="read"/>
  <method name="GetLayout">
    <arg type="i" name="parentId" direction="in"/>
    <arg type="i" name="recursionDepth" direction="in"/>
    <arg type="as" name="propertyNames" direction="in"/>
    <arg type="u" name="revision" direction="out"/>
    <arg type="(ia{sv}av)" name="layout" direction="out"/>
  </method>
  <method name="GetGroupProperties">
    <arg type="ai" name="ids" direction="in"/>
    <arg type="as" name="propertyNames" direction="in"/>
    <arg type="a(ia{sv})" name="properties" direction="out"/>
  </method>
  <method name="GetProperty">
    <arg type="i" name="id" direction="in"/>
    <arg type="s" name="name" direction="in"/>
    <arg type="v" name="value" direction="out"/>
  </method>
  <method name="Event">
    <arg type="i" name="id" direction="in"/>
    <arg type="s" name="eventId" direction="in"/>
    <arg type="v" name="data" direction="in"/>
    <arg type="u" name="timestamp" direction="in"/>
  </method>
  <method name="EventGroup">
    <arg type="a(isvu)" name="events" direction="in"/>
    <arg type="ai" name="idErrors" direction="out"/>
  </method>
  <method name="AboutToShow">
    <arg type="i" name="id" direction="in"/>
    <arg type="b" name="needUpdate" direction="out"/>
  </method>
  <method name="AboutToShowGroup">
    <arg type="ai" name="ids" direction="in"/>
    <arg type="ai" name="updatesNeeded" direction="out"/>
    <arg type="ai" name="idErrors" direction="out"/>
  </method>
  <signal name="LayoutUpdated">
    <arg type="u" name="revision"/>
    <arg type="i" name="parent"/>
  </signal>
</interface>)xml");

// An underline of a title marks no letter.
QString labelOf(const kit::MenuItem& item) { return toQString(item.title()).replace('_', "__"); }

// One equivalent, which is a list of its keys.
QVariant shortcutOf(const QStringList& keys) { return QVariant::fromValue(QList<QStringList>{keys}); }

}  // namespace

BusMenu::BusMenu(const QDBusConnection& bus, const QString& path, kit::Application& application,
                 std::shared_ptr<kit::Menu> menu)
    : BusObject(bus, path, menuInterfaceName, menuDescription), application_(application), menu_(std::move(menu)) {
  qDBusRegisterMetaType<QList<QStringList>>();
  number(*menu_, items_);
  changes_ = menu_->observe([this] { follow(); });
}

std::optional<QVariantList> BusMenu::call(const QString& method, const QVariantList& arguments) {
  const QVariant first = arguments.value(0);
  if (method == QLatin1String("GetLayout")) {
    return layout(first.toInt(), arguments.value(1).toInt());
  }
  if (method == QLatin1String("GetGroupProperties")) {
    return groupProperties(first);
  }
  if (method == QLatin1String("GetProperty")) {
    return itemProperty(first.toInt(), arguments.value(1).toString());
  }
  if (method == QLatin1String("Event")) {
    handle({.id = first.toInt(), .kind = arguments.value(1).toString()});
    return QVariantList{};
  }
  if (method == QLatin1String("EventGroup")) {
    for (const auto& event : qdbus_cast<QList<BusMenuEvent>>(first)) {
      handle(event);
    }
    return QVariantList{QVariant::fromValue(QList<int>())};
  }
  if (method == QLatin1String("AboutToShow")) {
    return QVariantList{aboutToShow()};
  }
  if (method == QLatin1String("AboutToShowGroup")) {
    const QList<int> changed = aboutToShow() ? qdbus_cast<QList<int>>(first) : QList<int>();
    return QVariantList{QVariant::fromValue(changed), QVariant::fromValue(QList<int>())};
  }
  return std::nullopt;
}

QVariantMap BusMenu::properties() const {
  return {
      {"Version", protocolVersion}, {"TextDirection", "ltr"}, {"Status", "normal"}, {"IconThemePath", QStringList()}};
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

QVariantList BusMenu::layout(int id, int depth) const {
  const auto found = items_.find(id);
  const kit::Menu* submenu = found != items_.end() ? found->second->submenu().get() : nullptr;
  return {revision_, QVariant::fromValue(layoutOf(id, id == rootId ? menu_.get() : submenu, depth))};
}

// A negative depth has no end.
BusMenuLayout BusMenu::layoutOf(int id, const kit::Menu* submenu, int depth) const {
  BusMenuLayout layout{.id = id, .properties = propertiesOf(id)};
  if (submenu != nullptr && depth != 0) {
    for (const Item& item : submenu->items()) {
      layout.children += QVariant::fromValue(layoutOf(numberOf(item), item->submenu().get(), depth - 1));
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
  QVariantMap properties = {{"label", labelOf(item)}, {"enabled", application_.canChoose(item)}};
  if (const QStringList keys = keyEquivalentNames(item.keyEquivalent()); !keys.isEmpty()) {
    properties.insert("shortcut", shortcutOf(keys));
  }
  if (item.submenu()) {
    properties.insert("children-display", "submenu");
  }
  return properties;
}

QVariantList BusMenu::groupProperties(const QVariant& ids) const {
  auto wanted = qdbus_cast<QList<int>>(ids);
  if (wanted.isEmpty()) {
    // None stands for all.
    std::ranges::transform(items_, std::back_inserter(wanted), &std::pair<const int, Item>::first);
  }
  QList<BusMenuItem> group;
  for (const int id : wanted) {
    group += {.id = id, .properties = propertiesOf(id)};
  }
  return {QVariant::fromValue(group)};
}

QVariantList BusMenu::itemProperty(int id, const QString& name) const {
  return {QVariant::fromValue(QDBusVariant(propertiesOf(id).value(name)))};
}

bool BusMenu::aboutToShow() {
  const uint shown = revision_;
  menu_->willOpen();
  return revision_ != shown;
}

void BusMenu::handle(const BusMenuEvent& event) {
  const auto found = items_.find(event.id);
  if (event.kind == QLatin1String("clicked") && found != items_.end()) {
    // After the answer: what is chosen may take its time, or end the program.
    runLater(*this, [this, item = found->second] { application_.choose(item); });
  }
}

}  // namespace tarnwell::host_qt
