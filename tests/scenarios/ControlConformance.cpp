#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "kit/control/Window.h"
#include "kit/controls/text/TextField.h"
#include "kit/host/Host.h"
#include "scenarios/ControlFacts.h"
#include "scenarios/Driver.h"

namespace tarnwell::scenarios {
namespace {

using Lines = std::vector<std::string>;

std::set<kit::AccessibleAction> setOf(const std::vector<kit::AccessibleAction>& actions) {
  return {actions.begin(), actions.end()};
}

std::vector<kit::AccessiblePart> chosen(std::vector<kit::AccessiblePart> parts, int selected) {
  for (auto& part : parts) {
    part.selected = selected-- == 0;
  }
  return parts;
}

std::optional<kit::AccessibleRange> withoutStep(std::optional<kit::AccessibleRange> range) {
  if (range) {
    range->step = 0;
  }
  return range;
}

/// A control in a window of the host's, above a text field.
class ControlConformance : public testing::TestWithParam<ControlFacts> {
 protected:
  ControlConformance() {
    window_.setContentSize({.width = 400, .height = 200});
    window_.attach(driver_->host().peer(window_));
    field_.setAction([this](const std::string& text) { heard_.push_back("typed " + text); });
    show();
    window_.setVisible(true);
  }

  ~ControlConformance() override {
    window_.setControls({});
    control_.reset();
  }

  const ControlFacts& facts() const { return GetParam(); }
  kit::Control& control() { return *control_; }
  Driver& driver() { return *driver_; }
  kit::TextField& field() { return field_; }
  Lines heard() { return std::exchange(heard_, {}); }
  Lines heardAfter(const kit::AccessibleRequest& request) {
    driver_->perform(*control_, request);
    return heard();
  }

  /// A new control in the place of the last.
  void show() {
    window_.setControls({});
    control_ = facts().make([this](const std::string& what) { heard_.push_back(what); });
    put(*control_, {.x = 20, .y = 20, .width = 300, .height = 60});
    put(field_, {.x = 20, .y = 100, .width = 100, .height = 24});
    window_.setControls({control_.get(), &field_});
  }

 private:
  void put(kit::Control& control, const kit::Rect& frame) {
    control.setFrame(frame);
    control.attach(control.makePeer(driver_->host(), *window_.peer()));
  }

  std::unique_ptr<Driver> driver_ = makeDriver();
  kit::Window window_ = kit::Window("conformance", "Conformance");
  kit::TextField field_;
  std::unique_ptr<kit::Control> control_;
  Lines heard_;
};

TEST_P(ControlConformance, controlIsSeenAsWhatItIs) {
  const kit::Accessible seen = driver().look(control());
  EXPECT_EQ(seen.role, facts().seen.role);
  EXPECT_EQ(seen.name, facts().seen.name);
  EXPECT_EQ(seen.value, facts().seen.value);
  EXPECT_EQ(seen.range, driver().tellsSteps() ? facts().seen.range : withoutStep(facts().seen.range));
  EXPECT_EQ(setOf(seen.actions), setOf(facts().seen.actions));
  EXPECT_EQ(seen.isDefault, facts().seen.isDefault);
  EXPECT_TRUE(seen.isEnabled);
  EXPECT_EQ(driver().parts(control()), facts().parts);
}

TEST_P(ControlConformance, roleFollowsTheNameAsOftenAsItComesAndGoes) {
  for (const char* name : {"Given", "", "Again"}) {
    control().setAccessibleName(name);
    EXPECT_EQ(driver().look(control()).role, control().accessible().role) << name;
  }
}

TEST_P(ControlConformance, everyActionDoesWhatItSays) {
  std::set<kit::AccessibleAction> done;
  for (const ControlDeed& deed : facts().deeds) {
    show();
    EXPECT_EQ(heardAfter(deed.request), deed.heard);
    EXPECT_EQ(driver().look(control()).value, deed.value);
    EXPECT_EQ(driver().parts(control()), chosen(facts().parts, deed.selected));
    done.insert(deed.request.action);
  }
  EXPECT_EQ(done, setOf(facts().seen.actions));
}

TEST_P(ControlConformance, everyActionCommitsFirstWhatIsBeingTypedElsewhere) {
  for (const ControlDeed& deed : facts().deeds) {
    show();
    field().type("7");
    Lines expected = deed.heard;
    expected.insert(expected.begin(), "typed 7");
    EXPECT_EQ(heardAfter(deed.request), expected);
  }
}

TEST_P(ControlConformance, disabledControlSaysSoAndDoesNothing) {
  control().setEnabled(false);
  EXPECT_FALSE(driver().look(control()).isEnabled);
  for (const ControlDeed& deed : facts().deeds) {
    EXPECT_EQ(heardAfter(deed.request), Lines());
  }
  EXPECT_EQ(driver().look(control()).value, facts().seen.value);
}

INSTANTIATE_TEST_SUITE_P(Controls, ControlConformance, testing::ValuesIn(controlFacts()),
                         [](const auto& facts) { return facts.param.name; });

class NamedControlConformance : public ControlConformance {};

TEST_P(NamedControlConformance, controlGoesByTheNameThatItIsGiven) {
  control().setAccessibleName("Given");
  EXPECT_EQ(driver().look(control()).name, "Given");
}

std::vector<ControlFacts> factsOfNamed() {
  std::vector<ControlFacts> named = controlFacts();
  std::erase_if(named, [](const ControlFacts& facts) { return !facts.takesName; });
  return named;
}

INSTANTIATE_TEST_SUITE_P(Controls, NamedControlConformance, testing::ValuesIn(factsOfNamed()),
                         [](const auto& facts) { return facts.param.name; });

}  // namespace
}  // namespace tarnwell::scenarios
