#pragma once

#include <QtCore/QThread>
#include <memory>

class QDBusMessage;

namespace tarnwell::host_qt {

/// A desktop's tray as another program has it: it takes icons in and answers while this program is busy.
class PanelThread {
 public:
  /// When it says whether icons are shown; in time, it says that at once.
  enum class Answers { inTime, whenTold };

  explicit PanelThread(Answers answers);
  PanelThread(const PanelThread&) = delete;
  PanelThread& operator=(const PanelThread&) = delete;
  ~PanelThread();

  /// How many icons this program has sent it by now; those that are on their way count.
  int icons() const;

  /// Gives the answers that it has held back.
  void answer();

 private:
  class Watcher;

  QThread thread_;
  std::unique_ptr<Watcher> watcher_;
};

}  // namespace tarnwell::host_qt
