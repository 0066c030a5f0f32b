#include <benchmark/benchmark.h>
#include <sys/wait.h>

#include <QCoreApplication>
#include <QProcess>
#include <cerrno>
#include <chrono>
#include <string>
#include <vector>

#include "PlainChild.h"
#include "core/ShellCommandRunner.h"

// The captured runs are to cost what a run written by hand costs, and less than the alternatives at hand. The detached
// starts are to give control back about as soon as a bare launch does, in a large process too.

namespace tarnwell::bench {
namespace {

const std::string capturedCommand = "print 0.2";
const std::string detachedCommand = ":";
constexpr int startsOfASave = 7;

core::ShellCommandRunner& sharedRunner() {
  static core::ShellCommandRunner runner;
  return runner;
}

/// Reaps until no child is left, as the host's loop does in between.
void settleRunner() {
  siginfo_t info = {};
  while (::waitid(P_ALL, 0, &info, WEXITED | WNOWAIT) == 0) {
    sharedRunner().reap();
  }
}

void waitForAllChildren() {
  siginfo_t info = {};
  while (::waitid(P_ALL, 0, &info, WEXITED) == 0 || errno != ECHILD) {
  }
}

/// Times what the caller waits for. What is left of children afterwards goes before the next round.
template <class Call, class Settle>
void timeCalls(benchmark::State& state, Call call, Settle settle) {
  for (auto _ : state) {
    const auto begin = std::chrono::steady_clock::now();
    call();
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
    state.SetIterationTime(elapsed.count());
    settle();
  }
}

void capturedByRunner(benchmark::State& state) {
  const auto call = [] { benchmark::DoNotOptimize(sharedRunner().runCaptured(capturedCommand)); };
  timeCalls(state, call, settleRunner);
}

void capturedByHand(benchmark::State& state) {
  const auto call = [] { benchmark::DoNotOptimize(captureByHand(capturedCommand)); };
  timeCalls(state, call, waitForAllChildren);
}

void capturedByPopen(benchmark::State& state) {
  const auto call = [] { benchmark::DoNotOptimize(captureByPopen(capturedCommand)); };
  timeCalls(state, call, waitForAllChildren);
}

void capturedByQProcess(benchmark::State& state) {
  const QStringList arguments = {"-c", QString::fromStdString(capturedCommand)};
  const auto call = [&] {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start("/bin/zsh", arguments);
    process.waitForFinished(-1);
    benchmark::DoNotOptimize(process.readAllStandardOutput());
  };
  timeCalls(state, call, waitForAllChildren);
}

/// Memory that is resident because every page of it was written.
std::vector<char> resident(const benchmark::State& state) {
  std::vector<char> memory(static_cast<std::size_t>(state.range(0)) * 1024 * 1024, 'x');
  return memory;
}

void detachedByRunner(benchmark::State& state) {
  const std::vector<char> memory = resident(state);
  benchmark::DoNotOptimize(memory.data());
  const auto save = [] {
    for (int count = 0; count < startsOfASave; ++count) {
      sharedRunner().runDetached(detachedCommand);
    }
  };
  timeCalls(state, save, settleRunner);
}

void detachedBare(benchmark::State& state) {
  const std::vector<char> memory = resident(state);
  benchmark::DoNotOptimize(memory.data());
  const auto save = [] {
    for (int count = 0; count < startsOfASave; ++count) {
      spawnPlainly(detachedCommand);
    }
  };
  timeCalls(state, save, waitForAllChildren);
}

BENCHMARK(capturedByHand)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(capturedByRunner)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(capturedByPopen)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(capturedByQProcess)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(detachedBare)->ArgName("residentMB")->Arg(0)->Arg(300)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(detachedByRunner)->ArgName("residentMB")->Arg(0)->Arg(300)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tarnwell::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
