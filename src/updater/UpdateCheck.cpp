#include "updater/UpdateCheck.h"

#include <utility>

#include "updater/ItemChooser.h"
#include "updater/package/PackageClaim.h"
#include "updater/text/Report.h"

namespace tarnwell::updater {

UpdateCheck::UpdateCheck(Setting setting, Origin origin, Listener listener)
    : setting_(std::move(setting)), origin_(origin), listener_(std::move(listener)) {}

template <class F>
auto UpdateCheck::whileCurrent(F function) {
  return [life = std::weak_ptr(stageLife_), function](auto&&... arguments) {
    if (!life.expired()) {
      function(std::forward<decltype(arguments)>(arguments)...);
    }
  };
}

// A background check is not shown while it works, only when there is something to decide or to know.
void UpdateCheck::enter(Stage stage) {
  stage_ = stage;
  stageLife_ = std::make_shared<int>();
  show();
  listener_.changed();
}

void UpdateCheck::show() {
  auto& driver = setting_.ports.driver;
  const bool isAsked = origin_ == Origin::user;
  switch (stage_) {
    case Stage::checking:
      return isAsked ? driver.showChecking(cancel()) : void();
    case Stage::downloading:
      return isAsked ? driver.showDownloading(item_, cancel()) : void();
    case Stage::verifying:
      return isAsked ? driver.showVerifying(item_, cancel()) : void();
    case Stage::installing:
      return driver.showInstalling(item_, cancel());
    case Stage::handedOver:
      return driver.showHandedOver(item_, handOver_, origin_, cancel());
    case Stage::found:
    case Stage::ready:
      return showChoice();
    case Stage::over:
      return;
  }
}

void UpdateCheck::showChoice() {
  auto& driver = setting_.ports.driver;
  if (stage_ == Stage::found) {
    driver.showFound(item_, origin_, whileCurrent([this](Choice choice) { answerFound(choice); }));
  } else {
    driver.showReady(item_, origin_, whileCurrent([this](Choice choice) { answerReady(choice); }));
  }
}

bool UpdateCheck::canComeForward() const { return origin_ == Origin::schedule && stage_ != Stage::checking; }

void UpdateCheck::comeForward() {
  origin_ = Origin::user;
  enter(stage_);
  if (stage_ == Stage::downloading) {
    takeProgress(received_);
  }
}

void UpdateCheck::start() {
  enter(Stage::checking);
  listener_.began();
  fetch_ = std::make_unique<FeedFetch>(setting_.ports.transport, setting_.configuration.feedAddress,
                                       [this](const auto& feed) { take(feed); });
}

void UpdateCheck::take(const system::Result<std::vector<FeedItem>>& feed) {
  const auto again = [this] { start(); };
  if (!feed) {
    fail(feed.error(), again);
    return;
  }
  const auto& configuration = setting_.configuration;
  const ItemChooser chooser({.runningVersion = configuration.runningVersion,
                             .systemVersion = configuration.systemVersion,
                             .channels = configuration.channels,
                             .skippedVersion = setting_.preferences.skippedVersion(),
                             .handedOverVersion = setting_.handedOverVersion,
                             .origin = origin_});
  if (auto item = chooser.best(*feed)) {
    takeItem(std::move(*item));
  } else {
    sayUpToDate();
  }
}

void UpdateCheck::sayUpToDate() {
  if (origin_ == Origin::schedule) {
    return end();
  }
  enter(Stage::over);
  setting_.ports.driver.showUpToDate(setting_.configuration.shownVersion, cancel());
}

// What lacks a signature is refused before the user is asked to install it.
void UpdateCheck::takeItem(FeedItem item) {
  item_ = std::move(item);
  if (item_.isInformational) {
    enter(Stage::found);
    return;
  }
  const auto claim = PackageClaim::create(item_);
  if (!claim) {
    fail(claim.error(), [this] { start(); });
  } else if (origin_ == Origin::schedule && setting_.preferences.automaticDownloads()) {
    download();
  } else {
    enter(Stage::found);
  }
}

void UpdateCheck::answerFound(Choice choice) {
  if (choice == Choice::skip) {
    skip();
  } else if (choice == Choice::remindLater) {
    end();
  } else if (item_.isInformational) {
    setting_.ports.driver.openPage(item_.link);
    end();
  } else {
    origin_ = Origin::user;
    download();
  }
}

void UpdateCheck::download() {
  enter(Stage::downloading);
  const auto claim = *PackageClaim::create(item_);
  takeProgress(0);
  auto started = PackageDownload::start(
      setting_.ports.transport, setting_.ports.worker,
      {.claim = claim, .key = setting_.key, .version = item_.version, .folder = setting_.configuration.packageFolder},
      {.progress = [this](std::uint64_t received) { takeProgress(received); },
       .verifying = [this] { enter(Stage::verifying); },
       .finished = [this](system::Result<PackageFile> package) { takePackage(std::move(package)); }});
  if (!started) {
    fail(started.error(), [this] { download(); });
  } else {
    download_ = *std::move(started);
  }
}

void UpdateCheck::takeProgress(std::uint64_t received) {
  received_ = received;
  if (origin_ == Origin::user) {
    setting_.ports.driver.showProgress(received_, item_.enclosure.length);
  }
}

void UpdateCheck::takePackage(system::Result<PackageFile> package) {
  if (!package) {
    fail(package.error(), [this] { download(); });
    return;
  }
  package_.emplace(*std::move(package));
  enter(Stage::ready);
}

void UpdateCheck::answerReady(Choice choice) {
  if (choice == Choice::skip) {
    skip();
  } else if (choice == Choice::remindLater) {
    end();
  } else {
    origin_ = Origin::user;
    install();
  }
}

void UpdateCheck::install() {
  enter(Stage::installing);
  installation_.reset();
  auto begun = setting_.ports.installer.install(
      item_, *package_, [this](const system::Result<HandOver>& result) { takeHandOver(result); });
  if (!begun) {
    fail(begun.error(), {});
  } else {
    installation_ = *std::move(begun);
  }
}

void UpdateCheck::takeHandOver(const system::Result<HandOver>& result) {
  if (!result) {
    fail(result.error(), [this] { install(); });
    return;
  }
  handOver_ = *result;
  listener_.handedOver(item_.version);
  origin_ = Origin::schedule;
  enter(Stage::handedOver);
}

void UpdateCheck::fail(const system::Failure& failure, kit::Action retry) {
  if (origin_ == Origin::schedule) {
    report(failure);
    end();
    return;
  }
  enter(Stage::over);
  setting_.ports.driver.showFailure(failure.message, cancel(),
                                    retry ? kit::Action(whileCurrent(std::move(retry))) : kit::Action());
}

void UpdateCheck::skip() {
  if (!item_.isCritical) {
    report(setting_.preferences.setSkippedVersion(item_.version));
  }
  end();
}

kit::Action UpdateCheck::cancel() {
  return whileCurrent([this] { end(); });
}

void UpdateCheck::end() {
  // The listener may destroy us.
  const kit::Action ended = listener_.ended;
  ended();
}

}  // namespace tarnwell::updater
