#pragma once

#include <QtCore/QPointer>
#include <functional>
#include <memory>
#include <string>

#include "host/qt/panels/UpdatePanel.h"
#include "kit/application/Application.h"
#include "updateclient/UserDriver.h"

namespace tarnwell::host_qt {

class DownloadProgress;

/// Shows the updater's steps in one window.
class UpdatePanels final : public updateclient::UserDriver {
 public:
  /// Answers are events of the application, and what the window has no use for is a key of its menus. Application and
  /// theme are borrowed and outlive the panels; `shownVersion` is what people read of the version that runs.
  UpdatePanels(kit::Application& application, const Theme& theme, std::string shownVersion);
  ~UpdatePanels() override;

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
  void showFailure(const std::string& reason, kit::Action acknowledged, kit::Action retry) override;
  void openPage(const std::string& address) override;
  void dismiss() override;

 private:
  void show(UpdatePage page, Origin origin);
  /// Something goes on for an unknown time.
  void showWork(const std::string& heading, const char* name, kit::Action cancel);
  UpdatePage offer(const release::FeedItem& item, const std::function<void(Choice)>& answer) const;
  kit::Action asEvent(kit::Action action) const;
  const std::string& product() const;
  std::string nameOf(const release::FeedItem& item) const;
  QWidget* makeNotes(const release::FeedItem& item) const;

  kit::Application& application_;
  const Theme& theme_;
  std::string shownVersion_;
  std::unique_ptr<UpdatePanel> panel_;
  QPointer<DownloadProgress> progress_;
};

}  // namespace tarnwell::host_qt
