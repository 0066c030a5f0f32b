#pragma once

#include <fcntl.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "system/base/Descriptor.h"
#include "updateclient/engine/Engine.h"
#include "updater/engine/Jobs.h"
#include "updater/package/PackageKind.h"

namespace tarnwell::updateclient {

/// The engine's own jobs, run in the test itself when it says so, with a network on which things happen when it says
/// so.
class FakeEngine final : public Engine {
 public:
  system::Result<std::unique_ptr<Job>> start(const Order& order, Listener listener) override {
    answer_.clear();
    if (isFetch(order)) {
      addresses.push_back(order.words.at(1));
    }
    run_ =
        std::make_shared<Run>(Run{order.words, duplicate(order.input), duplicate(order.folder), std::move(listener)});
    return std::make_unique<FakeJob>(run_);
  }

  /// Of the newest job, as long as it is held.
  bool isBusy() const { return run_ != nullptr && run_->listener.ended != nullptr; }

  /// Bytes of the answer to a request.
  void deliver(std::string_view bytes) {
    if (isBusy()) {
      answer_ += bytes;
      if (run_->words.front() == "fetch-package") {
        const auto run = run_;
        run->listener.said({release::bytesWord, std::to_string(answer_.size())});
      }
    }
  }
  void finish(std::optional<system::Failure> failure = std::nullopt) {
    const std::string answer = std::exchange(answer_, {});
    runJob([&](const auto& /*download*/, const updater::Received& received) -> system::Result<void> {
      auto taken = answer.empty() ? system::Result<void>() : received(answer);
      return taken && failure ? system::Result<void>(*failure) : taken;
    });
    while (!isHeld && isBusy() && isLook()) {
      work();
    }
  }
  /// Delivers everything and finishes.
  void answer(std::string_view bytes) {
    deliver(bytes);
    finish();
  }

  /// Does what takes no network.
  void work() {
    if (isBusy()) {
      runJob({});
    }
  }

  std::vector<std::string> addresses = {};
  /// Whether it waits for the test instead of looking as soon as the event loop gets round to it.
  bool isHeld = false;
  /// What a package counts as that is of no kind that there is.
  std::string kind = "debian";

 private:
  struct Run {
    std::vector<std::string> words;
    system::Descriptor input;
    system::Descriptor folder;
    Listener listener;
  };

  class FakeJob final : public Job {
   public:
    explicit FakeJob(std::shared_ptr<Run> run) : run_(std::move(run)) {}
    ~FakeJob() override { run_->listener = {}; }

   private:
    std::shared_ptr<Run> run_;
  };

  static bool isFetch(const Order& order) { return order.words.front().starts_with("fetch-"); }
  bool isLook() const { return run_->words.front() == "verify" || run_->words.front() == "read-notes"; }
  static system::Descriptor duplicate(int number) {
    return system::Descriptor(number < 0 ? -1 : ::fcntl(number, F_DUPFD_CLOEXEC, 0));
  }

  void runJob(decltype(updater::Given::fetch) fetch) {
    if (!isBusy()) {
      return;
    }
    const auto run = run_;
    const auto said = std::exchange(run->listener.said, nullptr);
    const auto ended = std::exchange(run->listener.ended, nullptr);
    const system::Result<void> result =
        run->words.front() == "place" ? placed(*run) : done(*run, std::move(fetch), said);
    ended(result);
  }

  system::Result<void> done(const Run& run, decltype(updater::Given::fetch) fetch,
                            const std::function<bool(const release::Message&)>& said) const {
    const updater::Given given = {
        .input = run.input.number(), .folder = run.folder.number(), .fetch = std::move(fetch)};
    const auto result =
        updater::jobCalled(run.words.front())
            ->run({run.words.begin() + 1, run.words.end()}, given, [&](const release::Message& message) {
              if (message.word != release::bytesWord) {
                said(message);
              }
            });
    if (result || result.error().message != updater::unknownKind().message) {
      return result;
    }
    said({release::kindWord, kind});
    return {};
  }

  /// A package of any kind.
  static system::Result<void> placed(const Run& run) {
    const std::string& target = run.words.back();
    const std::string name = target.substr(target.rfind('/') + 1);
    const system::Descriptor file(
        ::openat(run.folder.number(), name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    return file.copyFrom(run.input.number()) ? system::Result<void>() : system::systemFailure("cannot copy");
  }

  std::shared_ptr<Run> run_;
  std::string answer_;
};

}  // namespace tarnwell::updateclient
