#include "view/Recipe.h"

#include <string>

#include "view/controls/buttons/Button.h"
#include "view/controls/buttons/Toggle.h"
#include "view/controls/containers/Form.h"
#include "view/controls/containers/LabeledRow.h"
#include "view/controls/containers/Section.h"
#include "view/controls/text/Label.h"
#include "view/controls/text/Text.h"
#include "view/layout/Spacer.h"
#include "view/layout/Stack.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {
namespace {

using Kind = Recipe::Kind;

constexpr int choices = 6;

// How many parts a kind has.
struct Parts {
  int least = 0;
  int most = 0;
};

Parts partsOf(Kind kind) {
  if (kind < Kind::row) {
    return {};
  }
  if (kind == Kind::background || kind == Kind::labeledRow) {
    return {2, 2};
  }
  if (kind == Kind::section) {
    return {1, 4};
  }
  return kind < Kind::frame ? Parts{0, 4} : Parts{1, 1};
}

std::string title(int choice) {
  return std::string("a text of some length").substr(0, static_cast<std::size_t>(choice) * 4);
}

kit::TextAlignment alignment(int choice) { return static_cast<kit::TextAlignment>(choice % 3); }

/// Stands between two views and changes nothing.
struct Wrapper {
  View content;
  View body() const { return content; }
};

View leaf(const Recipe& recipe) {
  const int choice = recipe.choice;
  switch (recipe.kind) {
    case Kind::text:
      return Text{title(choice)};
    case Kind::toggle:
      return Toggle{.title = title(choice / 2),
                    .isOn = {.get = [choice] { return choice % 2 == 0; }, .set = [](bool) {}}};
    case Kind::button:
      return Button{.title = title(choice),
                    .role = choice % 2 == 0 ? kit::Button::Role::none : kit::Button::Role::destructive,
                    .keyboardShortcut = choice == 3 ? KeyboardShortcut::defaultAction : KeyboardShortcut::none};
    case Kind::label:
      return Label{.title = title(choice), .symbol = choice % 2 == 0 ? "timer" : "eye"};
    case Kind::spacer:
      return Spacer{.minLength = choice * 3.0};
    default:
      return EmptyView{};
  }
}

View container(const Recipe& recipe, std::vector<View> parts) {
  const int choice = recipe.choice;
  switch (recipe.kind) {
    case Kind::row:
      return HStack{.alignment = choice % 2 == 0 ? VerticalAlignment::center : VerticalAlignment::firstTextBaseline,
                    .spacing = choice * 1.5,
                    .children = std::move(parts)};
    case Kind::column:
      return VStack{.alignment = alignment(choice), .spacing = choice * 1.5, .children = std::move(parts)};
    case Kind::section: {
      const View footer = parts.back();
      parts.pop_back();
      return Section{.rows = std::move(parts), .footer = footer};
    }
    case Kind::labeledRow:
      return LabeledRow{.label = Label{.title = title(choice), .symbol = "timer"},
                        .title = title(choice),
                        .description = parts[0],
                        .control = parts[1]};
    default:
      return Form{.sections = std::move(parts)};
  }
}

View modified(const Recipe& recipe, const std::vector<View>& parts) {
  const View& content = parts.front();
  const int choice = recipe.choice;
  switch (recipe.kind) {
    case Kind::frame:
      return choice < 4 ? content.frame({.width = 60.5 + choice * 40, .alignment = alignment(choice)})
                        : content.frame({.maxHeight = choice * 8.0});
    case Kind::fixedSize:
      return content.fixedSize();
    case Kind::background:
      return content.background(parts[1]);
    case Kind::font:
      return content.font(static_cast<kit::FontRole>(choice % 3))
          .foregroundStyle(static_cast<kit::ColorRole>(choice % 2));
    case Kind::disabled:
      return content.disabled(choice % 2 == 0);
    case Kind::iconOnly:
      return content.labelStyle(static_cast<LabelStyle>(choice % 2));
    case Kind::turned:
      return content.rotation(choice).accessibilityLabel(title(choice));
    case Kind::watched:
      return content.onChange<int>(choice, [](const int&) {}).onAppear([] {});
    default:
      return Wrapper{content};
  }
}

}  // namespace

View Recipe::view() const {
  std::vector<View> made;
  for (const Recipe& part : parts) {
    made.push_back(part.view());
  }
  if (kind < Kind::row) {
    return leaf(*this);
  }
  return kind < Kind::frame ? container(*this, std::move(made)) : modified(*this, made);
}

Recipe Cook::invent(int depth) {
  constexpr int leaves = static_cast<int>(Kind::row);
  constexpr int kinds = static_cast<int>(Kind::composite) + 1;
  Recipe recipe{.kind = static_cast<Kind>(below(depth > 0 ? kinds : leaves)), .choice = below(choices)};
  const Parts parts = partsOf(recipe.kind);
  const int count = parts.least + below(parts.most - parts.least + 1);
  for (int i = 0; i < count; ++i) {
    recipe.parts.push_back(invent(depth - 1));
  }
  return recipe;
}

void Cook::vary(Recipe& recipe, int depth) {
  if (!recipe.parts.empty() && below(8) != 0) {
    vary(recipe.parts[static_cast<std::size_t>(below(static_cast<int>(recipe.parts.size())))], depth - 1);
  } else {
    varyHere(recipe, depth);
  }
}

void Cook::varyHere(Recipe& recipe, int depth) {
  const Parts parts = partsOf(recipe.kind);
  const int count = static_cast<int>(recipe.parts.size());
  const int what = below(4);
  if (what == 0) {
    recipe.choice = below(choices);
  } else if (what == 1 && count < parts.most) {
    recipe.parts.insert(recipe.parts.begin() + below(count + 1), invent(depth - 1));
  } else if (what == 2 && count > parts.least) {
    recipe.parts.erase(recipe.parts.begin() + below(count));
  } else {
    recipe = invent(depth);
  }
}

}  // namespace tarnwell::view
