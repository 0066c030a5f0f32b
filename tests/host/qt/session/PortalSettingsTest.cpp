#include <gtest/gtest.h>

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusVariant>
#include <QtWidgets/QApplication>
#include <array>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"
#include "host/qt/bus/PrivateBus.h"
#include "host/qt/bus/SessionBus.h"
#include "host/qt/bus/Stranger.h"
#include "host/qt/platform/QtApplication.h"
#include "host/qt/session/FakePortal.h"
#include "host/qt/session/PortalSettings.h"
#include "host/qt/session/StartupBarrier.h"

namespace tarnwell::host_qt {
namespace {

std::unique_ptr<QtApplication> makeApplication() {
  static std::string name = "test";
  static std::array<char*, 2> arguments = {name.data(), nullptr};
  return QtApplication::create(1, arguments.data());
}

/// Longer than any answer takes, however busy the machine is.
constexpr std::chrono::seconds wait{60};
constexpr QColor red(0xff, 0, 0);
constexpr QColor green(0, 0xff, 0);
constexpr QColor blue(0, 0, 0xff);

/// What asks the portal, and how long the start waits for it.
struct Start {
  explicit Start(QtApplication& application, std::chrono::milliseconds longestWait = wait)
      : first(longestWait), settings(sessionBus(), application.host().theme(), first) {}

  StartupBarrier first;
  PortalSettings settings;
  bool isOver = false;
  kit::Subscription waiting = first.whenOver([this] { isOver = true; });
};

QVariant variant(const QVariant& value) { return QVariant::fromValue(QDBusVariant(value)); }

QVariant wrapped(int times, const QVariant& value) { return times == 0 ? value : variant(wrapped(times - 1, value)); }

QVariant numbers() {
  QDBusArgument argument;
  argument.beginStructure();
  argument << 1U << 0U << 0U;
  argument.endStructure();
  return QVariant::fromValue(argument);
}

/// Neither a number without sign nor three fractions.
QVariantList strangeValues() {
  return {"dark",
          1,
          true,
          1.0,
          QByteArray("dark"),
          QStringList{"dark"},
          QVariantList{1U},
          QVariantMap{{"color-scheme", 1U}},
          numbers(),
          wrapped(40, 1U)};
}

/// A desktop with a portal, and what asks it.
struct PortalDesktop {
  void start(std::chrono::milliseconds longestWait = wait) { started_.emplace(*application, longestWait); }
  bool isStarted() const { return started_->isOver; }

  static bool becomes(const std::function<bool()>& condition) {
    return fixtures::waitFor([&condition] {
      QApplication::processEvents();
      return condition();
    });
  }
  bool hasScheme(ColorScheme scheme) const {
    return becomes([&] { return theme.colorScheme() == scheme; });
  }
  bool hasAccent(const QColor& color) const {
    return becomes([&] { return theme.palette().accent == color; });
  }
  bool hasGround(const QColor& color) const {
    return becomes([&] { return theme.palette().window == color; });
  }

  const PrivateBus bus;
  const std::unique_ptr<QtApplication> application = makeApplication();
  const Theme& theme = application->host().theme();
  std::optional<FakePortal> portal{std::in_place, bus.address()};

 private:
  std::optional<Start> started_;
};

/// Each scenario has a process of its own: the toolkit keeps its first connection to a bus.
class PortalSettingsTest : public testing::Test {
 protected:
  static void inOwnProcess(const std::function<void()>& scenario) {
    EXPECT_EQ(fixtures::exitStatusOf([&scenario] {
                scenario();
                return HasFailure() ? 1 : 0;
              }),
              0);
  }

  static void onDesktop(const std::function<void(PortalDesktop&)>& scenario) {
    inOwnProcess([&scenario] {
      PortalDesktop desktop;
      scenario(desktop);
    });
  }
};

TEST_F(PortalSettingsTest, takesTheSchemeOfThePortalAndFollowsIt) {
  onDesktop([](PortalDesktop& desktop) {
    desktop.portal->set("color-scheme", 1U);
    desktop.start();
    EXPECT_TRUE(desktop.hasScheme(ColorScheme::dark));
    desktop.portal->change("color-scheme", 2U);
    EXPECT_TRUE(desktop.hasScheme(ColorScheme::light));
    desktop.portal->change("color-scheme", 1U);
    EXPECT_TRUE(desktop.hasScheme(ColorScheme::dark));
  });
}

TEST_F(PortalSettingsTest, takesTheAccentColour) {
  onDesktop([](PortalDesktop& desktop) {
    desktop.portal->set("accent-color", FakePortal::color(1, 0, 0));
    desktop.start();
    EXPECT_TRUE(desktop.hasAccent(red));
    desktop.portal->change("accent-color", FakePortal::color(-1, -1, -1));
    EXPECT_TRUE(desktop.hasAccent(Palette::light().accent));
  });
}

TEST_F(PortalSettingsTest, takesTheContrastAndFollowsIt) {
  onDesktop([](PortalDesktop& desktop) {
    desktop.portal->set("contrast", 1U);
    desktop.start();
    EXPECT_TRUE(desktop.hasGround(Qt::white));
    desktop.portal->change("contrast", 0U);
    EXPECT_TRUE(desktop.hasGround(Palette::light().window));
  });
}

TEST_F(PortalSettingsTest, answersAreInUseWhenTheWaitIsOver) {
  onDesktop([](PortalDesktop& desktop) {
    desktop.portal->set("color-scheme", 1U);
    desktop.portal->set("accent-color", FakePortal::color(1, 0, 0));
    desktop.start();
    EXPECT_TRUE(PortalDesktop::becomes([&desktop] { return desktop.isStarted(); }));
    EXPECT_EQ(desktop.theme.colorScheme(), ColorScheme::dark);
    EXPECT_EQ(desktop.theme.palette().accent, red);
  });
}

TEST_F(PortalSettingsTest, onlyThePortalIsBelieved) {
  onDesktop([](PortalDesktop& desktop) {
    desktop.portal->set("color-scheme", 2U);
    desktop.portal->set("accent-color", FakePortal::color(1, 0, 0));
    desktop.start();
    EXPECT_TRUE(desktop.hasAccent(red));
    const Stranger stranger;
    stranger.emitSignal("/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged",
                        {"org.freedesktop.appearance", "color-scheme", variant(1U)});
    desktop.portal->change("accent-color", FakePortal::color(0, 0, 1));
    EXPECT_TRUE(desktop.hasAccent(blue));
    EXPECT_EQ(desktop.theme.colorScheme(), ColorScheme::light);
  });
}

TEST_F(PortalSettingsTest, anotherPortalMayTakeOver) {
  onDesktop([](PortalDesktop& desktop) {
    desktop.portal->set("color-scheme", 1U);
    desktop.start();
    EXPECT_TRUE(desktop.hasScheme(ColorScheme::dark));
    desktop.portal.reset();
    desktop.portal.emplace(desktop.bus.address());
    EXPECT_TRUE(PortalDesktop::becomes([&desktop] {
      desktop.portal->change("color-scheme", 2U);
      return desktop.theme.colorScheme() == ColorScheme::light;
    }));
  });
}

TEST_F(PortalSettingsTest, anotherPortalIsAskedAnew) {
  onDesktop([](PortalDesktop& desktop) {
    desktop.portal->set("color-scheme", 1U);
    desktop.start();
    EXPECT_TRUE(desktop.hasScheme(ColorScheme::dark));
    desktop.portal.reset();
    desktop.portal.emplace(desktop.bus.address());
    desktop.portal->set("color-scheme", 2U);
    EXPECT_TRUE(desktop.hasScheme(ColorScheme::light));
  });
}

TEST_F(PortalSettingsTest, signalsOfAnotherTypeAreLeftAlone) {
  onDesktop([](PortalDesktop& desktop) {
    FakePortal& portal = *desktop.portal;
    portal.set("color-scheme", 1U);
    portal.set("accent-color", FakePortal::color(1, 0, 0));
    desktop.start();
    EXPECT_TRUE(desktop.hasScheme(ColorScheme::dark));
    EXPECT_TRUE(desktop.hasAccent(red));
    const QString space = "org.freedesktop.appearance";
    for (const QVariant& value : strangeValues()) {
      portal.change("color-scheme", value);
      portal.change("accent-color", value);
      portal.tell({space, "color-scheme", value});
    }
    portal.change("color-scheme", FakePortal::color(1, 0, 0));
    portal.change("accent-color", 2U);
    portal.tell({});
    portal.tell({space});
    portal.tell({space, 1, variant(2U)});
    portal.tell({space, "color-scheme", variant(2U), "more"});
    portal.tell({"example.other", "color-scheme", variant(2U)});
    portal.change("accent-color", FakePortal::color(0, 1, 0));
    EXPECT_TRUE(desktop.hasAccent(green));
    EXPECT_EQ(desktop.theme.colorScheme(), ColorScheme::dark);
  });
}

TEST_F(PortalSettingsTest, answersOfAnotherTypeAreNone) {
  QList<QVariantList> answers = {{}, {"dark"}, {1U}, {variant(1U), variant(1U)}, {FakePortal::color(1, 0, 0)}};
  for (const QVariant& value : strangeValues()) {
    answers += QVariantList{variant(value)};
  }
  for (const QVariantList& answer : answers) {
    SCOPED_TRACE(answers.indexOf(answer));
    onDesktop([&answer](PortalDesktop& desktop) {
      desktop.portal->answerWith(answer);
      desktop.start();
      EXPECT_TRUE(PortalDesktop::becomes([&desktop] { return desktop.portal->questions() >= 3; }));
      desktop.portal->change("accent-color", FakePortal::color(0, 0, 1));
      EXPECT_TRUE(desktop.hasAccent(blue));
      EXPECT_EQ(desktop.theme.colorScheme(), ColorScheme::light);
    });
  }
}

TEST_F(PortalSettingsTest, portalThatNeverAnswersHoldsUpNothing) {
  onDesktop([](PortalDesktop& desktop) {
    desktop.portal->setSilent();
    desktop.start(std::chrono::milliseconds(100));
    EXPECT_TRUE(PortalDesktop::becomes([&desktop] { return desktop.isStarted(); }));
    EXPECT_EQ(desktop.portal->questions(), 3);
    EXPECT_EQ(desktop.theme.colorScheme(), ColorScheme::light);
  });
}

TEST_F(PortalSettingsTest, withoutABusTheDesktopsOwnColoursStay) {
  inOwnProcess([] {
    const fixtures::Sandbox empty;
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
    ::setenv("XDG_RUNTIME_DIR", empty.path().c_str(), 1);
    const auto application = makeApplication();
    const Start start(*application);
    QApplication::processEvents();
    EXPECT_TRUE(start.isOver);
    EXPECT_EQ(application->host().theme().colorScheme(), ColorScheme::light);
  });
}

}  // namespace
}  // namespace tarnwell::host_qt
