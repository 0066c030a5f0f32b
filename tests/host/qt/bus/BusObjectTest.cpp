#include "host/qt/bus/BusObject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QTimer>
#include <QtCore/QXmlStreamReader>
#include <QtDBus/QDBusObjectPath>
#include <QtWidgets/QApplication>
#include <cstdlib>
#include <limits>

#include "fixtures/EnvironmentScope.h"
#include "host/qt/Desktop.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/bus/Stranger.h"
#include "host/qt/session/ApplicationService.h"
#include "host/qt/tray/BusStatusItem.h"
#include "host/qt/tray/StatusImage.h"

namespace tarnwell::host_qt {
namespace {

const QString propertyInterface = "org.freedesktop.DBus.Properties";
const QString itemPath = "/Item";
const QString itemInterface = "org.kde.StatusNotifierItem";
const QString menuPath = "/Item/Menu";
const QString busMenuInterface = "com.canonical.dbusmenu";
const QString servicePath = "/example/tarnwell/Tarnwell";
const QString serviceInterface = "org.freedesktop.Application";

constexpr int tooMany = 100'000;

std::string standardError(const char* name) { return std::string("org.freedesktop.DBus.Error.") + name; }

std::string errorIn(const QDBusMessage& answer) {
  return answer.type() == QDBusMessage::ReplyMessage ? "none" : answer.errorName().toStdString();
}

QVariant variant(const QVariant& value) { return QVariant::fromValue(QDBusVariant(value)); }

/// A variant in a variant and so on; the bus takes no more than 64 levels.
QVariant nested(int levels) { return levels == 0 ? QVariant(7) : variant(nested(levels - 1)); }

QVariant dictionaryOfNumbers() {
  QDBusArgument argument;
  argument.beginMap(QMetaType::fromType<QString>(), QMetaType::fromType<int>());
  argument.beginMapEntry();
  argument << QString("activation-token") << 1;
  argument.endMapEntry();
  argument.endMap();
  return QVariant::fromValue(argument);
}

QVariant structure() {
  QDBusArgument argument;
  argument.beginStructure();
  argument << 1 << QString("clicked");
  argument.endStructure();
  return QVariant::fromValue(argument);
}

QVariant structures() {
  QDBusArgument argument;
  argument.beginArray(QMetaType::fromType<BusMenuItem>());
  argument << BusMenuItem{.id = 1};
  argument.endArray();
  return QVariant::fromValue(argument);
}

/// Arguments of all shapes, none of which any of our methods takes.
std::vector<QVariantList> strangeArguments() {
  const QVariantMap map = {{"activation-token", "token"}};
  return {{true},
          {2.5},
          {QByteArray("bytes")},
          {QVariant::fromValue(QDBusObjectPath("/"))},
          {nested(60)},
          {QVariantList{1, "two", nested(20)}},
          {dictionaryOfNumbers()},
          {structure()},
          {structures()},
          {map, map},
          {"text", dictionaryOfNumbers(), map},
          {"text", QVariantList(), structures()},
          {QStringList{"a"}, dictionaryOfNumbers()},
          {1, 2, 3, 4, 5},
          {1, "clicked", "no variant", 0U}};
}

struct Method {
  QString interface;
  QString name;
};

std::vector<Method> methodsIn(const QString& introspection) {
  std::vector<Method> methods;
  QString interface;
  for (QXmlStreamReader reader(introspection); !reader.atEnd(); reader.readNext()) {
    const QString name = reader.attributes().value("name").toString();
    if (reader.isStartElement() && reader.name() == QStringView(u"interface")) {
      interface = name;
    } else if (reader.isStartElement() && reader.name() == QStringView(u"method")) {
      methods.push_back({interface, name});
    }
  }
  return methods;
}

class BusObjectTest : public testing::Test {
 protected:
  BusObjectTest() : menu_(std::make_shared<kit::Menu>()) {
    auto more = std::make_shared<kit::Menu>("More");
    more->setItems({entry("Below", [] {})});
    menu_->setItems({entry("First", [this] { ++chosen_; }), kit::MenuItem::withSubmenu("More", more)});
    item_.setMenu(menu_);
    onBus_ = std::make_unique<BusStatusItem>(QDBusConnection::sessionBus(), itemPath, item_, image_);
    service.setAsked([this](const ApplicationService::Request& request) { requests_.push_back(request); });
  }
  ~BusObjectTest() override { driver::settle(); }

  QString introspection(const QString& path) const {
    const auto answer = stranger_.call(path, "org.freedesktop.DBus.Introspectable", "Introspect", {});
    return answer.arguments().value(0).toString();
  }

  std::string menuError(const QString& method, const QVariantList& arguments) const {
    return errorIn(stranger_.call(menuPath, busMenuInterface, method, arguments));
  }

  std::string propertyError(const QString& method, const QVariantList& arguments) const {
    return errorIn(stranger_.call(itemPath, propertyInterface, method, arguments));
  }

  void expectAnswersStill() const {
    EXPECT_EQ(menuError("GetLayout", {0, -1, QStringList()}), "none");
    EXPECT_EQ(propertyError("GetAll", {itemInterface}), "none");
  }

  Desktop desktop_;
  int chosen_ = 0;
  std::vector<ApplicationService::Request> requests_;
  std::shared_ptr<kit::Menu> menu_;
  kit::StatusItem item_{desktop_.application(), kit::StatusItem::variableLength, "Utility App"};
  StatusImage image_{desktop_.platform().host().theme()};
  std::unique_ptr<BusStatusItem> onBus_;
  ApplicationService service{QDBusConnection::sessionBus(), "example.tarnwell.Tarnwell"};
  Stranger stranger_;
};

TEST_F(BusObjectTest, callsOfOtherTypesAreRefused) {
  for (const QString& path : {itemPath, menuPath, servicePath}) {
    const auto methods = methodsIn(introspection(path));
    ASSERT_GE(methods.size(), 3U);
    for (const Method& method : methods) {
      if (method.interface.startsWith("org.freedesktop.DBus.") && method.interface != propertyInterface) {
        continue;
      }
      for (const QVariantList& arguments : strangeArguments()) {
        EXPECT_EQ(errorIn(stranger_.call(path, method.interface, method.name, arguments)), standardError("InvalidArgs"))
            << method.name.toStdString();
      }
    }
  }
  driver::settle();
  EXPECT_TRUE(requests_.empty());
  EXPECT_EQ(chosen_, 0);
  expectAnswersStill();
}

TEST_F(BusObjectTest, callsWithoutArgumentsAreRefusedWhereSomeAreTaken) {
  EXPECT_EQ(menuError("EventGroup", {}), standardError("InvalidArgs"));
  EXPECT_EQ(errorIn(stranger_.call(servicePath, serviceInterface, "Activate", {})), standardError("InvalidArgs"));
  EXPECT_EQ(propertyError("Get", {}), standardError("InvalidArgs"));
}

TEST_F(BusObjectTest, refusalSaysWhatWouldBeTaken) {
  const auto answer = stranger_.call(menuPath, busMenuInterface, "GetProperty", {"one", "label"});
  EXPECT_EQ(answer.errorMessage(), "GetProperty takes (is), not (ss)");
}

TEST_F(BusObjectTest, whatDoesNotExistIsToldByTheStandardErrors) {
  EXPECT_EQ(menuError("Explode", {1}), standardError("UnknownMethod"));
  EXPECT_EQ(errorIn(stranger_.call(menuPath, "example.Other", "GetLayout", {})), standardError("UnknownInterface"));
  EXPECT_EQ(errorIn(stranger_.call(menuPath, {}, "Explode", {})), standardError("UnknownMethod"));
  EXPECT_EQ(propertyError("Get", {itemInterface, "Weight"}), standardError("UnknownProperty"));
  EXPECT_EQ(propertyError("Get", {"example.Other", "Title"}), standardError("UnknownInterface"));
  EXPECT_EQ(propertyError("GetAll", {"example.Other"}), standardError("UnknownInterface"));
  EXPECT_EQ(propertyError("Explode", {}), standardError("UnknownMethod"));
}

TEST_F(BusObjectTest, propertiesCanOnlyBeRead) {
  const QVariant value = variant("other");
  EXPECT_EQ(propertyError("Set", {itemInterface, "Title", value}), standardError("PropertyReadOnly"));
  EXPECT_EQ(propertyError("Set", {itemInterface, "Weight", value}), standardError("UnknownProperty"));
  EXPECT_EQ(propertyError("Set", {"example.Other", "Title", value}), standardError("UnknownInterface"));
  const auto title = stranger_.call(itemPath, propertyInterface, "Get", {itemInterface, "Title"}).arguments().value(0);
  EXPECT_EQ(title.value<QDBusVariant>().variant().toString(), "Utility App");
}

TEST_F(BusObjectTest, interfaceMayBeLeftOut) {
  EXPECT_EQ(errorIn(stranger_.call(menuPath, {}, "AboutToShow", {0})), "none");
  EXPECT_EQ(errorIn(stranger_.call(itemPath, {}, "Get", {itemInterface, "Title"})), "none");
  EXPECT_EQ(errorIn(stranger_.call(itemPath, {}, "Introspect", {})), "none");
}

TEST_F(BusObjectTest, introspectionTellsTheTypesThatAreAnswered) {
  const QString text = introspection(itemPath);
  const auto answer = stranger_.call(itemPath, propertyInterface, "GetAll", {itemInterface});
  const auto all = qdbus_cast<QVariantMap>(answer.arguments().value(0));
  ASSERT_EQ(all.size(), 10);
  for (auto property = all.begin(); property != all.end(); ++property) {
    const QString line = QStringLiteral("<property name=\"%1\" type=\"%2\" access=\"read\"/>")
                             .arg(property.key(), busSignature(property.value()));
    EXPECT_TRUE(text.contains(line)) << line.toStdString();
  }
  EXPECT_TRUE(introspection(menuPath).contains("<arg type=\"(ia{sv}av)\" name=\"layout\" direction=\"out\"/>"));
}

TEST_F(BusObjectTest, entriesThatDoNotExistAreTold) {
  EXPECT_EQ(menuError("GetLayout", {77, -1, QStringList()}), standardError("InvalidArgs"));
  EXPECT_EQ(menuError("GetProperty", {77, "label"}), standardError("InvalidArgs"));
  EXPECT_EQ(menuError("GetProperty", {1, "weight"}), standardError("InvalidArgs"));
  EXPECT_EQ(menuError("Event", {-5, "clicked", variant(0), 0U}), standardError("InvalidArgs"));
  EXPECT_EQ(menuError("AboutToShow", {77}), standardError("InvalidArgs"));
  const BusList<BusMenuEvent> events = {.items = {{.id = 77, .kind = "clicked", .data = QDBusVariant(0)},
                                                  {.id = 1, .kind = "clicked", .data = QDBusVariant(0)}}};
  const auto group = stranger_.call(menuPath, busMenuInterface, "EventGroup", {QVariant::fromValue(events)});
  EXPECT_TRUE(becomes([this] { return chosen_ == 1; }));
  EXPECT_EQ(qdbus_cast<QList<int>>(group.arguments().value(0)), QList<int>{77});
  const auto shown =
      stranger_.call(menuPath, busMenuInterface, "AboutToShowGroup", {QVariant::fromValue(QList{1, 78})});
  EXPECT_EQ(qdbus_cast<QList<int>>(shown.arguments().value(1)), QList<int>{78});
}

TEST_F(BusObjectTest, layoutGoesAsDeepAsItIsAsked) {
  const auto entriesBelowMore = [this](int depth) {
    const auto answer = stranger_.call(menuPath, busMenuInterface, "GetLayout", {0, depth, QStringList()});
    const auto children = qdbus_cast<BusMenuLayout>(answer.arguments().value(1)).children;
    return children.size() < 2 ? -1 : static_cast<int>(qdbus_cast<BusMenuLayout>(children.at(1)).children.size());
  };
  EXPECT_EQ(entriesBelowMore(0), -1);
  EXPECT_EQ(entriesBelowMore(1), 0);
  for (const int depth : {2, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_EQ(entriesBelowMore(depth), 1) << depth;
  }
}

TEST_F(BusObjectTest, arraysWithoutMeasureAreRefused) {
  const BusList<BusMenuEvent> events = {
      .items = QList<BusMenuEvent>(tooMany, {.id = 1, .kind = "clicked", .data = QDBusVariant(0)})};
  EXPECT_EQ(menuError("EventGroup", {QVariant::fromValue(events)}), standardError("LimitsExceeded"));
  const QVariant ids = QVariant::fromValue(QList<int>(tooMany, 1));
  EXPECT_EQ(menuError("GetGroupProperties", {ids, QStringList()}), standardError("LimitsExceeded"));
  EXPECT_EQ(menuError("AboutToShowGroup", {ids}), standardError("LimitsExceeded"));
  const QVariant names = QStringList(tooMany, "label");
  EXPECT_EQ(menuError("GetLayout", {0, 1, names}), standardError("LimitsExceeded"));
  EXPECT_EQ(errorIn(stranger_.call(servicePath, serviceInterface, "Open", {names, QVariantMap()})),
            standardError("LimitsExceeded"));
  QVariantMap data;
  for (int i = 0; i < tooMany; ++i) {
    data.insert(QString::number(i), i);
  }
  EXPECT_EQ(errorIn(stranger_.call(servicePath, serviceInterface, "Activate", {data})),
            standardError("LimitsExceeded"));
  driver::settle();
  EXPECT_EQ(chosen_, 0);
  EXPECT_TRUE(requests_.empty());
  expectAnswersStill();
}

TEST_F(BusObjectTest, groupsOfAnHonestSizeAreTaken) {
  const QList<int> ids(mostBusItems, 1);
  const auto answer =
      stranger_.call(menuPath, busMenuInterface, "GetGroupProperties", {QVariant::fromValue(ids), QStringList()});
  EXPECT_EQ(qdbus_cast<QList<BusMenuItem>>(answer.arguments().value(0)).size(), ids.size());
}

TEST_F(BusObjectTest, tokensThatAreNoTextAreNone) {
  for (const QVariant& token : {QVariant(7), nested(50), QVariant(QByteArray("bytes")), structure()}) {
    const QVariantMap data = {{"activation-token", token}, {"desktop-startup-id", "older"}};
    EXPECT_EQ(errorIn(stranger_.call(servicePath, serviceInterface, "Activate", {data})), "none");
  }
  ASSERT_TRUE(becomes([this] { return requests_.size() == 4; }));
  for (const auto& request : requests_) {
    EXPECT_EQ(request.token, "older");
  }
}

TEST_F(BusObjectTest, filesThatAreOpenedOpenTheApplication) {
  stranger_.call(servicePath, serviceInterface, "Open",
                 {QStringList{"file:///a"}, QVariantMap{{"activation-token", "token"}}});
  ASSERT_TRUE(becomes([this] { return !requests_.empty(); }));
  EXPECT_EQ(requests_.front().token, "token");
}

TEST_F(BusObjectTest, endlessTokensAreNone) {
  const fixtures::EnvironmentScope none("XDG_ACTIVATION_TOKEN", "");
  EXPECT_EQ(errorIn(stranger_.call(itemPath, itemInterface, "ProvideXdgActivationToken", {QString(200'000, 't')})),
            "none");
  EXPECT_STREQ(std::getenv("XDG_ACTIVATION_TOKEN"), "");
  EXPECT_EQ(errorIn(stranger_.call(itemPath, itemInterface, "ProvideXdgActivationToken", {"token"})), "none");
  EXPECT_STREQ(std::getenv("XDG_ACTIVATION_TOKEN"), "token");
}

TEST_F(BusObjectTest, pressesWhileTheMenuIsOpenOpenNoFurtherOne) {
  QTimer close;
  QObject::connect(&close, &QTimer::timeout, [] {
    if (QWidget* menu = QApplication::activePopupWidget()) {
      menu->close();
    }
  });
  int opened = 0;
  menu_->setOpenAction([&] {
    if (++opened > 1) {
      close.start(0);
    }
  });
  QTimer press;
  QObject::connect(&press, &QTimer::timeout, [&] {
    if (QApplication::activePopupWidget() != nullptr) {
      press.stop();
      for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(errorIn(stranger_.call(itemPath, itemInterface, "Activate", {0, 0})), "none");
      }
      close.start(0);
    }
  });
  press.start(0);
  EXPECT_EQ(errorIn(stranger_.call(itemPath, itemInterface, "Activate", {0, 0})), "none");
  EXPECT_TRUE(becomes([&] { return close.isActive() && QApplication::activePopupWidget() == nullptr; }));
  EXPECT_EQ(opened, 1);
  close.stop();
  opened = 0;
  press.start(0);
  stranger_.call(itemPath, itemInterface, "ContextMenu", {0, 0});
  EXPECT_TRUE(becomes([&] { return opened == 1 && close.isActive(); })) << "it opens again";
}

}  // namespace
}  // namespace tarnwell::host_qt
