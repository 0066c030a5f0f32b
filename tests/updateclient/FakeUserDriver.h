#pragma once

#include <string>
#include <utility>
#include <vector>

#include "updateclient/UserDriver.h"

namespace tarnwell::updateclient {

/// A user in front of a screen that shows one thing at a time: `screen` tells which, `journal` all that there were.
class FakeUserDriver final : public UserDriver {
 public:
  void showPermission(std::function<void(Permission)> answer) override {
    show("permission");
    permission_ = std::move(answer);
  }
  void showChecking(kit::Action cancel) override {
    show("checking");
    cancel_ = std::move(cancel);
  }
  void showFound(const release::FeedItem& item, Origin origin, std::function<void(Choice)> answer) override {
    show("found " + item.shownVersion + wish(origin));
    notes = item.readNotes;
    choice_ = std::move(answer);
  }
  void showDownloading(const release::FeedItem& item, kit::Action cancel) override {
    show("downloading " + item.shownVersion);
    cancel_ = std::move(cancel);
  }
  void showProgress(std::uint64_t received, std::uint64_t expected) override {
    progress = std::to_string(received) + " of " + std::to_string(expected);
  }
  void showVerifying(const release::FeedItem& item, kit::Action cancel) override {
    show("verifying " + item.shownVersion);
    cancel_ = std::move(cancel);
  }
  void showInstalling(const release::FeedItem& item, kit::Action cancel) override {
    show("installing " + item.shownVersion);
    cancel_ = std::move(cancel);
  }
  void showHandedOver(const release::FeedItem& item, HandOver handOver, Origin origin,
                      kit::Action acknowledged) override {
    show((handOver == HandOver::opened ? "opened " : "replaced by ") + item.shownVersion + wish(origin));
    acknowledge_ = std::move(acknowledged);
  }
  void showReady(const release::FeedItem& item, Origin origin, std::function<void(Choice)> answer) override {
    show("ready " + item.shownVersion + wish(origin));
    choice_ = std::move(answer);
  }
  void showUpToDate(const std::string& shownVersion, kit::Action acknowledged) override {
    show("up to date " + shownVersion);
    acknowledge_ = std::move(acknowledged);
  }
  void showObstacle(const std::string& reason, kit::Action acknowledged) override {
    show("cannot check: " + reason);
    acknowledge_ = std::move(acknowledged);
  }
  void showFailure(const std::string& reason, kit::Action acknowledged, kit::Action retry) override {
    show("failure: " + reason);
    acknowledge_ = std::move(acknowledged);
    retry_ = std::move(retry);
  }
  void openPage(const std::string& address) override { openedPages.push_back(address); }
  void dismiss() override { clear(); }

  // What the user does. A panel closes with its answer.
  void permit(Permission permission) { answered(permission_)(permission); }
  void choose(Choice choice) { answered(choice_)(choice); }
  void cancel() { answered(cancel_)(); }
  void acknowledge() { answered(acknowledge_)(); }
  void retry() { answered(retry_)(); }
  bool canRetry() const { return retry_ != nullptr; }

  std::string screen = {};
  std::vector<std::string> openedPages = {};
  std::vector<std::string> journal = {};
  std::string progress = {};
  /// Of what was found last.
  release::ReleaseNotes notes = {};

 private:
  static std::string wish(Origin origin) { return origin == Origin::user ? " as asked" : " unasked"; }

  template <class F>
  F answered(F& answer) {
    F copy = answer;
    clear();
    return copy;
  }
  void clear() {
    screen = "";
    permission_ = nullptr;
    choice_ = nullptr;
    cancel_ = acknowledge_ = retry_ = nullptr;
  }
  void show(const std::string& what) {
    clear();
    screen = what;
    journal.push_back(what);
  }

  std::function<void(Permission)> permission_;
  std::function<void(Choice)> choice_;
  kit::Action cancel_;
  kit::Action acknowledge_;
  kit::Action retry_;
};

}  // namespace tarnwell::updateclient
