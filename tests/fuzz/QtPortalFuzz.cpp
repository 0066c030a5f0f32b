#include <systemd/sd-bus.h>

#include <algorithm>
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
#include "host/qt/look/Theme.h"
#include "host/qt/session/PortalSettings.h"
#include "host/qt/session/StartupBarrier.h"

namespace tarnwell::fuzz {
namespace {

using host_qt::ColorScheme;
using host_qt::ContrastLevel;
using host_qt::Palette;

constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* portalInterface = "org.freedesktop.portal.Settings";
constexpr const char* portalsOwner = ":1.7";
constexpr const char* stranger = ":1.8";

/// What the desktop has said of its look.
struct Look {
  std::optional<ColorScheme> scheme;
  ContrastLevel contrast = ContrastLevel::normal;
  std::optional<QColor> accent;

  void takeNumber(const std::string& key, std::uint32_t number) {
    if (key == "color-scheme") {
      constexpr std::array<std::optional<ColorScheme>, 3> schemes = {std::nullopt, ColorScheme::dark,
                                                                     ColorScheme::light};
      scheme = number < schemes.size() ? schemes.at(number) : std::nullopt;
    } else if (key == "contrast") {
      contrast = number == 1 ? ContrastLevel::high : ContrastLevel::normal;
    }
  }

  void takeColor(const std::string& key, const std::array<double, 3>& color) {
    if (key == "accent-color") {
      const auto isChannel = [](double channel) { return channel >= 0 && channel <= 1; };
      const auto channel = [&color](std::size_t at) { return static_cast<float>(color.at(at)); };
      accent = std::all_of(color.begin(), color.end(), isChannel)
                   ? std::optional(QColor::fromRgbF(channel(0), channel(1), channel(2)))
                   : std::nullopt;
    }
  }
};

bool entersVariant(sd_bus_message& message) {
  char type = 0;
  const char* content = nullptr;
  return ::sd_bus_message_peek_type(&message, &type, &content) > 0 && type == 'v' &&
         ::sd_bus_message_enter_container(&message, 'v', content) > 0;
}

/// Reads the value at the current place as the library of the system does, which is not the toolkit's.
void takeValue(Look& look, const std::string& key, sd_bus_message& message) {
  require(entersVariant(message));
  entersVariant(message);
  std::uint32_t number = 0;
  std::array<double, 3> color = {};
  char type = 0;
  const char* content = nullptr;
  require(::sd_bus_message_peek_type(&message, &type, &content) >= 0);
  if (type == 'u') {
    require(::sd_bus_message_read_basic(&message, 'u', &number) > 0);
    look.takeNumber(key, number);
  } else if (type == 'r' && std::string_view(content) == "ddd") {
    require(::sd_bus_message_read(&message, "(ddd)", color.data(), &color[1], &color[2]) > 0);
    look.takeColor(key, color);
  }
}

/// A portal that answers and tells what the input says, and what is to be seen of that.
class Portal {
 public:
  Portal() {
    theme_.setColorScheme(std::nullopt);
    desktopScheme_ = theme_.colorScheme();
  }

  bool isConnected() const { return link_.isConnected(); }

  /// What it is asked when the application starts.
  void answer(Input& input, bool answersReads, bool answersOwner) {
    input_ = &input;
    answersReads_ = answersReads;
    answersOwner_ = answersOwner;
    said_ = Look();
    owner_.clear();
    theme_.setColorScheme(std::nullopt);
    theme_.setContrastLevel(ContrastLevel::normal);
    theme_.setAccent(std::nullopt);
    startup_ = std::make_unique<host_qt::StartupBarrier>(std::chrono::minutes(1));
    settings_ = std::make_unique<host_qt::PortalSettings>(link_.ownEnd(), theme_, *startup_);
    bool isOver = false;
    const kit::Subscription waiting = startup_->whenOver([&isOver] { isOver = true; });
    require(link_.pumpUntil([&] { return isOver || !isConnected(); }));
    checkLook();
  }

  /// What it tells later; what another one tells is not believed.
  void tell(Input& input, const std::string& sender) {
    sd_bus_message* message = nullptr;
    require(::sd_bus_message_new_signal(link_.stranger(), &message, portalPath, portalInterface, "SettingChanged") >=
            0);
    require(::sd_bus_message_set_sender(message, sender.c_str()) >= 0);
    if (append(*message, typesLike("ssv", input), input) && ::sd_bus_send(link_.stranger(), message, nullptr) >= 0) {
      if (sender == owner_ && ::sd_bus_message_has_signature(message, "ssv") > 0) {
        take(*message);
      }
      waitUntilHeard();
      checkLook();
    }
    ::sd_bus_message_unref(message);
  }

 private:
  void take(sd_bus_message& signal) {
    const char* group = nullptr;
    const char* key = nullptr;
    require(::sd_bus_message_rewind(&signal, 1) >= 0 && ::sd_bus_message_read(&signal, "ss", &group, &key) > 0);
    if (std::string_view(group) == "org.freedesktop.appearance") {
      takeValue(said_, key, signal);
    }
  }

  // Messages are taken in their order.
  void waitUntilHeard() {
    sd_bus_message* call = nullptr;
    require(::sd_bus_message_new_method_call(link_.stranger(), &call, nullptr, "/Nothing", nullptr, "Nothing") >= 0);
    link_.call(call);
  }

  void checkLook() const {
    if (!isConnected()) {
      return;
    }
    const ColorScheme scheme = said_.scheme.value_or(desktopScheme_);
    const Palette plain = Palette::of(scheme, said_.contrast);
    const Palette expected = said_.accent ? plain.withAccent(*said_.accent) : plain;
    const Palette& shown = theme_.palette();
    require(theme_.colorScheme() == scheme && shown.window == expected.window && shown.accent == expected.accent &&
            shown.primaryText == expected.primaryText && shown.chosenTabBorder == expected.chosenTabBorder);
  }

  void answerCall(sd_bus_message& call) {
    sd_bus_message* reply = nullptr;
    require(::sd_bus_message_new_method_return(&call, &reply) >= 0);
    const std::string method = ::sd_bus_message_get_member(&call);
    const bool isAnswered = method == "Read" ? answerRead(call, *reply) : answerOwner(method, *reply);
    if (!isAnswered) {
      ::sd_bus_reply_method_errorf(&call, SD_BUS_ERROR_FAILED, "none");
    }
    ::sd_bus_message_unref(reply);
  }

  bool answerRead(sd_bus_message& call, sd_bus_message& reply) {
    const char* group = nullptr;
    const char* key = nullptr;
    require(::sd_bus_message_read(&call, "ss", &group, &key) > 0);
    if (!answersReads_ || !append(reply, typesLike("v", *input_), *input_) ||
        ::sd_bus_send(nullptr, &reply, nullptr) < 0) {
      return false;
    }
    if (::sd_bus_message_has_signature(&reply, "v") > 0 && ::sd_bus_message_rewind(&reply, 1) >= 0) {
      takeValue(said_, key, reply);
    }
    return true;
  }

  bool answerOwner(const std::string& method, sd_bus_message& reply) {
    if (method != "GetNameOwner") {
      return false;
    }
    const bool isAppended = answersOwner_ ? append(reply, typesLike("s", *input_), *input_)
                                          : ::sd_bus_message_append_basic(&reply, 's', portalsOwner) >= 0;
    if (!isAppended || ::sd_bus_send(nullptr, &reply, nullptr) < 0) {
      return false;
    }
    const char* owner = "";
    if (::sd_bus_message_has_signature(&reply, "s") > 0 && ::sd_bus_message_rewind(&reply, 1) >= 0) {
      require(::sd_bus_message_read_basic(&reply, 's', &owner) > 0);
    }
    owner_ = owner;
    return true;
  }

  host_qt::Theme theme_;
  ColorScheme desktopScheme_;
  QtBusLink link_{[this](sd_bus_message& call) { answerCall(call); }};
  Input* input_ = nullptr;
  bool answersReads_ = false;
  bool answersOwner_ = false;
  Look said_;
  std::string owner_;
  std::unique_ptr<host_qt::StartupBarrier> startup_;
  std::unique_ptr<host_qt::PortalSettings> settings_;
};

Portal& portalOf() {
  startToolkit();
  static std::unique_ptr<Portal> one;
  if (!one || !one->isConnected()) {
    one = std::make_unique<Portal>();
  }
  return *one;
}

/// One byte says which questions are answered with what follows and who tells something then, and the rest is what the
/// values are made of. The look is what a portal has said in the types that are right, and nothing else changes it.
void run(std::string_view text) {
  Input input(text);
  const std::uint8_t how = input.byte();
  Portal& portal = portalOf();
  portal.answer(input, (how & 1U) != 0, (how & 2U) != 0);
  if (portal.isConnected()) {
    portal.tell(input, (how & 4U) != 0 ? stranger : portalsOwner);
  }
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
