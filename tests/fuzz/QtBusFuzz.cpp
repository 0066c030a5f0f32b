#include <systemd/sd-bus.h>
#include <unistd.h>

#include <QtDBus/QDBusServer>
#include <QtWidgets/QApplication>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

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

constexpr int mostRounds = 100'000;
constexpr int mostElements = 2000;

/// What an argument is made of.
class Input {
 public:
  explicit Input(std::string_view text) : text_(text) {}

  std::uint8_t byte() {
    const std::uint8_t byte = text_.empty() ? 0 : static_cast<std::uint8_t>(text_.front());
    text_.remove_prefix(text_.empty() ? 0 : 1);
    return byte;
  }

  template <class Choices>
  auto oneOf(const Choices& choices) {
    return choices.at(byte() % choices.size());
  }

 private:
  std::string_view text_;
};

constexpr std::array<const char*, 14> namedTexts = {"",
                                                    "clicked",
                                                    "activation-token",
                                                    "label",
                                                    "Title",
                                                    "org.kde.StatusNotifierItem",
                                                    "com.canonical.dbusmenu",
                                                    "x",
                                                    "org.freedesktop.appearance",
                                                    "color-scheme",
                                                    "accent-color",
                                                    "contrast",
                                                    "org.freedesktop.portal.Desktop",
                                                    ":1.7"};
constexpr std::array<const char*, 10> types = {"s", "u", "i", "b", "v", "(ddd)", "as", "a{sv}", "av", "a(isvu)"};

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

/// How long the first type in a signature is; 0 where there is none.
std::size_t lengthOfFirst(const std::string& signature) {
  std::size_t at = 0;
  while (at < signature.size() && signature[at] == 'a') {
    ++at;
  }
  int depth = 0;
  do {
    if (at >= signature.size()) {
      return 0;
    }
    depth += signature[at] == '(' || signature[at] == '{' ? 1 : 0;
    depth -= signature[at] == ')' || signature[at] == '}' ? 1 : 0;
    ++at;
  } while (depth > 0);
  return at;
}

bool append(sd_bus_message& message, const std::string& signature, Input& input);

bool appendContainer(sd_bus_message& message, char type, const std::string& content, int count, Input& input) {
  if (::sd_bus_message_open_container(&message, type, content.c_str()) < 0) {
    return false;
  }
  for (int i = 0; i < count; ++i) {
    if (!append(message, content, input)) {
      return false;
    }
  }
  return ::sd_bus_message_close_container(&message) >= 0;
}

int countOf(Input& input) {
  const int count = input.byte();
  return count == UINT8_MAX ? mostElements : count % 5;
}

bool appendBasic(sd_bus_message& message, char type, Input& input) {
  if (type == 's' || type == 'o' || type == 'g') {
    return ::sd_bus_message_append_basic(&message, type, type == 'o' ? "/a" : input.oneOf(namedTexts)) >= 0;
  }
  std::uint64_t number = 0;
  for (int i = 0; i < 4; ++i) {
    number = number << 16 | input.byte();
  }
  return type != 'h' && ::sd_bus_message_append_basic(&message, type, &number) >= 0;
}

bool appendFirst(sd_bus_message& message, const std::string& type, Input& input) {
  switch (type.front()) {
    case 'v':
      return appendContainer(message, 'v', input.oneOf(types), 1, input);
    case 'a':
      return appendContainer(message, 'a', type.substr(1), countOf(input), input);
    case '(':
      return appendContainer(message, 'r', type.substr(1, type.size() - 2), 1, input);
    case '{':
      return appendContainer(message, 'e', type.substr(1, type.size() - 2), 1, input);
    default:
      return appendBasic(message, type.front(), input);
  }
}

bool append(sd_bus_message& message, const std::string& signature, Input& input) {
  std::string rest = signature;
  while (!rest.empty()) {
    const std::size_t length = lengthOfFirst(rest);
    if (length == 0 || !appendFirst(message, rest.substr(0, length), input)) {
      return false;
    }
    rest.erase(0, length);
  }
  return true;
}

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
  World(const World&) = delete;
  World& operator=(const World&) = delete;
  ~World() { ::sd_bus_close_unref(stranger_); }
  World() {
    QObject::connect(&server_, &QDBusServer::newConnection, &server_,
                     [this](const QDBusConnection& connection) { offer(connection); });
    require(::sd_bus_new(&stranger_) >= 0);
    ::sd_bus_set_address(stranger_, server_.address().toStdString().c_str());
    require(::sd_bus_start(stranger_) >= 0);
    ::sd_bus_add_filter(stranger_, nullptr, &World::asked, this);
    require(pumpUntil([this] { return service_ != nullptr && ::sd_bus_is_ready(stranger_) > 0; }));
    requireThatSignalsArrive();
  }

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

  /// The bus library itself sends strangers away whose messages are not well formed.
  bool isConnected() const { return ::sd_bus_is_open(stranger_) > 0; }

 private:
  struct Answer {
    std::string method;
    std::string signature;
    Input& input;
  };

  void call(const Message& method, const std::string& signature, Input& input) {
    sd_bus_message* message = nullptr;
    require(::sd_bus_message_new_method_call(stranger_, &message, nullptr, method.path, method.interface,
                                             method.name) >= 0);
    answered_ = false;
    if (append(*message, signature, input)) {
      ::sd_bus_call_async(stranger_, nullptr, message, &World::answered, this, 0);
      require(pumpUntil([this] { return answered_ || !isConnected(); }));
    }
    ::sd_bus_message_unref(message);
  }

  void tell(const Message& signal, const std::string& signature, Input& input) {
    // Believed by those who know who has the name.
    if (!questions_) {
      ask();
    }
    sd_bus_message* message = nullptr;
    require(::sd_bus_message_new_signal(stranger_, &message, signal.path, signal.interface, signal.name) >= 0);
    require(::sd_bus_message_set_sender(message, stranger) >= 0);
    if (append(*message, signature, input)) {
      ::sd_bus_send(stranger_, message, nullptr);
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
    questions_.emplace(*connection_, theme_);
    const kit::Subscription waiting = questions_->answers.whenOver([this] { isOver_ = true; });
    require(pumpUntil([this] { return isOver_ || !isConnected(); }));
  }

  // Else the seeds would be thrown at a closed door.
  void requireThatSignalsArrive() {
    theme_.setColorScheme(std::nullopt);
    Input dark(std::string_view("\x08\x09\x01\0\0\0\x01", 7));
    tell(settingChanged, settingChanged.signature, dark);
    require(theme_.colorScheme() == host_qt::ColorScheme::dark);
  }

  void offer(const QDBusConnection& connection) {
    auto more = std::make_shared<kit::Menu>("More");
    more->setItems({kit::MenuItem::create("Below", {}, {})});
    menu_->setItems({kit::MenuItem::create("First", {}, {}), kit::MenuItem::withSubmenu("More", more)});
    item_.setMenu(menu_);
    onBus_ = std::make_unique<host_qt::BusStatusItem>(connection, "/Item", item_, image_);
    connection_ = connection;
    service_ = std::make_unique<host_qt::ApplicationService>(connection, "example.tarnwell.Tarnwell");
  }

  template <class Condition>
  bool pumpUntil(const Condition& condition) {
    for (int round = 0; round < mostRounds && !condition(); ++round) {
      QCoreApplication::processEvents();
      ::sd_bus_process(stranger_, nullptr);
      ::sd_bus_wait(stranger_, 100);
    }
    return condition();
  }

  static int answered(sd_bus_message* /*answer*/, void* world, sd_bus_error* /*error*/) {
    static_cast<World*>(world)->answered_ = true;
    return 1;
  }

  static int asked(sd_bus_message* call, void* world, sd_bus_error* /*error*/) {
    if (::sd_bus_message_is_method_call(call, nullptr, nullptr) <= 0) {
      return 0;
    }
    sd_bus_message* reply = nullptr;
    require(::sd_bus_message_new_method_return(call, &reply) >= 0);
    if (static_cast<World*>(world)->appendAnswer(::sd_bus_message_get_member(call), *reply)) {
      ::sd_bus_send(nullptr, reply, nullptr);
    } else {
      ::sd_bus_reply_method_errorf(call, SD_BUS_ERROR_FAILED, "none");
    }
    ::sd_bus_message_unref(reply);
    return 1;
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
  QDBusServer server_{"unix:tmpdir=/tmp"};
  std::unique_ptr<host_qt::BusStatusItem> onBus_;
  std::unique_ptr<host_qt::ApplicationService> service_;
  std::optional<QDBusConnection> connection_;
  std::optional<Questions> questions_;
  std::optional<Answer> answer_;  // To the next question after that method; without it, what is usual.
  sd_bus* stranger_ = nullptr;
  bool answered_ = false;
  bool isOver_ = false;
};

World& world() {
  static int count = 1;
  static std::string name = "fuzz_bus";
  static std::array<char*, 2> arguments = {name.data(), nullptr};
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  static const QApplication toolkit(count, arguments.data());
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
  std::string signature = message.signature;
  for (int others = input.byte() % 4; others > 0; --others) {
    signature = others % 2 == 0 ? signature + input.oneOf(types) : input.oneOf(types);
  }
  world().send(message, signature, input);
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
