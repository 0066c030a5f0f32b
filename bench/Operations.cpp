// Does one thing many times, for bench/gates to count its instructions. What the application prints goes to standard
// output. usage: operations NAME COUNT

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "UpdateOperations.h"
#include "commandline/commands/Listing.h"
#include "commandline/commands/Session.h"
#include "commandline/dock/Shell.h"
#include "commandline/words/Arguments.h"
#include "commandline/words/Screen.h"
#include "core/CommandRunner.h"
#include "core/DockSettings.h"
#include "dockscreen/CommandRunnerKey.h"
#include "dockscreen/ContentView.h"
#include "host/headless/HeadlessHost.h"
#include "host/headless/PointNumberFormat.h"
#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/text/TextField.h"
#include "kit/turn/Turn.h"
#include "view/controls/buttons/Toggle.h"
#include "view/controls/containers/Form.h"
#include "view/controls/containers/LabeledRow.h"
#include "view/controls/containers/Section.h"
#include "view/controls/text/Label.h"
#include "view/controls/text/Text.h"
#include "view/scenes/HostedWindow.h"
#include "view/state/State.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::bench {
namespace {

using view::View;

/// Answers at once, as a Dock at its defaults would.
class InstantRunner final : public core::CommandRunner {
 public:
  void runDetached(const std::string& /*commandLine*/) override {}
  std::string runCaptured(const std::string& commandLine) override {
    return commandLine.ends_with("mineffect") ? "genie\n" : "0.5\n";
  }
};

/// A view in an open window of the platform in memory.
class Scene {
 public:
  explicit Scene(const View& content) {
    const auto environment = view::EnvironmentValues()
                                 .with<dockscreen::CommandRunnerKey>(&runner_)
                                 .with<view::NumberFormatKey>(std::make_shared<host_headless::PointNumberFormat>())
                                 .with<view::ProductKey>({.webHost = "tarnwell.example"});
    window_ = std::make_unique<view::HostedWindow>(
        turn_, host_, view::HostedWindow::Content{.identifier = "bench", .view = content, .environment = environment});
    window_->open();
    host_.journal().clear();
  }

  template <class C>
  C& first() const {
    for (kit::Control* control : window_->tree().controls()) {
      if (auto* found = dynamic_cast<C*>(control)) {
        return *found;
      }
    }
    std::abort();
  }

  void forgetJournal() { host_.journal().clear(); }

 private:
  InstantRunner runner_;
  host_headless::HeadlessHost host_;
  kit::Turn turn_;
  std::unique_ptr<view::HostedWindow> window_;
};

View dockTab() { return View(dockscreen::ContentView{}).frame({.width = 600}).frame({.maxHeight = 700}).fixedSize(); }

/// Switches that are all made anew when one of them turns.
template <class MakeRow>
struct Switches {
  int count = 0;
  MakeRow makeRow = {};
  view::State<bool> isFirstOn = false;

  auto stored() { return std::tie(isFirstOn); }
  View body() const {
    std::vector<View> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      rows.push_back(makeRow(i == 0 ? isFirstOn.binding() : view::Binding<bool>{.get = [] { return true; }}));
    }
    return view::Form{.sections = {view::Section{.rows = std::move(rows)}}};
  }
};

struct BareRow {
  View operator()(view::Binding<bool> isOn) const { return view::Toggle{.title = "switch", .isOn = std::move(isOn)}; }
};

View fullRow(const std::string& title, view::Binding<bool> isOn) {
  return view::LabeledRow{.label = view::Label{.title = title, .symbol = "eye.slash"},
                          .title = "Dim hidden apps",
                          .description = view::Text{"Shows an app was hidden by dimming the icon in the dock."},
                          .control = BareRow{}(std::move(isOn))};
}

struct FullRow {
  View operator()(view::Binding<bool> isOn) const { return fullRow("Dim hidden apps", std::move(isOn)); }
};

/// Another title is another layout.
struct GrowingRow {
  View operator()(view::Binding<bool> isOn) const {
    const std::string title = isOn.get() ? "Dim hidden apps" : "Dim";
    return fullRow(title, std::move(isOn));
  }
};

template <class MakeRow>
View form(int rows) {
  return View(Switches<MakeRow>{.count = rows}).frame({.width = 600}).frame({.maxHeight = 700});
}

/// Left standing: what takes them down again is none of it.
void mount(const View& content, int count) {
  for (int i = 0; i < count; ++i) {
    static_cast<void>(std::make_unique<Scene>(content).release());
  }
}

/// What a user does to the first control of a kind, in two ways that alternate.
template <class C>
void act(const View& content, int count, const std::function<void(C& control, bool isOdd)>& act) {
  Scene scene(content);
  C& control = scene.first<C>();
  for (int i = 0; i < count; ++i) {
    act(control, i % 2 == 1);
    scene.forgetJournal();
  }
}

template <class MakeRow>
void turnSwitch(int rows, int count) {
  act<kit::Toggle>(form<MakeRow>(rows), count, [](kit::Toggle& control, bool /*isOdd*/) { control.press(); });
}

void type(kit::TextField& field, bool isOdd) { field.type(isOdd ? "0.3" : "0.4"); }

void commit(kit::TextField& field, bool isOdd) {
  type(field, isOdd);
  field.commit();
}

void useSettings(void (core::DockSettings::*act)(), int count) {
  InstantRunner runner;
  core::DockSettings settings({.runner = runner, .usesSingleApp = [] { return true; }, .openURL = [](const auto&) {}});
  for (int i = 0; i < count; ++i) {
    (settings.*act)();
  }
}

/// Answers at once with what an export prints.
class InstantShell final : public commandline::Shell {
 public:
  system::Result<system::CheckedRun> run(const std::string& /*commandLine*/) override {
    return system::CheckedRun{.end = {.how = system::ProcessEnd::How::exited},
                              .output = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>autohide-delay</key><real>0.2</real><key>mineffect</key><string>suck</string>
<key>persistent-apps</key><array/><key>tilesize</key><integer>48</integer></dict></plist>)"};
  }
};

void getSetting(int count) {
  InstantShell shell;
  commandline::Screen screen(commandline::Screen::Colors::never);
  const commandline::Session session{.program = "tarnwell", .system = {14, 0, 0}, .shell = shell, .screen = screen};
  const std::array words = {"get", "mineffect"};
  for (int i = 0; i < count; ++i) {
    if (commandline::get(session, *commandline::parseArguments("tarnwell", words)) != commandline::Status::done) {
      std::abort();
    }
  }
  screen.show();
}

/// Work of the language's library alone, to measure the others by: its releases, and the compiler's, cost them alike.
void sortNames(int count) {
  for (int i = 0; i < count; ++i) {
    std::map<std::string, std::function<int()>> named;
    std::vector<std::string> names;
    for (int number = 0; number < 200; ++number) {
      names.push_back("the name of entry number " + std::to_string(number * 7919 % 200));
      named[names.back()] = [number] { return number; };
    }
    std::ranges::sort(names);
    std::ranges::for_each(names, [&](const std::string& name) { static_cast<void>(named.at(name)()); });
  }
}

using Operation = std::function<void(int count)>;

const std::map<std::string_view, Operation>& operations() {
  static const std::map<std::string_view, Operation> all = {
      {"library", sortNames},
      {"get", getSetting},
      {"feed", readFeed},
      {"parse", parseFeed},
      {"package", verifyPackage},
      {"verify", verifyBytes},
      {"load", [](int count) { useSettings(&core::DockSettings::loadFromDock, count); }},
      {"save", [](int count) { useSettings(&core::DockSettings::save, count); }},
      {"mount", [](int count) { mount(dockTab(), count); }},
      {"keystroke", [](int count) { act<kit::TextField>(dockTab(), count, type); }},
      {"commit", [](int count) { act<kit::TextField>(dockTab(), count, commit); }},
      {"mount-100", [](int count) { mount(form<FullRow>(100), count); }},
      {"mount-1000", [](int count) { mount(form<FullRow>(1000), count); }},
      {"switch-100", [](int count) { turnSwitch<FullRow>(100, count); }},
      {"switch-1000", [](int count) { turnSwitch<FullRow>(1000, count); }},
      {"layout-1000", [](int count) { turnSwitch<GrowingRow>(1000, count); }}};
  return all;
}

int run(std::span<char*> arguments) {
  int count = 0;
  const auto operation = arguments.size() == 3 ? operations().find(arguments[1]) : operations().end();
  if (operation != operations().end()) {
    const std::string_view text = arguments[2];
    std::from_chars(text.data(), text.data() + text.size(), count);
  }
  if (count <= 0) {
    std::fputs("usage: operations NAME COUNT, with a name that bench/gates has\n", stderr);
    return 2;
  }
  operation->second(count);
  return 0;
}

}  // namespace
}  // namespace tarnwell::bench

int main(int argc, char** argv) { return tarnwell::bench::run({argv, static_cast<std::size_t>(argc)}); }
