#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "core/Catalogue.h"
#include "core/DecimalText.h"
#include "fuzz/CapturedOutput.h"
#include "fuzz/Require.h"

namespace tarnwell::fuzz {
namespace {

/// Every command prints the same text.
class Printing final : public core::CommandRunner {
 public:
  explicit Printing(std::string text) : text_(std::move(text)) {}

  void runDetached(const std::string& commandLine) override { started_ = commandLine; }
  std::string runCaptured(const std::string& /*commandLine*/) override { return text_; }

  const std::string& started() const { return started_; }

 private:
  std::string text_;
  std::string started_;
};

bool isSame(double one, double other) { return one == other || (std::isnan(one) && std::isnan(other)); }

bool isNumberCharacter(char c) { return std::string_view("0123456789.+-einfa").find(c) != std::string_view::npos; }

/// What was read goes into a command line: one that says the same, and nothing that a shell would take for more.
void checkNumber(const core::Catalogue& catalogue, const Printing& runner, double value) {
  const std::string text = core::decimalText(value);
  require(isSame(core::parseFloat(text), value) && std::all_of(text.begin(), text.end(), isNumberCharacter));
  catalogue.writeFloat("write ", value);
  require(runner.started() == "write " + text + "; killall Dock");
}

/// All seven settings are read from the text.
void run(std::string_view text) {
  Printing runner{std::string(text)};
  const core::Catalogue catalogue(runner);
  const std::string line = core::withoutLineFeeds(std::string(text));
  require(line.find('\n') == std::string::npos);

  const CapturedOutput output;
  const double animation = catalogue.readAnimationSpeed();
  const bool scroll = catalogue.readScrollToExpose();
  const core::MinEffect effect = catalogue.readMinEffect();
  require(output.text() == line + "\nSCROLL " + line + "\n" + line + "\n");

  require(isSame(animation, core::parseNumber(line).value_or(0)) && isSame(animation, catalogue.readDelaySpeed()));
  checkNumber(catalogue, runner, animation);
  for (const bool value :
       {scroll, catalogue.readShowHidden(), catalogue.readActiveAppsOnly(), catalogue.readSingleAppMode()}) {
    require(value == (line == "1"));
  }
  require(core::parseMinEffect(line).value_or(core::MinEffect::genie) == effect);
  catalogue.writeMinEffect(effect);
  require(core::parseMinEffect(core::text(effect)) == effect);
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
