#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/linux/updates/FeedFetch.h"
#include "host/linux/updates/PackageDownload.h"
#include "host/linux/updates/UpdaterConfiguration.h"
#include "host/linux/updates/UpdaterPorts.h"
#include "host/linux/updates/UpdaterPreferences.h"
#include "kit/Action.h"

namespace tarnwell::host_linux::updates {

/// One look for a new version, from the feed to the installer. What the user asked for shows each of its steps; what
/// the schedule started is silent until there is something to decide.
class UpdateCheck {
 public:
  struct Setting {
    UpdaterConfiguration configuration;
    PublicKey key;
    UpdaterPreferences preferences;
    UpdaterPorts ports;
  };
  struct Listener {
    /// A check begins; by trying again, one object may make several.
    kit::Action began = {};
    /// `awaitsAnUnaskedAnswer` may have changed.
    kit::Action changed = {};
    /// Over, whatever came of it. May destroy the check.
    kit::Action ended = {};
  };

  UpdateCheck(Setting setting, UserDriver::Origin origin, Listener listener);
  UpdateCheck(const UpdateCheck&) = delete;
  UpdateCheck& operator=(const UpdateCheck&) = delete;

  void start();
  /// Whether something is on the screen that nobody asked for, and that somebody may have overlooked.
  bool awaitsAnUnaskedAnswer() const;
  /// Shows that as though it had been asked for.
  void bringForward();

 private:
  enum class Stage { working, found, ready };
  using Choice = UserDriver::Choice;
  using Origin = UserDriver::Origin;

  void take(const Result<std::vector<FeedItem>>& feed);
  void takeItem(FeedItem item);
  void sayUpToDate();
  void showFound();
  void answerFound(Choice choice);
  void download();
  void takePackage(Result<PackageFile> package);
  void showReady();
  void answerReady(Choice choice);
  void install();
  void takeHandOver(const std::optional<Failure>& failure);
  void fail(const Failure& failure, kit::Action retry);
  void skip();
  void enter(Stage stage);
  void end();

  /// Of this check's life and of this stage: an answer that comes later is none.
  template <class F>
  auto whileCurrent(F function);

  Setting setting_;
  Origin origin_;
  Listener listener_;
  Stage stage_ = Stage::working;
  std::shared_ptr<int> stageLife_;
  FeedItem item_;
  std::unique_ptr<FeedFetch> fetch_;
  std::unique_ptr<PackageDownload> download_;
  std::optional<PackageFile> package_;
};

}  // namespace tarnwell::host_linux::updates
