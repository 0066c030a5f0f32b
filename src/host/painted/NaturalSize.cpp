#include "host/painted/NaturalSize.h"

#include <algorithm>

#include "host/painted/ControlMetrics.h"
#include "host/painted/TabGeometry.h"
#include "kit/controls/buttons/Button.h"
#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/ranges/ProgressBar.h"
#include "kit/controls/text/RichText.h"
#include "kit/controls/text/SymbolView.h"
#include "kit/controls/text/TextField.h"
#include "kit/controls/text/TextLabel.h"

namespace tarnwell::host_painted {
namespace {

// Lines up with a text beside it by the middle of its capital letters.
kit::Measurement centredOnText(kit::Size size, const TextMeasurer& text) {
  return {.size = size, .firstBaseline = (size.height + text.capHeight(kit::FontRole::body)) / 2};
}

double widthOf(const std::string& title, const TextMeasurer& text) {
  return text.measureText(title, kit::FontRole::body, std::nullopt).size.width;
}

double heightAround(const TextMeasurer& text, double least, double padding) {
  return std::max(least, text.lineHeight(kit::FontRole::body) + 2 * padding);
}

}  // namespace

kit::Measurement naturalSize(const kit::Button& button, const TextMeasurer& text, kit::Proposal /*proposal*/) {
  if (button.bezelStyle() == kit::Button::BezelStyle::help) {
    return centredOnText({.width = metrics::helpButtonSide, .height = metrics::helpButtonSide}, text);
  }
  const double width = std::max(metrics::buttonLeastWidth, widthOf(button.title(), text) + 2 * metrics::buttonInset);
  const double height = heightAround(text, metrics::buttonHeight, metrics::buttonPadding);
  return centredOnText({.width = width, .height = height}, text);
}

kit::Measurement naturalSize(const kit::PopUpButton& button, const TextMeasurer& text, kit::Proposal /*proposal*/) {
  double widest = 0;
  for (const auto& item : button.items()) {
    const double symbol = item.symbol.empty() ? 0 : metrics::popUpGap + metrics::popUpSymbolSide;
    widest = std::max(widest, widthOf(item.title, text) + symbol);
  }
  const double width = 2 * metrics::popUpInset + widest + metrics::popUpArrowWidth;
  const double height = heightAround(text, metrics::buttonHeight, metrics::buttonPadding);
  return centredOnText({.width = width, .height = height}, text);
}

kit::Measurement naturalSize(const kit::ProgressBar& /*bar*/, const TextMeasurer& text, kit::Proposal proposal) {
  const double width = proposal.width.value_or(metrics::progressBar.width);
  return centredOnText({.width = width, .height = metrics::progressBar.height}, text);
}

kit::Measurement naturalSize(const kit::Slider& /*slider*/, const TextMeasurer& text, kit::Proposal proposal) {
  const double width = std::max(metrics::sliderLeastWidth, proposal.width.value_or(metrics::slider.width));
  return centredOnText({.width = width, .height = metrics::slider.height}, text);
}

kit::Measurement naturalSize(const kit::Stepper& /*stepper*/, const TextMeasurer& text, kit::Proposal /*proposal*/) {
  return centredOnText(metrics::stepper, text);
}

kit::Measurement naturalSize(const kit::SymbolView& symbol, const TextMeasurer& text, kit::Proposal /*proposal*/) {
  return centredOnText({.width = symbol.side(), .height = symbol.side()}, text);
}

kit::Measurement naturalSize(const kit::TabBar& bar, const TextMeasurer& text, kit::Proposal proposal) {
  const double title = metrics::tabTitleTop + text.lineHeight(kit::FontRole::subheadline) + metrics::tabTitleBelow;
  const double height = std::max(metrics::tab.height, title);
  const double all = tabWidth(height) * static_cast<double>(bar.items().size());
  return {.size = {.width = proposal.width.value_or(all), .height = height + 2 * metrics::tabBarInset}};
}

kit::Measurement naturalSize(const kit::TextField& /*field*/, const TextMeasurer& text, kit::Proposal proposal) {
  const double height = heightAround(text, metrics::fieldHeight, metrics::fieldPadding);
  return centredOnText({.width = proposal.width.value_or(metrics::fieldIdealWidth), .height = height}, text);
}

kit::Measurement naturalSize(const kit::RichText& text, const TextMeasurer& measurer, kit::Proposal proposal) {
  const double width = proposal.width.value_or(metrics::richTextIdealWidth);
  double height = 2 * metrics::richTextInset;
  for (const auto& paragraph : text.text().paragraphs) {
    height +=
        measurer
            .measureText(kit::RichText::plainText(paragraph), kit::FontRole::body, width - 2 * metrics::richTextInset)
            .size.height;
  }
  return {.size = {.width = width, .height = height}, .firstBaseline = metrics::richTextInset};
}

kit::Measurement naturalSize(const kit::TextLabel& label, const TextMeasurer& text, kit::Proposal proposal) {
  return text.measureText(label.text(), label.style().font, proposal.width);
}

kit::Measurement naturalSize(const kit::Toggle& toggle, const TextMeasurer& text, kit::Proposal /*proposal*/) {
  if (toggle.style() == kit::Toggle::Style::checkBox) {
    const double width = metrics::checkBoxSide + metrics::checkBoxGap + widthOf(toggle.title(), text);
    return centredOnText({.width = width, .height = heightAround(text, metrics::checkBoxSide, 0)}, text);
  }
  return centredOnText(metrics::toggle, text);
}

}  // namespace tarnwell::host_painted
