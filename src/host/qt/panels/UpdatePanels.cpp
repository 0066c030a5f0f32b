#include "host/qt/panels/UpdatePanels.h"

#include <QtWidgets/QLabel>
#include <utility>

#include "host/qt/look/Conversions.h"
#include "host/qt/look/Theme.h"
#include "host/qt/panels/DownloadProgress.h"
#include "host/qt/panels/NotesView.h"
#include "host/qt/panels/PanelCheckBox.h"
#include "host/qt/panels/ProgressLine.h"
#include "kit/application/Platform.h"
#include "release/text/WebAddress.h"

namespace tarnwell::host_qt {
namespace {

using release::FeedItem;
using updateclient::HandOver;

constexpr int mostTitleLetters = 90;
constexpr int mostVersionLetters = 40;

// One line of a bearable length, whatever the feed says.
std::string shortened(const std::string& text, int most) {
  const QString line = toQString(text).simplified();
  return (line.size() > most ? line.left(most) + QStringLiteral("…") : line).toStdString();
}

std::string versionOf(const FeedItem& item) {
  return shortened(item.shownVersion.empty() ? item.version : item.shownVersion, mostVersionLetters);
}

}  // namespace

UpdatePanels::UpdatePanels(kit::Application& application, const Theme& theme, std::string shownVersion)
    : application_(application), theme_(theme), shownVersion_(std::move(shownVersion)) {}

UpdatePanels::~UpdatePanels() = default;

void UpdatePanels::showPermission(std::function<void(Permission)> answer) {
  auto* downloads = new PanelCheckBox(QStringLiteral("Download updates automatically"), theme_, nullptr);
  const auto refuse = asEvent([answer] { answer({}); });
  show(
      {.heading = "Check for updates automatically?",
       .message = product() + " can look for a new version by itself, once a day. It tells nobody who you are. You can "
                              "change your mind at any time on the General tab of the settings.",
       .tick = downloads,
       .defaultChoice = {{"Check Automatically", asEvent([answer, downloads] {
                            answer({.checks = true, .downloads = downloads->isChecked()});
                          })}},
       .otherChoice = {{"Don’t Check", refuse}},
       .closed = refuse},
      Origin::schedule);
}

void UpdatePanels::showChecking(kit::Action cancel) {
  showWork("Checking for updates…", "Checking for updates", std::move(cancel));
}

void UpdatePanels::showFound(const FeedItem& item, Origin origin, std::function<void(Choice)> answer) {
  UpdatePage page = offer(item, answer);
  page.heading =
      item.title.empty() ? "A new version of " + product() + " is available" : shortened(item.title, mostTitleLetters);
  page.message = nameOf(item) + " is available; you have " + shownVersion_ + "." +
                 (item.isCritical ? " This is an important update." : "");
  page.defaultChoice->title = item.isInformational ? "Learn More" : "Install Update";
  show(std::move(page), origin);
}

void UpdatePanels::showDownloading(const FeedItem& item, kit::Action cancel) {
  const auto cancelled = asEvent(std::move(cancel));
  progress_ = new DownloadProgress(theme_);
  show({.heading = "Downloading " + nameOf(item) + "…",
        .body = progress_,
        .otherChoice = {{"Cancel", cancelled}},
        .closed = cancelled},
       Origin::user);
}

void UpdatePanels::showProgress(std::uint64_t received, std::uint64_t expected) {
  if (progress_) {
    progress_->set(received, expected, *application_.platform().numberFormat());
  }
}

void UpdatePanels::showVerifying(const FeedItem& item, kit::Action cancel) {
  showWork("Verifying " + nameOf(item) + "…", "Verifying", std::move(cancel));
}

void UpdatePanels::showReady(const FeedItem& item, Origin origin, std::function<void(Choice)> answer) {
  UpdatePage page = offer(item, answer);
  page.heading = nameOf(item) + " is ready to install";
  page.message = "It has been downloaded and verified; you have " + shownVersion_ + "." +
                 (item.isCritical ? " This is an important update." : "");
  page.defaultChoice->title = "Install Update";
  show(std::move(page), origin);
}

void UpdatePanels::showInstalling(const FeedItem& item, kit::Action cancel) {
  showWork("Installing " + nameOf(item) + "…", "Installing", std::move(cancel));
}

void UpdatePanels::showHandedOver(const FeedItem& item, HandOver handOver, Origin origin, kit::Action acknowledged) {
  const auto closed = asEvent(std::move(acknowledged));
  UpdatePage page = {.defaultChoice = {{"OK", closed}}, .closed = closed};
  if (handOver == HandOver::opened) {
    page.heading = "The installer has been opened";
    page.message =
        "Go on there to install " + nameOf(item) + ". When that is done, quit " + product() + " and start it again.";
  } else {
    page.heading = nameOf(item) + " is installed";
    page.message = "Quit " + product() + " and start it again to use it.";
  }
  show(std::move(page), origin);
}

void UpdatePanels::showUpToDate(const std::string& shownVersion, kit::Action acknowledged) {
  const auto closed = asEvent(std::move(acknowledged));
  show({.heading = product() + " is up to date",
        .message = "Version " + shortened(shownVersion, mostVersionLetters) + " is the newest one.",
        .defaultChoice = {{"OK", closed}},
        .closed = closed},
       Origin::user);
}

void UpdatePanels::showFailure(const std::string& reason, kit::Action acknowledged, kit::Action retry) {
  const auto closed = asEvent(std::move(acknowledged));
  UpdatePage page = {.heading = product() + " could not be updated", .message = reason, .closed = closed};
  if (retry) {
    page.defaultChoice = {"Try Again", asEvent(std::move(retry))};
    page.otherChoice = {"Close", closed};
  } else {
    page.defaultChoice = {"OK", closed};
  }
  show(std::move(page), Origin::user);
}

void UpdatePanels::openPage(const std::string& address) { application_.platform().openUrl(address); }

void UpdatePanels::dismiss() {
  if (panel_) {
    panel_->dismiss();
  }
}

void UpdatePanels::showWork(const std::string& heading, const char* name, kit::Action cancel) {
  const auto cancelled = asEvent(std::move(cancel));
  auto* line = new ProgressLine(theme_, nullptr);
  line->setAccessibleName(QString::fromUtf8(name));
  show({.heading = heading, .body = line, .otherChoice = {{"Cancel", cancelled}}, .closed = cancelled}, Origin::user);
}

void UpdatePanels::show(UpdatePage page, Origin origin) {
  if (!panel_) {
    panel_ = std::make_unique<UpdatePanel>(theme_);
    panel_->setKeyEquivalents(
        [this](const kit::KeyEvent& key) { application_.responders().performKeyEquivalent(key); });
  }
  panel_->show(std::move(page), origin == Origin::user ? UpdatePanel::Manner::inFront : UpdatePanel::Manner::quiet);
}

UpdatePage UpdatePanels::offer(const FeedItem& item, const std::function<void(Choice)>& answer) const {
  const auto choose = [this, answer](Choice choice) { return asEvent([answer, choice] { answer(choice); }); };
  UpdatePage page = {.body = makeNotes(item),
                     .defaultChoice = {{"", choose(Choice::install)}},
                     .otherChoice = {{"Remind Me Later", choose(Choice::remindLater)}},
                     .closed = choose(Choice::remindLater)};
  if (!item.isCritical) {
    page.farChoice = {"Skip This Version", choose(Choice::skip)};
  }
  return page;
}

const std::string& UpdatePanels::product() const { return application_.platform().product().name; }

std::string UpdatePanels::nameOf(const FeedItem& item) const { return product() + " " + versionOf(item); }

kit::Action UpdatePanels::asEvent(kit::Action action) const {
  return [this, action = std::move(action)] {
    if (action) {
      application_.turn().perform(action);
    }
  };
}

QWidget* UpdatePanels::makeNotes(const FeedItem& item) const {
  const auto open = [&platform = application_.platform()](const std::string& address) { platform.openUrl(address); };
  if (!item.notes.empty()) {
    return new NotesView(item.notes, theme_, open, nullptr);
  }
  if (!release::isWebAddress(item.releaseNotesLink)) {
    return nullptr;
  }
  auto* link =
      new QLabel(QString(R"(<a href="%1" style="color:%2">Read what is new</a>)")
                     .arg(toQString(item.releaseNotesLink).toHtmlEscaped(), theme_.palette().accentOnWindow.name()));
  link->setTextFormat(Qt::RichText);
  link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  QObject::connect(link, &QLabel::linkActivated, link,
                   [open](const QString& address) noexcept { open(address.toStdString()); });
  return link;
}

}  // namespace tarnwell::host_qt
