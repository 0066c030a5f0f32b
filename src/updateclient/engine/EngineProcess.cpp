#include "updateclient/engine/EngineProcess.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <utility>

#include "release/protocol/Engine.h"
#include "release/text/PlainLine.h"
#include "release/text/Report.h"
#include "system/processes/Pipe.h"

namespace tarnwell::updateclient {
namespace {

constexpr int mostUnfenced = 10;
constexpr std::size_t longestSentence = 1000;  // Characters.

/// Of this process's environment the engine finds these alone.
constexpr std::array passedOn = {"LANG",        "LC_ALL",      "LC_MESSAGES",   "http_proxy",
                                 "https_proxy", "HTTPS_PROXY", "all_proxy",     "ALL_PROXY",
                                 "no_proxy",    "NO_PROXY",    "SSL_CERT_FILE", "CURL_CA_BUNDLE"};

std::vector<std::string> engineEnvironment() {
  std::vector<std::string> environment = {"PATH=/usr/bin:/bin"};
  for (const char* name : passedOn) {
    if (const char* value = ::getenv(name)) {
      environment.push_back(std::string(name) + '=' + value);
    }
  }
  return environment;
}

system::Failure unstarted(const system::Failure& failure) {
  return {"The update engine could not be started: " + failure.message + ". Try again."};
}

}  // namespace

/// One start of it.
class EngineProcess::Run final : public Engine::Job {
 public:
  Run(EngineProcess& engine, system::Descriptor reading, system::Process process, Listener listener)
      : engine_(engine),
        reading_(std::move(reading)),
        process_(std::move(process)),
        listener_(std::make_shared<Listener>(std::move(listener))) {
    watch_ = engine_.watch_(reading_.number(), [this] { read(); });
  }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;
  ~Run() override { stop(); }

 private:
  void read() {
    std::array<char, 65536> bytes = {};
    const ssize_t count = ::read(reading_.number(), bytes.data(), bytes.size());
    if (count <= 0) {
      return end(outcome());
    }
    const std::weak_ptr<int> life = life_;
    const bool isUnderstood =
        messages_.take({bytes.data(), static_cast<std::size_t>(count)},
                       [this, &life](const release::Message& message) { return take(message) && !life.expired(); });
    if (!life.expired() && !isUnderstood) {
      end(refusal_.value_or(system::Failure{"The update engine said something that makes no sense. Try again."}));
    }
  }

  bool take(const release::Message& message) {
    if (!isKnown_) {
      isKnown_ = message.word == release::engineWord && message.text == release::engineVersion;
      if (!isKnown_) {
        refusal_ = system::Failure{"The update engine does not belong to the version that runs. Quit " TARNWELL_NAME
                                   " and start it again."};
      }
      return isKnown_;
    }
    // Nothing comes behind the last word.
    if (outcome_) {
      return false;
    }
    if (message.word == release::unfencedWord && ++unfenced_ <= mostUnfenced) {
      release::report(system::Failure{message.text});
    } else if (message.word == release::doneWord) {
      outcome_ = system::Result<void>();
    } else if (message.word == release::failedWord) {
      outcome_ = system::Failure{release::plainLine(message.text, longestSentence)};
    } else {
      // It may end this object.
      const auto listener = listener_;
      return listener->said(message);
    }
    return true;
  }

  system::Result<void> outcome() const {
    return outcome_ && messages_.isAtLineEnd()
               ? *outcome_
               : system::Failure{"The work on the update was interrupted before it was done. Try again."};
  }

  void end(const system::Result<void>& result) {
    const auto ended = std::move(listener_->ended);
    stop();
    ended(result);
  }

  void stop() {
    if (reading_) {
      watch_ = {};
      reading_.close();
      process_.sendToSession(SIGKILL);
      engine_.ended_.watch(std::move(process_));
    }
  }

  EngineProcess& engine_;
  system::Descriptor reading_;
  system::Process process_;
  std::shared_ptr<Listener> listener_;
  kit::Subscription watch_;
  std::shared_ptr<int> life_ = std::make_shared<int>();
  release::MessageReader messages_;
  bool isKnown_ = false;
  int unfenced_ = 0;
  std::optional<system::Failure> refusal_;
  std::optional<system::Result<void>> outcome_;
};

EngineProcess::EngineProcess(std::filesystem::path program, Watch watch)
    : program_(std::move(program)), watch_(std::move(watch)) {
  reaping_ = watch_(ended_.descriptor(), [this] { ended_.reap(); });
}

system::Result<std::unique_ptr<Engine::Job>> EngineProcess::start(const Order& order, Listener listener) {
  system::Pipe pipe = system::Pipe::create("start the update engine");
  const system::Descriptor nothing(::open("/dev/null", O_WRONLY | O_CLOEXEC));
  std::vector<std::string> words = {program_.string()};
  words.insert(words.end(), order.words.begin(), order.words.end());
  // What it prints beside its lines could be a stranger's words to the user's terminal.
  auto process = system::Process::start({.words = std::move(words),
                                         .environment = engineEnvironment(),
                                         .input = order.input,
                                         .output = pipe.writeEnd.number(),
                                         .errors = nothing.number(),
                                         .extra = order.folder,
                                         .hasOwnSession = true,
                                         .endsWithStarter = true});
  if (!process) {
    return unstarted(process.error());
  }
  return std::make_unique<Run>(*this, std::move(pipe.readEnd), *std::move(process), std::move(listener));
}

}  // namespace tarnwell::updateclient
