#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include "system/base/Descriptor.h"
#include "updateclient/UpdaterStage.h"

namespace tarnwell::updateclient {
namespace {

/// Counts how often the list of preferences is put in its place, which each write does once.
class Writes {
 public:
  explicit Writes(const std::filesystem::path& folder) : events_(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
    // The creation of each draft keeps two writes in a row from being told as one.
    EXPECT_GE(::inotify_add_watch(events_.number(), folder.c_str(), IN_CREATE | IN_MOVED_TO), 0);
  }

  /// Since the last call.
  int count() const {
    alignas(inotify_event) std::array<char, 4096> bytes = {};
    const ssize_t read = ::read(events_.number(), bytes.data(), bytes.size());
    int found = 0;
    for (ssize_t at = 0; at < read;) {
      const auto* event = reinterpret_cast<const inotify_event*>(bytes.data() + at);
      const bool isInPlace = (event->mask & IN_MOVED_TO) != 0 && std::string(event->name) == "updates";
      found += isInPlace ? 1 : 0;
      at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
    }
    return found;
  }

 private:
  system::Descriptor events_;
};

TEST(UpdaterSwitches, areWrittenOnceEach) {
  UpdaterStage stage;
  stage.checkedJustNow();
  FeedUpdater& updater = stage.launch();
  const Writes writes(stage.sandbox.path());
  for (const bool isOn : {false, true}) {
    updater.setAutomaticallyChecksForUpdates(isOn);
    EXPECT_EQ(writes.count(), 1);
    updater.setAutomaticallyDownloadsUpdates(!isOn);
    EXPECT_EQ(writes.count(), 1);
    EXPECT_EQ(updater.automaticallyChecksForUpdates(), isOn);
    EXPECT_EQ(updater.automaticallyDownloadsUpdates(), !isOn);
  }
}

TEST(UpdaterSwitches, areReadWithoutAWrite) {
  UpdaterStage stage;
  FeedUpdater& updater = stage.launch();
  const Writes writes(stage.sandbox.path());
  EXPECT_FALSE(updater.automaticallyChecksForUpdates());
  EXPECT_FALSE(updater.automaticallyDownloadsUpdates());
  EXPECT_EQ(writes.count(), 0);
}

TEST(UpdaterSwitches, changeNothingWhereTheyAreSetToWhatTheyAre) {
  UpdaterStage stage;
  stage.checkedJustNow();
  FeedUpdater& updater = stage.launch();
  updater.setAutomaticallyDownloadsUpdates(false);
  const std::string before = stage.sandbox.read("updates");
  const auto alarm = stage.alarm.time();
  updater.setAutomaticallyChecksForUpdates(true);
  updater.setAutomaticallyDownloadsUpdates(false);
  EXPECT_EQ(stage.sandbox.read("updates"), before);
  EXPECT_EQ(stage.alarm.time(), alarm);
}

}  // namespace
}  // namespace tarnwell::updateclient
