#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "standin/MacSystem.h"
#include "standin/dock/ui/Display.h"

namespace tarnwell::standin {

/// A Dock on a display, kept alive by its supervisor, with preferences of its own.
class ShownDock {
 public:
  using Clock = std::chrono::steady_clock;
  using Seconds = std::chrono::duration<double>;

  /// Applications, counted from the left.
  static constexpr int files = 0;
  static constexpr int letters = 1;
  static constexpr int notebook = 2;
  static constexpr int album = 4;

  /// The middles of icons at rest: eight applications in a row, and the line on which they are.
  static constexpr int iconLine = Display::height - 42;
  static int iconColumn(int application) { return 392 + 60 * application; }

  ShownDock();

  /// Sets a preference; `value` has its type flag.
  void write(const std::string& key, const std::string& value) const;

  /// Starts it for the first time, and waits until it can be seen.
  void start();

  /// Kills it, as often as is said at once one after the other, and waits until another can be seen.
  void restart(int times = 1);

  /// Sends the pointer away and waits until the dock has hidden.
  void hide() const;

  /// Sends the pointer to the lower edge and waits until the dock is there.
  void reveal() const;

  /// Moves the pointer to an icon and clicks with a button.
  void click(int application, int button = 1) const;

  /// Clicks where the pointer is. Does not wait for it.
  Process beginClick() const;

  /// Clicks the notebook and waits for its document "Ideas".
  void openNotebook() const;

  pid_t process() const;

  /// The process that shows it.
  pid_t ui() const;
  std::size_t starts() const;
  const Display& display() const { return display_; }
  Display& display() { return display_; }
  const MacSystem& system() const { return system_; }

  /// The last words of its log.
  std::string log() const { return fileContent(system_.dockLog()); }

  struct Reveal {
    Seconds delay{0};     // from the pointer at the edge to the first change of the screen
    Seconds duration{0};  // from the first change to the last one
    int frames = 0;       // how many different pictures there were
  };

  /// How a hidden dock comes, seen from outside.
  Reveal watchReveal() const;

 private:
  bool comesToRest() const;
  bool isHidden() const;
  bool isShown() const;
  Words environment() const;
  Colors column() const;

  MacSystem system_;
  Display display_;
  std::optional<Process> supervisor_;
};

}  // namespace tarnwell::standin
