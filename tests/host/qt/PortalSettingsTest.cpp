#include <gtest/gtest.h>

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusVariant>
#include <QtWidgets/QApplication>
#include <array>
#include <chrono>
#include <cstdlib>
#include <string>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"
#include "host/qt/FakePortal.h"
#include "host/qt/FirstAnswers.h"
#include "host/qt/PortalSettings.h"
#include "host/qt/PrivateBus.h"
#include "host/qt/QtApplication.h"
#include "host/qt/Stranger.h"

// Each test has a process of its own: the toolkit keeps its first connection to a bus.
namespace tarnwell::host_qt {
namespace {

std::unique_ptr<QtApplication> started() {
  static std::string name = "test";
  static std::array<char*, 2> arguments = {name.data(), nullptr};
  return QtApplication::create(1, arguments.data());
}

/// Longer than any answer takes, however busy the machine is.
constexpr std::chrono::seconds wait{60};

/// What asks the portal, and how long the start waits for it.
struct Start {
  explicit Start(QtApplication& application, std::chrono::milliseconds longestWait = wait)
      : first(longestWait), settings(application.host().theme(), first) {}

  FirstAnswers first;
  PortalSettings settings;
  bool isOver = false;
  kit::Subscription waiting = first.whenOver([this] { isOver = true; });
};

bool waitForTheme(const Theme& theme, const std::function<bool(const Theme&)>& condition) {
  return fixtures::waitFor([&] {
    QApplication::processEvents();
    return condition(theme);
  });
}

bool becomes(const Theme& theme, ColorScheme scheme) {
  return waitForTheme(theme, [scheme](const Theme& now) { return now.colorScheme() == scheme; });
}

bool hasAccent(const Theme& theme, const QColor& color) {
  return waitForTheme(theme, [&color](const Theme& now) { return now.palette().accent == color; });
}

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

TEST(PortalSettingsTest, takesTheSchemeOfThePortalAndFollowsIt) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              const PrivateBus bus;
              const auto application = started();
              FakePortal portal(bus.address());
              portal.set("color-scheme", 1U);
              const Start start(*application);
              Theme& theme = application->host().theme();
              const bool dark = becomes(theme, ColorScheme::dark);
              portal.change("color-scheme", 2U);
              const bool light = becomes(theme, ColorScheme::light);
              portal.change("color-scheme", 1U);
              return dark && light && becomes(theme, ColorScheme::dark) ? 0 : 1;
            }),
            0);
}

TEST(PortalSettingsTest, takesTheAccentColour) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              const PrivateBus bus;
              const auto application = started();
              FakePortal portal(bus.address());
              portal.set("accent-color", FakePortal::color(1, 0, 0));
              const Start start(*application);
              Theme& theme = application->host().theme();
              const bool red = waitForTheme(
                  theme, [](const Theme& now) { return now.palette().accent == QColor::fromRgbF(1, 0, 0); });
              portal.change("accent-color", FakePortal::color(-1, -1, -1));
              const bool own =
                  waitForTheme(theme, [](const Theme& now) { return now.palette().accent == Palette::light().accent; });
              return red && own ? 0 : 1;
            }),
            0);
}

TEST(PortalSettingsTest, takesTheContrastAndFollowsIt) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              const PrivateBus bus;
              const auto application = started();
              FakePortal portal(bus.address());
              portal.set("contrast", 1U);
              const Start start(*application);
              const Theme& theme = application->host().theme();
              const auto hasGround = [](const QColor& ground) {
                return [ground](const Theme& now) { return now.palette().window == ground; };
              };
              const bool high = waitForTheme(theme, hasGround(Qt::white));
              portal.change("contrast", 0U);
              return high && waitForTheme(theme, hasGround(Palette::light().window)) ? 0 : 1;
            }),
            0);
}

TEST(PortalSettingsTest, answersAreInUseWhenTheWaitIsOver) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              const PrivateBus bus;
              const auto application = started();
              FakePortal portal(bus.address());
              portal.set("color-scheme", 1U);
              portal.set("accent-color", FakePortal::color(1, 0, 0));
              const Start start(*application);
              const Theme& theme = application->host().theme();
              return waitForTheme(theme, [&start](const Theme& /*now*/) { return start.isOver; }) &&
                             theme.colorScheme() == ColorScheme::dark &&
                             theme.palette().accent == QColor::fromRgbF(1, 0, 0)
                         ? 0
                         : 1;
            }),
            0);
}

TEST(PortalSettingsTest, onlyThePortalIsBelieved) {
  EXPECT_EQ(
      fixtures::exitStatusOf([] {
        const PrivateBus bus;
        const auto application = started();
        FakePortal portal(bus.address());
        portal.set("color-scheme", 2U);
        portal.set("accent-color", FakePortal::color(1, 0, 0));
        const Start start(*application);
        const Theme& theme = application->host().theme();
        const bool red = hasAccent(theme, QColor::fromRgbF(1, 0, 0));
        const Stranger stranger;
        stranger.emitSignal("/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged",
                            {"org.freedesktop.appearance", "color-scheme", variant(1U)});
        portal.change("accent-color", FakePortal::color(0, 0, 1));
        return red && hasAccent(theme, QColor::fromRgbF(0, 0, 1)) && theme.colorScheme() == ColorScheme::light ? 0 : 1;
      }),
      0);
}

TEST(PortalSettingsTest, anotherPortalMayTakeOver) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              const PrivateBus bus;
              const auto application = started();
              auto first = std::make_unique<FakePortal>(bus.address());
              first->set("color-scheme", 1U);
              const Start start(*application);
              const Theme& theme = application->host().theme();
              const bool dark = becomes(theme, ColorScheme::dark);
              first.reset();
              FakePortal second(bus.address());
              const bool light = waitForTheme(theme, [&second](const Theme& now) {
                second.change("color-scheme", 2U);
                return now.colorScheme() == ColorScheme::light;
              });
              return dark && light ? 0 : 1;
            }),
            0);
}

TEST(PortalSettingsTest, signalsOfAnotherTypeAreLeftAlone) {
  EXPECT_EQ(
      fixtures::exitStatusOf([] {
        const PrivateBus bus;
        const auto application = started();
        FakePortal portal(bus.address());
        portal.set("color-scheme", 1U);
        portal.set("accent-color", FakePortal::color(1, 0, 0));
        const Start start(*application);
        const Theme& theme = application->host().theme();
        const bool known = becomes(theme, ColorScheme::dark) && hasAccent(theme, QColor::fromRgbF(1, 0, 0));
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
        return known && hasAccent(theme, QColor::fromRgbF(0, 1, 0)) && theme.colorScheme() == ColorScheme::dark ? 0 : 1;
      }),
      0);
}

TEST(PortalSettingsTest, answersOfAnotherTypeAreNone) {
  QList<QVariantList> answers = {{}, {"dark"}, {1U}, {variant(1U), variant(1U)}, {FakePortal::color(1, 0, 0)}};
  for (const QVariant& value : strangeValues()) {
    answers += QVariantList{variant(value)};
  }
  for (const QVariantList& answer : answers) {
    EXPECT_EQ(fixtures::exitStatusOf([&answer] {
                const PrivateBus bus;
                const auto application = started();
                FakePortal portal(bus.address());
                portal.answerWith(answer);
                const Start start(*application);
                const Theme& theme = application->host().theme();
                waitForTheme(theme, [&portal](const Theme& /*now*/) { return portal.questions() >= 3; });
                portal.change("accent-color", FakePortal::color(0, 0, 1));
                return hasAccent(theme, QColor::fromRgbF(0, 0, 1)) && theme.colorScheme() == ColorScheme::light ? 0 : 1;
              }),
              0)
        << "answer " << answers.indexOf(answer);
  }
}

TEST(PortalSettingsTest, portalThatNeverAnswersHoldsUpNothing) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              const PrivateBus bus;
              const auto application = started();
              FakePortal portal(bus.address());
              portal.setSilent();
              const Start start(*application, std::chrono::milliseconds(100));
              const Theme& theme = application->host().theme();
              const bool over = waitForTheme(theme, [&start](const Theme& /*now*/) { return start.isOver; });
              return over && portal.questions() == 3 && theme.colorScheme() == ColorScheme::light ? 0 : 1;
            }),
            0);
}

TEST(PortalSettingsTest, withoutABusTheDesktopsOwnColoursStay) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              const fixtures::Sandbox empty;
              ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
              ::setenv("XDG_RUNTIME_DIR", empty.path().c_str(), 1);
              const auto application = started();
              const Start start(*application);
              QApplication::processEvents();
              return start.isOver && application->host().theme().colorScheme() == ColorScheme::light ? 0 : 1;
            }),
            0);
}

}  // namespace
}  // namespace tarnwell::host_qt
