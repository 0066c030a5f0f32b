#pragma once

#include <QtCore/QStringList>
#include <QtCore/QVariantMap>
#include <memory>
#include <string>
#include <vector>

#include "host/qt/bus/BusObject.h"
#include "host/qt/bus/BusTypes.h"

namespace tarnwell::host_qt {

/// A desktop's panel with a tray, on a connection of its own to the tests' bus. All questions wait with a deadline.
class FakePanel {
 public:
  /// Whether the panel shows what it takes in.
  enum class Shows { icons, nothing };

  explicit FakePanel(Shows shows = Shows::icons);
  FakePanel(const FakePanel&) = delete;
  FakePanel& operator=(const FakePanel&) = delete;
  /// The panel leaves the bus.
  ~FakePanel();

  /// A panel that shows icons has come.
  void beginToShow();

  /// Waits for the first icon; false when none comes.
  bool hasIcon() const;
  /// Of the icon that came last.
  QVariantMap icon() const;

  /// The menu of the icon as a user sees it, opened: "title [keys]", "(title)" where it cannot be chosen, "-".
  std::vector<std::string> openMenu() const;
  void choose(const std::string& title) const;

  /// A button of the mouse over the icon; "Activate" for the left one, "ContextMenu" for the right one.
  void press(const QString& method) const;

  /// How often it was asked whether it shows icons.
  int questions() const;

  /// How often the menu has said that it is another one.
  int menuChanges() const;

 private:
  class Watcher;

  QVariantList ask(const QString& path, const QString& interface, const QString& method,
                   const QVariantList& arguments) const;
  QString menuPath() const;

  QDBusConnection connection_;
  std::unique_ptr<Watcher> watcher_;
};

}  // namespace tarnwell::host_qt
