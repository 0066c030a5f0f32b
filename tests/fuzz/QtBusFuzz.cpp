#include <systemd/sd-bus.h>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/BusInput.h"
#include "fuzz/QtBusLink.h"
#include "fuzz/Require.h"
#include "host/headless/HeadlessPlatform.h"
#include "host/qt/look/Theme.h"
#include "host/qt/session/ApplicationService.h"
#include "host/qt/session/PortalSettings.h"
#include "host/qt/session/StartupBarrier.h"
#include "host/qt/tray/BusStatusItem.h"
#include "host/qt/tray/StatusImage.h"
#include "host/qt/tray/TrayWatch.h"
#include "kit/application/Application.h"
#include "kit/menus/Menu.h"
#include "kit/menus/MenuItem.h"

namespace tarnwell::fuzz {
namespace {

enum class Kind { call, signal, answer };

/// What comes to us; the path is that of the receiver, or of who tells.
struct Message {
  const char* path;
  const char* interface;
  const char* name;
  const char* signature;
  Kind kind = Kind::call;
};
constexpr const char* menu = "com.canonical.dbusmenu";
constexpr const char* item = "org.kde.StatusNotifierItem";
constexpr const char* properties = "org.freedesktop.DBus.Properties";
constexpr const char* application = "org.freedesktop.Application";
constexpr const char* bus = "org.freedesktop.DBus";
constexpr const char* portal = "org.freedesktop.portal.Settings";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* watcher = "org.kde.StatusNotifierWatcher";
constexpr Message refused = {"/Item", item, "Explode", ""};
constexpr Message settingChanged = {portalPath, portal, "SettingChanged", "ssv", Kind::signal};
constexpr std::array<Message, 24> messages = {
    {{"/Item/Menu", menu, "GetLayout", "iias"},
     {"/Item/Menu", menu, "GetGroupProperties", "aias"},
     {"/Item/Menu", menu, "GetProperty", "is"},
     {"/Item/Menu", menu, "Event", "isvu"},
     {"/Item/Menu", menu, "EventGroup", "a(isvu)"},
     {"/Item/Menu", menu, "AboutToShow", "i"},
     {"/Item/Menu", menu, "AboutToShowGroup", "ai"},
     {"/Item", item, "Activate", "ii"},
     {"/Item", item, "Scroll", "is"},
     {"/Item", item, "ProvideXdgActivationToken", "s"},
     refused,
     {"/Item", nullptr, "Get", "ss"},
     {"/Item", properties, "GetAll", "s"},
     {"/Item", properties, "Set", "ssv"},
     {"/Item", "example.Other", "Get", "ss"},
     {"/example/tarnwell/Tarnwell", application, "Activate", "a{sv}"},
     {"/example/tarnwell/Tarnwell", application, "Open", "asa{sv}"},
     {"/example/tarnwell/Tarnwell", application, "ActivateAction", "sava{sv}"},
     settingChanged,
     {"/org/freedesktop/DBus", bus, "NameOwnerChanged", "sss", Kind::signal},
     {"/StatusNotifierWatcher", watcher, "StatusNotifierHostRegistered", "", Kind::signal},
     {portalPath, portal, "Read", "v", Kind::answer},
     {"/StatusNotifierWatcher", properties, "Get", "v", Kind::answer},
     {"/org/freedesktop/DBus", bus, "GetNameOwner", "s", Kind::answer}}};
// Who has the names of portal and watcher.
constexpr const char* stranger = ":1.7";

/// What we ask a desktop.
struct Questions {
  Questions(const QDBusConnection& connection, host_qt::Theme& theme)
      : answers(std::chrono::minutes(1)), portal(connection, theme, answers), tray(connection, answers) {}

  host_qt::StartupBarrier answers;
  host_qt::PortalSettings portal;
  host_qt::TrayWatch tray;
};

/// What we offer and ask on the bus, at one end of a connection, and a stranger at the other.
class World {
 public:
  World() {
    auto more = std::make_shared<kit::Menu>("More");
    more->setItems({kit::MenuItem::create("Below", {}, {})});
    menu_->setItems({kit::MenuItem::create("First", {}, {}), kit::MenuItem::withSubmenu("More", more)});
    item_.setMenu(menu_);
    onBus_.emplace(link_.ownEnd(), "/Item", item_, image_);
    requireThatMessagesArrive();
  }

  bool isConnected() const { return link_.isConnected(); }

  void send(const Message& message, const std::string& signature, Input& input) {
    switch (message.kind) {
      case Kind::call:
        call(message, signature, input);
        break;
      case Kind::signal:
        tell(message, signature, input);
        break;
      case Kind::answer:
        answerWith(message, signature, input);
        break;
    }
  }

 private:
  struct Answer {
    std::string method;
    std::string signature;
    Input& input;
  };

  /// Whether it is answered, and by no error.
  bool call(const Message& method, const std::string& signature, Input& input) {
    sd_bus_message* message = nullptr;
    require(::sd_bus_message_new_method_call(link_.stranger(), &message, nullptr, method.path, method.interface,
                                             method.name) >= 0);
    if (append(*message, signature, input)) {
      return link_.call(message);
    }
    ::sd_bus_message_unref(message);
    return false;
  }

  void tell(const Message& signal, const std::string& signature, Input& input) {
    // Believed by those who know who has the name.
    if (!questions_) {
      ask();
    }
    sd_bus_message* message = nullptr;
    require(::sd_bus_message_new_signal(link_.stranger(), &message, signal.path, signal.interface, signal.name) >= 0);
    require(::sd_bus_message_set_sender(message, stranger) >= 0);
    if (append(*message, signature, input)) {
      ::sd_bus_send(link_.stranger(), message, nullptr);
      // Messages are taken in their order.
      call(refused, refused.signature, input);
    }
    ::sd_bus_message_unref(message);
  }

  void answerWith(const Message& asked, const std::string& signature, Input& input) {
    answer_.emplace(Answer{asked.name, signature, input});
    ask();
    answer_.reset();
    questions_.reset();
  }

  void ask() {
    isOver_ = false;
    questions_.emplace(link_.ownEnd(), theme_);
    const kit::Subscription waiting = questions_->answers.whenOver([this] { isOver_ = true; });
    require(link_.pumpUntil([this] { return isOver_ || !isConnected(); }));
  }

  // Else the seeds would be thrown at a closed door.
  void requireThatMessagesArrive() {
    Input wholeMenu("");
    require(call(messages.front(), messages.front().signature, wholeMenu));
    theme_.setColorScheme(std::nullopt);
    Input dark(std::string_view("\x08\x09\x01\0\0\0\x01", 7));
    tell(settingChanged, settingChanged.signature, dark);
    require(theme_.colorScheme() == host_qt::ColorScheme::dark);
  }

  void answer(sd_bus_message& call) {
    sd_bus_message* reply = nullptr;
    require(::sd_bus_message_new_method_return(&call, &reply) >= 0);
    if (appendAnswer(::sd_bus_message_get_member(&call), *reply)) {
      ::sd_bus_send(nullptr, reply, nullptr);
    } else {
      ::sd_bus_reply_method_errorf(&call, SD_BUS_ERROR_FAILED, "none");
    }
    ::sd_bus_message_unref(reply);
  }

  /// False for a question that is answered with an error.
  bool appendAnswer(const std::string& method, sd_bus_message& reply) {
    if (answer_ && answer_->method == method) {
      return append(reply, answer_->signature, answer_->input);
    }
    return method == "GetNameOwner" && ::sd_bus_message_append_basic(&reply, 's', stranger) >= 0;
  }

  host_headless::HeadlessPlatform platform_;
  std::shared_ptr<kit::Application> application_ = kit::Application::create(platform_);
  kit::StatusItem item_{*application_, kit::StatusItem::variableLength, "Utility App"};
  std::shared_ptr<kit::Menu> menu_ = std::make_shared<kit::Menu>();
  host_qt::Theme theme_;
  host_qt::StatusImage image_{theme_};
  std::optional<Answer> answer_;  // To the next question after that method; without it, what is usual.
  QtBusLink link_{[this](sd_bus_message& call) { answer(call); }};
  std::optional<host_qt::BusStatusItem> onBus_;
  host_qt::ApplicationService service_{link_.ownEnd(), "example.tarnwell.Tarnwell"};
  std::optional<Questions> questions_;
  bool isOver_ = false;
};

World& world() {
  startToolkit();
  static std::unique_ptr<World> world;
  if (!world || !world->isConnected()) {
    world = std::make_unique<World>();
  }
  return *world;
}

/// One byte chooses the message, the next whether it has the types that are expected or others, and the rest is what
/// the arguments are made of. Whatever is called gets an answer, and no answer holds up those who wait for it.
void run(std::string_view text) {
  Input input(text);
  const Message message = input.oneOf(messages);
  world().send(message, typesLike(message.signature, input), input);
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
