#pragma once

#include <memory>
#include <string>
#include <vector>

#include "fakes/RecordingCommandRunner.h"
#include "fixtures/DockCommands.h"
#include "host/headless/PointNumberFormat.h"
#include "kit/ports/SystemVersion.h"
#include "kit/turn/Turn.h"
#include "scenarios/Driver.h"
#include "view/scenes/HostedWindow.h"

namespace tarnwell::scenarios {

struct DockTabOptions {
  kit::SystemVersion version = {};
  host_headless::PointNumberFormat format = host_headless::PointNumberFormat();
};

/// The Dock tab in a window of its own, over a runner that answers from a table.
class DockTab {
 public:
  explicit DockTab(const DockTabOptions& options = {});
  DockTab(const DockTab&) = delete;
  DockTab& operator=(const DockTab&) = delete;
  ~DockTab();

  /// What `defaults read` prints for a key, without the line feed.
  DockTab& holding(const std::string& key, const std::string& printed);
  /// Every key as these write commands leave it.
  DockTab& holdingAfter(const fixtures::Commands& writes);
  DockTab& holdingDefaults() { return holdingAfter(fixtures::resetCommands()); }

  void open() { window_->open(); }
  void close() { window_->close(); }

  // By the name that a screen reader says: "Save", "Delay slider", "Delay seconds", "Delay stepper".

  template <class C>
  C& find(const std::string& name) {
    return dynamic_cast<C&>(control(name));
  }
  bool has(const std::string& name) const;
  kit::Accessible look(const std::string& name) { return driver_->look(control(name)); }
  std::string value(const std::string& name) { return inWords(look(name).value); }
  bool isEnabled(const std::string& name) { return look(name).isEnabled; }

  void press(const std::string& name) { driver_->click(control(name)); }
  void type(const std::string& name, const std::string& text);
  void pressKey(const std::string& name, Key key) { driver_->pressKey(window_->window(), control(name), key); }
  /// Types and leaves the field.
  void enter(const std::string& name, const std::string& text);
  void choose(const std::string& name, int index);
  void nudge(const std::string& name, int steps);
  void stepUp(const std::string& name);
  void stepDown(const std::string& name);
  /// To a place on the track as seen: 0 is its left end, 1 its right.
  void dragTo(const std::string& name, double place);

  /// The write commands since the last call.
  std::vector<std::string> writes();
  std::vector<std::string> reads();
  const std::vector<std::string>& openedAddresses() const { return opened_; }

  view::HostedWindow& hosted() { return *window_; }
  Driver& driver() { return *driver_; }

 private:
  kit::Control& control(const std::string& name) const;

  std::unique_ptr<Driver> driver_;
  fakes::RecordingCommandRunner runner_;
  std::vector<std::string> opened_;
  kit::Turn turn_;
  std::unique_ptr<view::HostedWindow> window_;
};

}  // namespace tarnwell::scenarios
