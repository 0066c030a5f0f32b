#include <benchmark/benchmark.h>

#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "QuietOutput.h"
#include "core/CommandRunner.h"
#include "dockscreen/CommandRunnerKey.h"
#include "dockscreen/ContentView.h"
#include "host/headless/HeadlessHost.h"
#include "host/headless/PointNumberFormat.h"
#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/text/TextField.h"
#include "kit/turn/Turn.h"
#include "view/controls/buttons/Toggle.h"
#include "view/controls/containers/Form.h"
#include "view/controls/containers/LabeledRow.h"
#include "view/controls/containers/Section.h"
#include "view/controls/text/Label.h"
#include "view/controls/text/Text.h"
#include "view/scenes/HostedWindow.h"
#include "view/state/State.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::bench {
namespace {

using view::View;

/// Answers at once, as a Dock at its defaults would.
class InstantRunner final : public core::CommandRunner {
 public:
  void runDetached(const std::string& /*commandLine*/) override {}
  std::string runCaptured(const std::string& commandLine) override {
    return commandLine.ends_with("mineffect") ? "genie\n" : "0.5\n";
  }
};

/// A view in an open window of the platform in memory.
class Scene {
 public:
  explicit Scene(const View& content) {
    const auto environment = view::EnvironmentValues()
                                 .with<dockscreen::CommandRunnerKey>(&runner_)
                                 .with<view::NumberFormatKey>(std::make_shared<host_headless::PointNumberFormat>())
                                 .with<view::ProductKey>({.webHost = "tarnwell.example"});
    window_ = std::make_unique<view::HostedWindow>(
        turn_, host_, view::HostedWindow::Content{.identifier = "bench", .view = content, .environment = environment});
    window_->open();
    host_.journal().clear();
  }

  template <class C>
  C& first() const {
    for (kit::Control* control : window_->tree().controls()) {
      if (auto* found = dynamic_cast<C*>(control)) {
        return *found;
      }
    }
    std::abort();
  }

  void forgetJournal() { host_.journal().clear(); }

 private:
  InstantRunner runner_;
  host_headless::HeadlessHost host_;
  kit::Turn turn_;
  std::unique_ptr<view::HostedWindow> window_;
};

/// The processor's time: what else the machine does meanwhile does not count.
double secondsSpent() {
  timespec time{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// Times mounting and opening, but not what comes before and after.
void timeMounting(benchmark::State& state, const View& content) {
  for ([[maybe_unused]] auto _ : state) {
    const double start = secondsSpent();
    const Scene scene(content);
    state.SetIterationTime(secondsSpent() - start);
  }
}

View dockTab() { return View(dockscreen::ContentView{}).frame({.width = 600}).frame({.maxHeight = 700}).fixedSize(); }

void mountDockTab(benchmark::State& state) { timeMounting(state, dockTab()); }
BENCHMARK(mountDockTab)->UseManualTime()->Unit(benchmark::kMicrosecond);

void commitInDockTab(benchmark::State& state) {
  Scene scene(dockTab());
  auto& field = scene.first<kit::TextField>();
  bool odd = false;
  for ([[maybe_unused]] auto _ : state) {
    odd = !odd;
    field.type(odd ? "0.3" : "0.4");
    field.commit();
    scene.forgetJournal();
  }
}
BENCHMARK(commitInDockTab)->Unit(benchmark::kMicrosecond);

/// Switches that are all made anew when one of them turns.
template <class MakeRow>
struct Switches {
  int count = 0;
  MakeRow makeRow = {};
  view::State<bool> isFirstOn = false;

  auto stored() { return std::tie(isFirstOn); }
  View body() const {
    std::vector<View> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      rows.push_back(makeRow(i == 0 ? isFirstOn.binding() : view::Binding<bool>{.get = [] { return true; }}));
    }
    return view::Form{.sections = {view::Section{.rows = std::move(rows)}}};
  }
};

struct BareRow {
  View operator()(view::Binding<bool> isOn) const { return view::Toggle{.title = "switch", .isOn = std::move(isOn)}; }
};

View fullRow(const std::string& title, view::Binding<bool> isOn) {
  return view::LabeledRow{.label = view::Label{.title = title, .symbol = "eye.slash"},
                          .title = "Dim hidden apps",
                          .description = view::Text{"Shows an app was hidden by dimming the icon in the dock."},
                          .control = BareRow{}(std::move(isOn))};
}

struct FullRow {
  View operator()(view::Binding<bool> isOn) const { return fullRow("Dim hidden apps", std::move(isOn)); }
};

/// Another title is another layout.
struct GrowingRow {
  View operator()(view::Binding<bool> isOn) const {
    const std::string title = isOn.get() ? "Dim hidden apps" : "Dim";
    return fullRow(title, std::move(isOn));
  }
};

template <class MakeRow>
View form(const benchmark::State& state) {
  return View(Switches<MakeRow>{.count = static_cast<int>(state.range(0))})
      .frame({.width = 600})
      .frame({.maxHeight = 700});
}

template <class MakeRow>
void mountForm(benchmark::State& state) {
  timeMounting(state, form<MakeRow>(state));
  state.SetComplexityN(state.range(0));
}

template <class MakeRow>
void turnSwitchInForm(benchmark::State& state) {
  Scene scene(form<MakeRow>(state));
  auto& toggle = scene.first<kit::Toggle>();
  for ([[maybe_unused]] auto _ : state) {
    toggle.press();
    scene.forgetJournal();
  }
  state.SetComplexityN(state.range(0));
}

void tenToAThousand(benchmark::internal::Benchmark* each) {
  each->RangeMultiplier(10)->Range(10, 1000)->Unit(benchmark::kMicrosecond)->Complexity(benchmark::oN);
}

BENCHMARK_TEMPLATE(mountForm, BareRow)->Apply(tenToAThousand)->UseManualTime();
BENCHMARK_TEMPLATE(turnSwitchInForm, BareRow)->Apply(tenToAThousand);
BENCHMARK_TEMPLATE(mountForm, FullRow)->Apply(tenToAThousand)->UseManualTime();
BENCHMARK_TEMPLATE(turnSwitchInForm, FullRow)->Apply(tenToAThousand);
BENCHMARK_TEMPLATE(turnSwitchInForm, GrowingRow)->Apply(tenToAThousand);

}  // namespace
}  // namespace tarnwell::bench

int main(int argc, char** argv) {
  const tarnwell::bench::QuietOutput quiet;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
