#pragma once

#include "host/painted/TextMeasurer.h"
#include "kit/host/AnyControl.h"

namespace tarnwell::host_painted {

// What a painted control takes of a proposal.

kit::Measurement naturalSize(const kit::Button& button, const TextMeasurer& text, kit::Proposal proposal);
/// As wide as the widest item, so that choosing another moves nothing.
kit::Measurement naturalSize(const kit::PopUpButton& button, const TextMeasurer& text, kit::Proposal proposal);
kit::Measurement naturalSize(const kit::ProgressBar& bar, const TextMeasurer& text, kit::Proposal proposal);
kit::Measurement naturalSize(const kit::Slider& slider, const TextMeasurer& text, kit::Proposal proposal);
kit::Measurement naturalSize(const kit::Stepper& stepper, const TextMeasurer& text, kit::Proposal proposal);
kit::Measurement naturalSize(const kit::SymbolView& symbol, const TextMeasurer& text, kit::Proposal proposal);
kit::Measurement naturalSize(const kit::TabBar& bar, const TextMeasurer& text, kit::Proposal proposal);
kit::Measurement naturalSize(const kit::TextField& field, const TextMeasurer& text, kit::Proposal proposal);
kit::Measurement naturalSize(const kit::RichText& text, const TextMeasurer& measurer, kit::Proposal proposal);
kit::Measurement naturalSize(const kit::TextLabel& label, const TextMeasurer& text, kit::Proposal proposal);
kit::Measurement naturalSize(const kit::Toggle& toggle, const TextMeasurer& text, kit::Proposal proposal);

}  // namespace tarnwell::host_painted
