#include "host/linux/updates/UpdateCheck.h"

#include <utility>

#include "host/linux/updates/ItemChooser.h"
#include "host/linux/updates/PackageClaim.h"
#include "host/linux/updates/Report.h"

namespace tarnwell::host_linux::updates {

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

void UpdateCheck::enter(Stage stage) {
  stage_ = stage;
  stageLife_ = std::make_shared<int>();
  listener_.changed();
}

bool UpdateCheck::awaitsAnUnaskedAnswer() const { return origin_ == Origin::schedule && stage_ != Stage::working; }

void UpdateCheck::bringForward() {
  origin_ = Origin::user;
  if (stage_ == Stage::found) {
    showFound();
  } else if (stage_ == Stage::ready) {
    showReady();
  }
}

void UpdateCheck::start() {
  enter(Stage::working);
  listener_.began();
  if (origin_ == Origin::user) {
    setting_.ports.driver.showChecking(whileCurrent([this] { end(); }));
  }
  fetch_ = std::make_unique<FeedFetch>(setting_.ports.transport, setting_.configuration.feedAddress,
                                       [this](const auto& feed) { take(feed); });
}

void UpdateCheck::take(const Result<std::vector<FeedItem>>& feed) {
  const auto again = [this] { start(); };
  if (const auto* failure = std::get_if<Failure>(&feed)) {
    fail(*failure, again);
    return;
  }
  const auto& configuration = setting_.configuration;
  const ItemChooser chooser({.runningVersion = configuration.runningVersion,
                             .systemVersion = configuration.systemVersion,
                             .channels = configuration.channels,
                             .skippedVersion = setting_.preferences.skippedVersion(),
                             .origin = origin_});
  if (auto item = chooser.best(std::get<std::vector<FeedItem>>(feed))) {
    takeItem(std::move(*item));
  } else {
    sayUpToDate();
  }
}

void UpdateCheck::sayUpToDate() {
  if (origin_ == Origin::user) {
    enter(Stage::working);
    setting_.ports.driver.showUpToDate(setting_.configuration.shownVersion, whileCurrent([this] { end(); }));
  } else {
    end();
  }
}

// What lacks a signature is refused before anybody is asked to install it.
void UpdateCheck::takeItem(FeedItem item) {
  item_ = std::move(item);
  if (item_.isInformational) {
    showFound();
    return;
  }
  const auto claim = PackageClaim::create(item_);
  if (const auto* failure = std::get_if<Failure>(&claim)) {
    fail(*failure, [this] { start(); });
  } else if (origin_ == Origin::schedule && setting_.preferences.automaticDownloads()) {
    download();
  } else {
    showFound();
  }
}

void UpdateCheck::showFound() {
  enter(Stage::found);
  setting_.ports.driver.showFound(item_, origin_, whileCurrent([this](Choice choice) { answerFound(choice); }));
}

void UpdateCheck::answerFound(Choice choice) {
  if (choice == Choice::skip) {
    skip();
  } else if (choice == Choice::remindLater) {
    end();
  } else if (item_.isInformational) {
    setting_.ports.openUrl(item_.link);
    end();
  } else {
    origin_ = Origin::user;
    download();
  }
}

void UpdateCheck::download() {
  enter(Stage::working);
  const auto claim = std::get<PackageClaim>(PackageClaim::create(item_));
  const bool isShown = origin_ == Origin::user;
  auto& driver = setting_.ports.driver;
  if (isShown) {
    driver.showDownloading(item_, whileCurrent([this] { end(); }));
    driver.showProgress(0, claim.length);
  }
  auto started = PackageDownload::start(
      setting_.ports.transport, {.claim = claim, .key = setting_.key, .folder = setting_.configuration.packageFolder},
      [&driver, isShown, length = claim.length](std::uint64_t received) {
        if (isShown) {
          driver.showProgress(received, length);
        }
      },
      [this](Result<PackageFile> package) { takePackage(std::move(package)); });
  if (const auto* failure = std::get_if<Failure>(&started)) {
    fail(*failure, [this] { download(); });
  } else {
    download_ = std::get<std::unique_ptr<PackageDownload>>(std::move(started));
  }
}

void UpdateCheck::takePackage(Result<PackageFile> package) {
  if (const auto* failure = std::get_if<Failure>(&package)) {
    fail(*failure, [this] { download(); });
    return;
  }
  package_ = std::get<PackageFile>(std::move(package));
  showReady();
}

void UpdateCheck::showReady() {
  enter(Stage::ready);
  setting_.ports.driver.showReady(item_, origin_, whileCurrent([this](Choice choice) { answerReady(choice); }));
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
  enter(Stage::working);
  setting_.ports.installer.install(
      item_, *package_, whileCurrent([this](const std::optional<Failure>& failure) { takeHandOver(failure); }));
}

void UpdateCheck::takeHandOver(const std::optional<Failure>& failure) {
  if (failure) {
    fail(*failure, [this] { install(); });
  } else {
    end();
  }
}

void UpdateCheck::fail(const Failure& failure, kit::Action retry) {
  if (origin_ == Origin::schedule) {
    report(failure);
    end();
    return;
  }
  enter(Stage::working);
  setting_.ports.driver.showFailure(failure.message, whileCurrent([this] { end(); }), whileCurrent(std::move(retry)));
}

void UpdateCheck::skip() {
  if (!item_.isCritical) {
    report(setting_.preferences.setSkippedVersion(item_.version));
  }
  end();
}

void UpdateCheck::end() {
  // The listener may destroy us.
  const kit::Action ended = listener_.ended;
  ended();
}

}  // namespace tarnwell::host_linux::updates
