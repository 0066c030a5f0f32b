#pragma once

#include <compare>
#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standin/dock/model/Geometry.h"

namespace tarnwell::standin {

enum class DocumentState { closed, open, minimized };

struct Document {
  std::string title;
  DocumentState state = DocumentState::closed;
  Point place;  // of its window's top left corner
};

struct DemoApplication {
  std::string id;  // one lower-case word
  std::string name;
  bool isRunning = false;
  bool isHidden = false;
  std::vector<Document> documents;
};

/// One document among those of all applications.
struct DocumentId {
  std::size_t application = 0;
  std::size_t document = 0;

  // NOLINTNEXTLINE(modernize-use-nullptr): the tool takes the comparison's zero for a pointer
  auto operator<=>(const DocumentId&) const = default;
};

/// What a click on an application does to the windows of the others.
enum class OthersOnActivation { stay, hide };

/// The applications that the dock shows, which are played by the dock itself, and what has become of them.
class Desk {
 public:
  /// Eight applications, three of which run, with all documents closed.
  Desk();

  const std::vector<DemoApplication>& applications() const { return applications_; }
  const Document& document(DocumentId id) const;

  /// Whether its window is on the screen.
  bool isVisible(DocumentId id) const;

  /// Minimized ones, in the order in which they were minimized, those of hidden applications included.
  const std::vector<DocumentId>& minimized() const { return minimized_; }

  /// Launches it, or shows it when it is hidden. Where none of its documents is open then, one that was minimized
  /// comes back, or else all are opened.
  void activate(std::size_t application, OthersOnActivation others);

  void hide(std::size_t application);
  void quit(std::size_t application);
  void minimize(DocumentId id);
  /// Out of the dock again, with its application shown.
  void restore(DocumentId id);
  void close(DocumentId id);
  void move(DocumentId id, Point place);

  /// Everything that can change: one line for each application, and one for the order of what is minimized.
  std::string text() const;
  /// Takes such a text over; lines that are none of it are passed over.
  void restoreFrom(std::string_view text);

 private:
  Document& changeable(DocumentId id);
  void openSomething(std::size_t application);
  void takeLine(const std::string& line);
  void takeOrder(std::istream& words);
  std::optional<std::size_t> applicationNamed(std::string_view id) const;

  std::vector<DemoApplication> applications_;
  std::vector<DocumentId> minimized_;
};

}  // namespace tarnwell::standin
