#include "standin/dock/model/Desk.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <locale>
#include <sstream>
#include <utility>

namespace tarnwell::standin {
namespace {

enum class Start { runs, waits };

DemoApplication makeApplication(const char* id, const char* name, Start start, std::vector<Document> documents) {
  return {.id = id, .name = name, .isRunning = start == Start::runs, .documents = std::move(documents)};
}

Document makeDocument(const char* title, Point place) { return {.title = title, .place = place}; }

constexpr const char* orderWord = "order";  // starts the last line of the text

// In the order of the states.
constexpr std::array<std::string_view, 3> stateWords = {"closed", "open", "minimized"};

bool read(std::istream& text, DocumentState& state) {
  std::string word;
  text >> word;
  const auto* const found = std::ranges::find(stateWords, word);
  if (found == stateWords.end()) {
    return false;
  }
  state = static_cast<DocumentState>(found - stateWords.begin());
  return true;
}

// What is farthest counts as well: six digits are written, which may be rounded up to it.
bool read(std::istream& text, Document& document) {
  constexpr double farthest = 100'000;
  return read(text, document.state) && text >> document.place.x >> document.place.y &&
         std::abs(document.place.x) <= farthest && std::abs(document.place.y) <= farthest;
}

}  // namespace

Desk::Desk()
    : applications_({
          makeApplication("files", "Files", Start::runs,
                          {makeDocument("Projects", {90, 120}), makeDocument("Downloads", {190, 330})}),
          makeApplication("letters", "Letters", Start::waits,
                          {makeDocument("Inbox", {140, 90}), makeDocument("A letter to Ada", {330, 250})}),
          makeApplication("notebook", "Notebook", Start::runs,
                          {makeDocument("Shopping", {120, 160}), makeDocument("Ideas", {480, 110}),
                           makeDocument("Travel plans", {350, 360})}),
          makeApplication("almanac", "Almanac", Start::waits, {makeDocument("This month", {220, 140})}),
          makeApplication("album", "Album", Start::runs,
                          {makeDocument("Mountains", {520, 90}), makeDocument("By the sea", {620, 320})}),
          makeApplication("tunes", "Tunes", Start::waits, {makeDocument("Evening mix", {410, 200})}),
          makeApplication("atlas", "Atlas", Start::waits, {makeDocument("Harbour", {300, 150})}),
          makeApplication("console", "Console", Start::waits,
                          {makeDocument("Session 1", {160, 210}), makeDocument("Session 2", {540, 280})}),
      }) {}

const Document& Desk::document(DocumentId id) const { return applications_[id.application].documents[id.document]; }

Document& Desk::changeable(DocumentId id) { return applications_[id.application].documents[id.document]; }

bool Desk::isVisible(DocumentId id) const {
  const DemoApplication& application = applications_[id.application];
  return application.isRunning && !application.isHidden && document(id).state == DocumentState::open;
}

void Desk::activate(std::size_t application, OthersOnActivation others) {
  DemoApplication& activated = applications_[application];
  activated.isHidden = false;
  activated.isRunning = true;
  const auto isOpen = [](const Document& each) { return each.state == DocumentState::open; };
  if (std::ranges::none_of(activated.documents, isOpen)) {
    openSomething(application);
  }
  if (others == OthersOnActivation::hide) {
    for (std::size_t i = 0; i < applications_.size(); ++i) {
      applications_[i].isHidden = i != application && applications_[i].isRunning;
    }
  }
}

void Desk::openSomething(std::size_t application) {
  const auto last = std::find_if(minimized_.rbegin(), minimized_.rend(),
                                 [&](DocumentId each) { return each.application == application; });
  if (last != minimized_.rend()) {
    return restore(*last);
  }
  for (Document& each : applications_[application].documents) {
    each.state = DocumentState::open;
  }
}

void Desk::hide(std::size_t application) { applications_[application].isHidden = applications_[application].isRunning; }

void Desk::quit(std::size_t application) {
  DemoApplication& ended = applications_[application];
  ended.isRunning = false;
  ended.isHidden = false;
  for (std::size_t i = 0; i < ended.documents.size(); ++i) {
    close({application, i});
  }
}

void Desk::minimize(DocumentId id) {
  if (document(id).state == DocumentState::open) {
    changeable(id).state = DocumentState::minimized;
    minimized_.push_back(id);
  }
}

void Desk::restore(DocumentId id) {
  applications_[id.application].isHidden = false;
  changeable(id).state = DocumentState::open;
  std::erase(minimized_, id);
}

void Desk::close(DocumentId id) {
  changeable(id).state = DocumentState::closed;
  std::erase(minimized_, id);
}

void Desk::move(DocumentId id, Point place) { changeable(id).place = place; }

std::string Desk::text() const {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  for (const DemoApplication& application : applications_) {
    text << application.id << (application.isRunning ? " running" : " ended")
         << (application.isHidden ? " hidden" : " shown");
    for (const Document& document : application.documents) {
      text << ' ' << stateWords.at(static_cast<std::size_t>(document.state)) << ' ' << document.place.x << ' '
           << document.place.y;
    }
    text << '\n';
  }
  text << orderWord;
  for (const DocumentId id : minimized_) {
    text << ' ' << applications_[id.application].id << ' ' << id.document;
  }
  text << '\n';
  return text.str();
}

void Desk::restoreFrom(std::string_view text) {
  std::istringstream lines{std::string(text)};
  for (std::string line; std::getline(lines, line);) {
    takeLine(line);
  }
}

std::optional<std::size_t> Desk::applicationNamed(std::string_view id) const {
  const auto found = std::ranges::find(applications_, id, &DemoApplication::id);
  return found == applications_.end() ? std::nullopt
                                      : std::optional(static_cast<std::size_t>(found - applications_.begin()));
}

void Desk::takeLine(const std::string& line) {
  std::istringstream words(line);
  words.imbue(std::locale::classic());
  std::string id;
  words >> id;
  if (id == orderWord) {
    return takeOrder(words);
  }
  const auto application = applicationNamed(id);
  std::string running;
  std::string hidden;
  words >> running >> hidden;
  if (!application) {
    return;
  }
  DemoApplication read = applications_[*application];
  read.isRunning = running == "running";
  read.isHidden = read.isRunning && hidden == "hidden";
  for (Document& document : read.documents) {
    if (!standin::read(words, document)) {
      return;
    }
  }
  applications_[*application] = read;
  std::erase_if(minimized_, [&](DocumentId each) { return each.application == *application; });
  for (std::size_t i = 0; i < read.documents.size(); ++i) {
    if (read.documents[i].state == DocumentState::minimized) {
      minimized_.push_back({*application, i});
    }
  }
}

// Each that is named goes to the end, so that those that are not come first.
void Desk::takeOrder(std::istream& words) {
  std::string id;
  for (std::size_t document = 0; words >> id >> document;) {
    const DocumentId named{applicationNamed(id).value_or(applications_.size()), document};
    if (std::erase(minimized_, named) > 0) {
      minimized_.push_back(named);
    }
  }
}

}  // namespace tarnwell::standin
