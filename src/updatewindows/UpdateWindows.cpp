#include "updatewindows/UpdateWindows.h"

#include <utility>

#include "kit/application/Platform.h"
#include "kit/turn/Selectors.h"
#include "release/text/PlainLine.h"
#include "updateclient/ByteCount.h"
#include "updatewindows/NotesView.h"
#include "view/controls/buttons/Toggle.h"
#include "view/controls/ranges/ProgressBar.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"

namespace tarnwell::updatewindows {
namespace {

using release::FeedItem;
using updateclient::HandOver;
using view::Text;
using view::View;

constexpr std::size_t mostTitleLetters = 90;
constexpr std::size_t mostVersionLetters = 40;
constexpr double aboveNumbers = 7;

View downloadBody(std::optional<double> share, const std::string& numbers) {
  const View line = View(Text{numbers}).font(kit::FontRole::subheadline).foregroundStyle(kit::ColorRole::secondary);
  return view::VStack{.alignment = kit::TextAlignment::leading,
                      .spacing = aboveNumbers,
                      .children = {view::ProgressBar{.title = "Download", .share = share}, line}};
}

}  // namespace

UpdateWindows::UpdateWindows(kit::Application& application, std::string shownVersion)
    : application_(application),
      shownVersion_(std::move(shownVersion)),
      window_(std::make_shared<UpdateWindow>(application)) {}

UpdateWindows::~UpdateWindows() {
  window_->dismiss();
  // One of its buttons may be what is running.
  application_.turn().releaseLater(std::move(window_));
}

void UpdateWindows::showPermission(std::function<void(Permission)> answer) {
  const auto downloads = std::make_shared<bool>(false);
  const auto refuse = [answer] { answer({}); };
  show({.heading = "Check for updates automatically?",
        .message = product() + " can look for a new version by itself, once a day. It tells nobody who you are. You "
                               "can change your mind at any time on the General tab of the settings.",
        .body = view::Toggle{.title = "Download updates automatically",
                             .isOn = {.get = [downloads] { return *downloads; },
                                      .set = [downloads](bool on) { *downloads = on; }},
                             .style = kit::Toggle::Style::checkBox},
        .defaultChoice = {{"Check Automatically",
                           [answer, downloads] { answer({.checks = true, .downloads = *downloads}); }}},
        .otherChoice = {{"Don’t Check", refuse}},
        .closed = refuse},
       Origin::schedule);
}

void UpdateWindows::showChecking(kit::Action cancel) {
  showWork("Checking for updates…", "Checking for updates", std::move(cancel));
}

void UpdateWindows::showFound(const FeedItem& item, Origin origin, std::function<void(Choice)> answer) {
  UpdatePage page = offer(item, answer);
  page.heading = item.title.empty() ? "A new version of " + product() + " is available"
                                    : release::plainLine(item.title, mostTitleLetters);
  page.message = whatIsAvailable(item, nameOf(item) + " is available");
  page.defaultChoice->title = item.isInformational ? "Learn More" : "Install Update";
  show(std::move(page), origin);
}

void UpdateWindows::showDownloading(const FeedItem& item, kit::Action cancel) {
  show({.heading = "Downloading " + nameOf(item) + "…",
        .body = downloadBody(std::nullopt, "Connecting…"),
        .otherChoice = {{"Cancel", cancel}},
        .closed = cancel},
       Origin::user);
  isDownloading_ = true;
}

void UpdateWindows::showProgress(std::uint64_t received, std::uint64_t expected) {
  if (isDownloading_) {
    const auto share =
        expected > 0 ? std::optional(static_cast<double>(received) / static_cast<double>(expected)) : std::nullopt;
    window_->showBody(
        downloadBody(share, updateclient::byteProgress(received, expected, *application_.platform().numberFormat())));
  }
}

void UpdateWindows::showVerifying(const FeedItem& item, kit::Action cancel) {
  showWork("Verifying " + nameOf(item) + "…", "Verifying", std::move(cancel));
}

void UpdateWindows::showReady(const FeedItem& item, Origin origin, std::function<void(Choice)> answer) {
  UpdatePage page = offer(item, answer);
  page.heading = nameOf(item) + " is ready to install";
  page.message = whatIsAvailable(item, "It has been downloaded and verified");
  page.defaultChoice->title = "Install Update";
  show(std::move(page), origin);
}

void UpdateWindows::showInstalling(const FeedItem& item, kit::Action cancel) {
  showWork("Installing " + nameOf(item) + "…", "Installing", std::move(cancel));
}

void UpdateWindows::showHandedOver(const FeedItem& item, HandOver handOver, Origin origin, kit::Action acknowledged) {
  const UpdatePage::Choice restart = {"Restart " + product(), [this, acknowledged] {
                                        acknowledged();
                                        this->restart();
                                      }};
  // What stands open in an installer is not there yet.
  show(handOver == HandOver::opened ? UpdatePage{.heading = "The installer has been opened",
                                                 .message = "Go on there to install " + nameOf(item) +
                                                            ". When that is done, restart " + product() + " to use it.",
                                                 .defaultChoice = {{"OK", acknowledged}},
                                                 .otherChoice = restart,
                                                 .closed = acknowledged}
                                    : UpdatePage{.heading = nameOf(item) + " is installed",
                                                 .message = "Restart " + product() + " to use it.",
                                                 .defaultChoice = restart,
                                                 .otherChoice = {{"Later", acknowledged}},
                                                 .closed = acknowledged},
       origin);
}

void UpdateWindows::showUpToDate(const std::string& shownVersion, kit::Action acknowledged) {
  showNotice(product() + " is up to date",
             "Version " + release::plainLine(shownVersion, mostVersionLetters) + " is the newest one.", Origin::user,
             std::move(acknowledged));
}

void UpdateWindows::showObstacle(const std::string& reason, kit::Action acknowledged) {
  showNotice(product() + " cannot look for updates", reason, Origin::user, std::move(acknowledged));
}

void UpdateWindows::showFailure(const std::string& reason, kit::Action acknowledged, kit::Action retry) {
  const std::string heading = product() + " could not be updated";
  if (!retry) {
    showNotice(heading, reason, Origin::user, std::move(acknowledged));
    return;
  }
  show({.heading = heading,
        .message = reason,
        .defaultChoice = {{"Try Again", std::move(retry)}},
        .otherChoice = {{"Close", acknowledged}},
        .closed = acknowledged},
       Origin::user);
}

void UpdateWindows::openPage(const std::string& address) { application_.platform().openUrl(address); }

void UpdateWindows::dismiss() { window_->dismiss(); }

void UpdateWindows::restart() {
  application_.platform().startAgainAtEnd();
  application_.perform(kit::selectors::terminate, nullptr);
}

void UpdateWindows::showWork(const std::string& heading, const std::string& name, kit::Action cancel) {
  show({.heading = heading,
        .body = view::ProgressBar{.title = name},
        .otherChoice = {{"Cancel", cancel}},
        .closed = cancel},
       Origin::user);
}

void UpdateWindows::showNotice(const std::string& heading, const std::string& message, Origin origin,
                               kit::Action acknowledged) {
  show({.heading = heading, .message = message, .defaultChoice = {{"OK", acknowledged}}, .closed = acknowledged},
       origin);
}

void UpdateWindows::show(UpdatePage page, Origin origin) {
  isDownloading_ = false;
  window_->show(std::move(page), origin == Origin::user ? UpdateWindow::Manner::inFront : UpdateWindow::Manner::quiet);
}

UpdatePage UpdateWindows::offer(const FeedItem& item, const std::function<void(Choice)>& answer) const {
  const auto choose = [&answer](Choice choice) { return [answer, choice] { answer(choice); }; };
  UpdatePage page = {.body = notesOf(item),
                     .defaultChoice = {{"", choose(Choice::install)}},
                     .otherChoice = {{"Remind Me Later", choose(Choice::remindLater)}},
                     .closed = choose(Choice::remindLater)};
  if (!item.isCritical) {
    page.farChoice = {"Skip This Version", choose(Choice::skip)};
  }
  return page;
}

std::string UpdateWindows::whatIsAvailable(const FeedItem& item, const std::string& how) const {
  return how + "; you have " + shownVersion_ + "." + (item.isCritical ? " This is an important update." : "");
}

const std::string& UpdateWindows::product() const { return application_.platform().product().name; }

std::string UpdateWindows::nameOf(const FeedItem& item) const {
  const std::string& version = item.shownVersion.empty() ? item.version : item.shownVersion;
  return product() + " " + release::plainLine(version, mostVersionLetters);
}

}  // namespace tarnwell::updatewindows
