#include <systemd/sd-bus.h>
#include <unistd.h>

#include <QtDBus/QDBusServer>
#include <QtWidgets/QApplication>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "fuzz/Require.h"
#include "host/headless/HeadlessPlatform.h"
#include "host/qt/look/Theme.h"
#include "host/qt/session/ApplicationService.h"
#include "host/qt/tray/BusStatusItem.h"
#include "host/qt/tray/StatusImage.h"
#include "kit/application/Application.h"
#include "kit/application/Menu.h"
#include "kit/application/MenuItem.h"

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

constexpr std::array<const char*, 8> texts = {
    "", "clicked", "activation-token", "label", "Title", "org.kde.StatusNotifierItem", "com.canonical.dbusmenu", "x"};
constexpr std::array<const char*, 10> types = {"s", "u", "i", "b", "v", "(ddd)", "as", "a{sv}", "av", "a(isvu)"};

struct Method {
  const char* path;
  const char* interface;
  const char* name;
  const char* signature;
};
constexpr const char* menu = "com.canonical.dbusmenu";
constexpr const char* item = "org.kde.StatusNotifierItem";
constexpr const char* properties = "org.freedesktop.DBus.Properties";
constexpr const char* application = "org.freedesktop.Application";
constexpr std::array<Method, 18> methods = {
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
     {"/Item", item, "Explode", ""},
     {"/Item", nullptr, "Get", "ss"},
     {"/Item", properties, "GetAll", "s"},
     {"/Item", properties, "Set", "ssv"},
     {"/Item", "example.Other", "Get", "ss"},
     {"/example/tarnwell/Tarnwell", application, "Activate", "a{sv}"},
     {"/example/tarnwell/Tarnwell", application, "Open", "asa{sv}"},
     {"/example/tarnwell/Tarnwell", application, "ActivateAction", "sava{sv}"}}};

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
    return ::sd_bus_message_append_basic(&message, type, type == 'o' ? "/a" : input.oneOf(texts)) >= 0;
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

/// What we offer on the bus, at one end of a connection, and a stranger at the other.
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
    require(pumpUntil([this] { return service_ != nullptr && ::sd_bus_is_ready(stranger_) > 0; }));
  }

  void call(const Method& method, const std::string& signature, Input& input) {
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

  /// The bus library itself sends strangers away whose messages are not well formed.
  bool isConnected() const { return ::sd_bus_is_open(stranger_) > 0; }

 private:
  void offer(const QDBusConnection& connection) {
    auto more = std::make_shared<kit::Menu>("More");
    more->setItems({kit::MenuItem::create("Below", {}, {})});
    menu_->setItems({kit::MenuItem::create("First", {}, {}), kit::MenuItem::withSubmenu("More", more)});
    item_.setMenu(menu_);
    onBus_ = std::make_unique<host_qt::BusStatusItem>(connection, "/Item", item_, image_);
    service_ = std::make_unique<host_qt::ApplicationService>(connection);
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

  host_headless::HeadlessPlatform platform_;
  std::shared_ptr<kit::Application> application_ = kit::Application::create(platform_);
  kit::StatusItem item_{*application_, kit::StatusItem::variableLength, "Utility App"};
  std::shared_ptr<kit::Menu> menu_ = std::make_shared<kit::Menu>();
  host_qt::Theme theme_;
  host_qt::StatusImage image_{theme_};
  QDBusServer server_{"unix:tmpdir=/tmp"};
  std::unique_ptr<host_qt::BusStatusItem> onBus_;
  std::unique_ptr<host_qt::ApplicationService> service_;
  sd_bus* stranger_ = nullptr;
  bool answered_ = false;
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

/// One byte chooses the method, the next whether it is called as it wants or with other types, and the rest is what the
/// arguments are made of. Whatever is called gets an answer.
void run(std::string_view text) {
  Input input(text);
  const Method method = input.oneOf(methods);
  std::string signature = method.signature;
  for (int others = input.byte() % 4; others > 0; --others) {
    signature = others % 2 == 0 ? signature + input.oneOf(types) : input.oneOf(types);
  }
  world().call(method, signature, input);
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
