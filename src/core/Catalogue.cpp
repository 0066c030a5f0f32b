#include "core/Catalogue.h"

#include "core/DecimalText.h"
#include "core/ValueText.h"
#include "diagnostics/Console.h"

namespace tarnwell::core {
namespace {

constexpr std::string_view restartAlways = "; killall Dock";
constexpr std::string_view restartOnSuccess = " && killall Dock";

}  // namespace

void Catalogue::writeFloat(std::string_view prefix, double value) const {
  write(prefix, decimalText(value), restartAlways);
}

void Catalogue::writeBool(std::string_view prefix, bool value) const { write(prefix, boolText(value), restartAlways); }

void Catalogue::writeSingleApp(bool value) const {
  writeBool("defaults write com.apple.dock single-app -bool ", value);
}

void Catalogue::writeMinEffect(MinEffect value) const {
  write("defaults write com.apple.dock mineffect -string ", text(value), restartOnSuccess);
}

void Catalogue::write(std::string_view prefix, std::string_view value, std::string_view suffix) const {
  runner_.runDetached(std::string(prefix).append(value).append(suffix));
}

std::string Catalogue::read(std::string_view key) const {
  return withoutLineFeeds(runner_.runCaptured(std::string("defaults read com.apple.dock ").append(key)));
}

std::string Catalogue::readAndPrint(std::string_view key, const std::string& label) const {
  std::string answer = read(key);
  diagnostics::printLine(label + answer);
  return answer;
}

}  // namespace tarnwell::core
