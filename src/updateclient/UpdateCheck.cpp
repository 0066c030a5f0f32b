#include "updateclient/UpdateCheck.h"

#include <utility>

#include "release/protocol/Engine.h"
#include "release/text/Number.h"
#include "release/text/PlainLine.h"
#include "release/text/Report.h"
#include "updateclient/ItemChooser.h"

namespace tarnwell::updateclient {
namespace {

// Of what the engine makes of a feed, in characters.
constexpr std::size_t longestTitle = 200;
constexpr std::size_t longestObjection = 1000;

}  // namespace

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

void UpdateCheck::run(const Engine::Order& order, std::function<bool(const release::Message&)> said,
                      const std::function<void(const system::Result<void>&)>& ended) {
  // Its end begins the next one.
  const auto take = [this, ended](const system::Result<void>& result) {
    const auto done = std::move(job_);
    ended(result);
  };
  auto begun = setting_.ports.engine.start(order, {.said = std::move(said), .ended = take});
  if (begun) {
    job_ = *std::move(begun);
  } else {
    ended(begun.error());
  }
}

std::string UpdateCheck::stallLimit() const { return std::to_string(setting_.configuration.stallLimit.count()); }

void UpdateCheck::start() {
  enter(Stage::checking);
  listener_.began();
  items_ = {};
  const auto& configuration = setting_.configuration;
  run(
      {.words = {"fetch-feed", configuration.feedAddress, configuration.userAgent, stallLimit(),
                 configuration.publicKey}},
      [this](const auto& message) { return items_.take(message); }, [this](const auto& result) { takeFeed(result); });
}

void UpdateCheck::takeFeed(const system::Result<void>& fetched) {
  if (!fetched) {
    return fail(fetched.error(), [this] { start(); });
  }
  const auto& configuration = setting_.configuration;
  const ItemChooser chooser({.runningVersion = configuration.runningVersion,
                             .systemVersion = configuration.systemVersion,
                             .channels = configuration.channels,
                             .skippedVersion = setting_.preferences.skippedVersion(),
                             .handedOverVersion = setting_.handedOverVersion,
                             .origin = origin_});
  auto item = chooser.best(items_.takeItems());
  if (!item) {
    return sayUpToDate();
  }
  item_ = *std::move(item);
  item_.title = release::plainLine(item_.title, longestTitle);
  // What lacks a signature is refused before the user is asked to install it.
  if (!item_.objection.empty()) {
    return fail({release::plainLine(item_.objection, longestObjection)}, [this] { start(); });
  }
  readNotes();
}

// They are shown or they are not: a version whose notes cannot be read is an update all the same.
void UpdateCheck::readNotes() {
  notes_ = {};
  if (item_.notes.empty()) {
    return takeItem();
  }
  auto text = PackageFile::create(setting_.configuration.packageFolder);
  if (!text || !text->write(item_.notes)) {
    release::report(text ? system::systemFailure("cannot keep the release notes") : text.error());
    return takeItem();
  }
  run(
      {.words = {"read-notes"}, .input = text->descriptor()},
      [this](const auto& message) { return notes_.take(message); },
      [this](const system::Result<void>& read) {
        release::report(read);
        item_.readNotes = read ? notes_.takeNotes() : release::ReleaseNotes();
        takeItem();
      });
}

void UpdateCheck::sayUpToDate() {
  if (origin_ == Origin::schedule) {
    return end();
  }
  enter(Stage::over);
  setting_.ports.driver.showUpToDate(setting_.configuration.shownVersion, cancel());
}

void UpdateCheck::takeItem() {
  if (!item_.isInformational && origin_ == Origin::schedule && setting_.preferences.automaticDownloads()) {
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
  takeProgress(0);
  const auto again = [this] { download(); };
  auto package = PackageFile::create(setting_.configuration.packageFolder);
  if (!package) {
    return fail({"The update could not be stored: " + package.error().message + ". See to that, and try again."},
                again);
  }
  package_.emplace(*std::move(package));
  run(
      {.words = {"fetch-package", item_.enclosure.url, setting_.configuration.userAgent, stallLimit(),
                 std::to_string(item_.enclosure.length)},
       .input = package_->descriptor()},
      [this](const auto& message) { return takeBytes(message); },
      [this, again](const system::Result<void>& fetched) { fetched ? verify() : fail(fetched.error(), again); });
}

bool UpdateCheck::takeBytes(const release::Message& message) {
  const auto received = release::numberIn(message.text);
  const bool isBelievable =
      message.word == release::bytesWord && received && *received >= received_ && *received <= item_.enclosure.length;
  if (isBelievable) {
    takeProgress(*received);
  }
  return isBelievable;
}

void UpdateCheck::verify() {
  enter(Stage::verifying);
  const auto& enclosure = item_.enclosure;
  way_ = nullptr;
  run(
      {.words = {"verify", item_.version, std::to_string(enclosure.length), enclosure.signature, item_.releaseSignature,
                 setting_.configuration.publicKey},
       .input = package_->descriptor()},
      [this](const release::Message& message) {
        way_ = installationWay(message.text);
        return message.word == release::kindWord;
      },
      [this](const system::Result<void>& verified) { takeVerified(verified); });
}

void UpdateCheck::takeVerified(const system::Result<void>& verified) {
  if (verified && way_ != nullptr) {
    enter(Stage::ready);
  } else {
    fail(
        verified ? system::Failure{"The update is of no kind that can be installed on this system."} : verified.error(),
        [this] { download(); });
  }
}

void UpdateCheck::takeProgress(std::uint64_t received) {
  received_ = received;
  if (origin_ == Origin::user) {
    setting_.ports.driver.showProgress(received_, item_.enclosure.length);
  }
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
  auto begun = Installation::start(
      setting_.ports.engine, setting_.ports.desktop, *package_,
      {.way = *way_, .item = item_, .key = setting_.configuration.publicKey, .program = setting_.configuration.program},
      [this](const system::Result<HandOver>& result) { takeHandOver(result); });
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
    release::report(failure);
    end();
    return;
  }
  enter(Stage::over);
  setting_.ports.driver.showFailure(failure.message, cancel(),
                                    retry ? kit::Action(whileCurrent(std::move(retry))) : kit::Action());
}

void UpdateCheck::skip() {
  if (!item_.isCritical) {
    release::report(setting_.preferences.setSkippedVersion(item_.version));
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

}  // namespace tarnwell::updateclient
