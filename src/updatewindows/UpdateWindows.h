#pragma once

#include <functional>
#include <memory>
#include <string>

#include "kit/application/Application.h"
#include "updateclient/UserDriver.h"
#include "updatewindows/UpdateWindow.h"

namespace tarnwell::updatewindows {

/// Shows the updater's steps in one window.
class UpdateWindows final : public updateclient::UserDriver {
 public:
  /// Answers are events of the application, which is borrowed and outlives the windows; `shownVersion` is what people
  /// read of the version that runs.
  UpdateWindows(kit::Application& application, std::string shownVersion);
  UpdateWindows(const UpdateWindows&) = delete;
  UpdateWindows& operator=(const UpdateWindows&) = delete;
  ~UpdateWindows() override;

  void showPermission(std::function<void(Permission)> answer) override;
  void showChecking(kit::Action cancel) override;
  void showFound(const release::FeedItem& item, Origin origin, std::function<void(Choice)> answer) override;
  void showDownloading(const release::FeedItem& item, kit::Action cancel) override;
  void showProgress(std::uint64_t received, std::uint64_t expected) override;
  void showVerifying(const release::FeedItem& item, kit::Action cancel) override;
  void showReady(const release::FeedItem& item, Origin origin, std::function<void(Choice)> answer) override;
  void showInstalling(const release::FeedItem& item, kit::Action cancel) override;
  void showHandedOver(const release::FeedItem& item, updateclient::HandOver handOver, Origin origin,
                      kit::Action acknowledged) override;
  void showUpToDate(const std::string& shownVersion, kit::Action acknowledged) override;
  void showObstacle(const std::string& reason, kit::Action acknowledged) override;
  void showFailure(const std::string& reason, kit::Action acknowledged, kit::Action retry) override;
  void openPage(const std::string& address) override;
  void dismiss() override;

  /// Whether it is on the screen or not.
  view::Panel& panel() { return window_->panel(); }

 private:
  void show(UpdatePage page, Origin origin);
  /// Something goes on for an unknown time.
  void showWork(const std::string& heading, const std::string& name, kit::Action cancel);
  /// Something to know, and no more.
  void showNotice(const std::string& heading, const std::string& message, Origin origin, kit::Action acknowledged);
  void restart();
  UpdatePage offer(const release::FeedItem& item, const std::function<void(Choice)>& answer) const;
  std::string whatIsAvailable(const release::FeedItem& item, const std::string& how) const;
  const std::string& product() const;
  std::string nameOf(const release::FeedItem& item) const;

  kit::Application& application_;
  std::string shownVersion_;
  std::shared_ptr<UpdateWindow> window_;
  bool isDownloading_ = false;
};

}  // namespace tarnwell::updatewindows
