#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/Composition.h"
#include "core/CommandRunner.h"
#include "host/headless/HeadlessLog.h"
#include "host/headless/HeadlessLoginItem.h"
#include "host/headless/HeadlessUpdater.h"
#include "host/headless/Journal.h"
#include "host/qt/platform/QtPlatform.h"

namespace tarnwell::scenarios {

/// The whole application on the tests' desktop from its first step on, with an eye on what the user sees meanwhile.
class QtStartedTarnwell final : public QObject {
 public:
  /// The start waits for the desktop's answers for that long at most. `reading` is run when the first setting of the
  /// Dock is about to be read.
  explicit QtStartedTarnwell(
      std::chrono::milliseconds longestWait, std::function<void()> reading = [] {});
  ~QtStartedTarnwell() override;

  /// Waits until the settings window has been painted; false when that does not happen.
  bool showsSettings();
  QWidget& settings();

  /// From the start to the first reading.
  std::chrono::milliseconds timeUntilReading() const { return timeUntilReading_; }

  /// A window as it was painted.
  struct Picture {
    QSize size;
    bool isDark = false;
    friend bool operator==(const Picture&, const Picture&) = default;
  };
  /// Of the settings, in the order in which they were seen.
  const std::vector<Picture>& pictures() const { return pictures_; }
  /// Whether the user has seen the window jump or flash.
  bool hasChangedItsLook() const;

  bool eventFilter(QObject* object, QEvent* event) noexcept override;

 private:
  class Runner final : public core::CommandRunner {
   public:
    explicit Runner(std::function<void()> reading) : reading_(std::move(reading)) {}
    void runDetached(const std::string& /*commandLine*/) override {}
    std::string runCaptured(const std::string& commandLine) override;

   private:
    std::function<void()> reading_;
  };

  QElapsedTimer sinceStart_;
  std::chrono::milliseconds timeUntilReading_{};
  std::vector<Picture> pictures_;
  Runner runner_;
  host_headless::Journal journal_;
  host_headless::HeadlessUpdater updater_{journal_};
  host_headless::HeadlessLoginItem loginItem_{journal_};
  host_headless::HeadlessLog log_;
  host_qt::QtPlatform platform_;
  std::unique_ptr<app::Composition> composition_;
};

}  // namespace tarnwell::scenarios
