#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "kit/turn/Action.h"
#include "release/protocol/ItemMessages.h"
#include "release/protocol/ReleaseNotes.h"
#include "updateclient/UpdaterPorts.h"
#include "updateclient/installation/Installation.h"
#include "updateclient/installation/PackageFile.h"
#include "updateclient/settings/UpdaterConfiguration.h"
#include "updateclient/settings/UpdaterPreferences.h"

namespace tarnwell::updateclient {

/// One look for a new version, from the feed to the installer. What the user asked for shows each of its steps; what
/// the schedule started is silent until there is something to decide.
class UpdateCheck {
 public:
  struct Setting {
    UpdaterConfiguration configuration;
    UpdaterPreferences preferences;
    UpdaterPorts ports;
    /// What was given to the installer before, while this program ran; empty for nothing.
    std::string handedOverVersion = {};
  };
  struct Listener {
    /// A check begins; by trying again, one object may make several.
    kit::Action began = {};
    /// `canComeForward` may have changed.
    kit::Action changed = {};
    std::function<void(const std::string& version)> handedOver = {};
    /// Over, whatever came of it. May destroy the check.
    kit::Action ended = {};
  };

  UpdateCheck(Setting setting, UserDriver::Origin origin, Listener listener);
  UpdateCheck(const UpdateCheck&) = delete;
  UpdateCheck& operator=(const UpdateCheck&) = delete;

  void start();
  /// Whether there is something of a background check: a download without a window, or a window that may have been
  /// overlooked.
  bool canComeForward() const;
  /// Shows that as though it had been asked for.
  void comeForward();

 private:
  enum class Stage { checking, found, downloading, verifying, ready, installing, handedOver, over };
  using Choice = UserDriver::Choice;
  using Origin = UserDriver::Origin;

  void takeFeed(const system::Result<void>& fetched);
  void readNotes();
  void takeItem();
  void sayUpToDate();
  void answerFound(Choice choice);
  void download();
  bool takeBytes(const release::Message& message);
  void takeProgress(std::uint64_t received);
  std::string stallLimit() const;
  void verify();
  void takeVerified(const system::Result<void>& verified);
  void answerReady(Choice choice);
  void install();
  void takeHandOver(const system::Result<HandOver>& result);
  void fail(const system::Failure& failure, kit::Action retry);
  void skip();
  void enter(Stage stage);
  void show();
  void showChoice();
  kit::Action cancel();
  void end();

  /// Of this check's life and of this stage: an answer that comes later is none.
  template <class F>
  auto whileCurrent(F function);
  /// Has the engine do something for this stage; a failure to begin is one of `ended`.
  void run(const Engine::Order& order, std::function<bool(const release::Message&)> said,
           const std::function<void(const system::Result<void>&)>& ended);

  Setting setting_;
  Origin origin_;
  Listener listener_;
  Stage stage_ = Stage::checking;
  std::shared_ptr<int> stageLife_;
  release::FeedItem item_;
  std::uint64_t received_ = 0;  // Bytes of the package.
  HandOver handOver_ = HandOver::opened;
  release::ItemReader items_;
  release::NotesReader notes_;
  std::optional<PackageFile> package_;
  const InstallationWay* way_ = nullptr;        // Of the package, once that is verified.
  std::unique_ptr<Engine::Job> job_;            // On the package, or on what comes before it.
  std::unique_ptr<Installation> installation_;  // Of the package.
};

}  // namespace tarnwell::updateclient
