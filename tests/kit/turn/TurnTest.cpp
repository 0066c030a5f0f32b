#include "kit/turn/Turn.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarnwell::kit {
namespace {

using Notes = std::vector<std::string>;

// Works off steps that the test gives it, and notes when it does.
class ScriptedSettler final : public Settler {
 public:
  explicit ScriptedSettler(Turn& turn, Notes& notes) : turn_(turn), notes_(notes) { turn_.join(*this); }
  ScriptedSettler(const ScriptedSettler&) = delete;
  ScriptedSettler& operator=(const ScriptedSettler&) = delete;
  ~ScriptedSettler() override { turn_.leave(*this); }

  void add(Action step) { steps_.push_back(std::move(step)); }
  void whenSettled(Action action) { settledAction_ = std::move(action); }

  bool settleStep() override {
    const auto steps = std::exchange(steps_, {});
    for (const Action& step : steps) {
      notes_.emplace_back("step");
      step();
    }
    return !steps.empty();
  }

  void settled() override {
    notes_.emplace_back("settled");
    if (const Action action = std::exchange(settledAction_, nullptr)) {
      action();
    }
  }

 private:
  Turn& turn_;
  Notes& notes_;
  std::vector<Action> steps_;
  Action settledAction_;
};

// What notes its end.
std::shared_ptr<void> makeRemoved(Notes& notes, const std::string& note) {
  return {nullptr, [&notes, note](void*) { notes.push_back(note); }};
}

class TurnTest : public testing::Test {
 protected:
  void note(const std::string& text) { notes.push_back(text); }

  Notes notes = {};
  Turn turn;
  ScriptedSettler settler = ScriptedSettler(turn, notes);
};

TEST_F(TurnTest, settlesOnceAtTheEndOfTheOutermostPerform) {
  turn.perform([this] {
    settler.add([] {});
    turn.perform([this] { note("inner"); });
    note("outer");
  });
  EXPECT_EQ(notes, (Notes{"inner", "outer", "step", "settled"}));
}

TEST_F(TurnTest, nothingIsSaidOfWhatRests) {
  testing::internal::CaptureStderr();
  turn.perform([] {});
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(TurnTest, stepsMakeFurtherSteps) {
  settler.add([this] { settler.add([this] { settler.add([] {}); }); });
  turn.perform([] {});
  EXPECT_EQ(notes, (Notes{"step", "step", "step", "settled"}));
}

TEST_F(TurnTest, everySettlerRestsBeforeAnyIsTold) {
  ScriptedSettler second(turn, notes);
  second.add([this] { settler.add([] {}); });
  turn.perform([] {});
  EXPECT_EQ(notes, (Notes{"step", "step", "settled", "settled"}));
}

TEST_F(TurnTest, aPerformWithinAStepSettlesWithIt) {
  settler.add([this] { turn.perform([this] { settler.add([this] { note("late"); }); }); });
  turn.perform([] {});
  EXPECT_EQ(notes, (Notes{"step", "step", "late", "settled"}));
}

TEST_F(TurnTest, whatHappensWhileSettlersAreToldSettlesInTheSameTurn) {
  settler.whenSettled([this] { turn.perform([this] { settler.add([this] { note("again"); }); }); });
  turn.perform([] {});
  EXPECT_EQ(notes, (Notes{"settled", "step", "again", "settled"}));
}

TEST_F(TurnTest, aLeftSettlerIsToldNothing) {
  turn.leave(settler);
  turn.perform([] {});
  EXPECT_EQ(notes, Notes{});
  turn.join(settler);
}

TEST_F(TurnTest, aStepMayOpenAndCloseWindows) {
  auto second = std::make_unique<ScriptedSettler>(turn, notes);
  std::unique_ptr<ScriptedSettler> third;
  settler.add([&] {
    second.reset();
    third = std::make_unique<ScriptedSettler>(turn, notes);
  });
  turn.perform([] {});
  EXPECT_EQ(notes, (Notes{"step", "settled", "settled"}));
}

TEST_F(TurnTest, theActionMayReleaseItsOriginal) {
  Action action;
  action = [this, &action, text = std::string("kept, though its original is gone")] {
    action = nullptr;
    note(text);
  };
  turn.perform(action);
  EXPECT_EQ(notes.front(), "kept, though its original is gone");
}

TEST_F(TurnTest, whatWasRemovedStaysUntilTheOutermostPerformEnds) {
  turn.perform([this] {
    turn.perform([this] { turn.releaseLater(makeRemoved(notes, "freed")); });
    note("still running");
  });
  EXPECT_EQ(notes, (Notes{"still running", "settled", "freed"}));
}

TEST_F(TurnTest, whatIsRemovedOutsideOfAnEventGoesAtOnce) {
  turn.releaseLater(makeRemoved(notes, "freed"));
  EXPECT_EQ(notes, Notes{"freed"});
}

TEST_F(TurnTest, whatGoesMayRemoveMore) {
  turn.perform([this] {
    turn.releaseLater({nullptr, [this](void*) {
                         note("first");
                         turn.releaseLater(makeRemoved(notes, "second"));
                       }});
  });
  EXPECT_EQ(notes, (Notes{"settled", "first", "second"}));
}

TEST_F(TurnTest, aNestedLoopSettlesFirstAndThenAfterEachOfItsEvents) {
  turn.perform([this] {
    settler.add([] {});
    turn.nestedLoop([this] {
      note("loop");
      turn.perform([this] {
        note("event");
        turn.perform([this] { settler.add([] {}); });
      });
      turn.perform([this] { note("event"); });
      note("loop ends");
    });
    note("after");
  });
  EXPECT_EQ(notes, (Notes{"step", "settled", "loop", "event", "step", "settled", "event", "settled", "loop ends",
                          "after", "settled"}));
}

TEST_F(TurnTest, aNestedLoopFreesNothingThatWasRemoved) {
  turn.perform([this] {
    turn.nestedLoop([this] {
      turn.perform([this] { turn.releaseLater(makeRemoved(notes, "freed")); });
      turn.perform([this] { note("second event"); });
    });
    note("after");
  });
  EXPECT_EQ(notes, (Notes{"settled", "settled", "second event", "settled", "after", "settled", "freed"}));
}

TEST_F(TurnTest, loopsNest) {
  turn.perform([this] {
    turn.nestedLoop([this] {
      turn.perform([this] {
        turn.nestedLoop([this] { turn.perform([this] { note("innermost"); }); });
        note("inner");
      });
    });
  });
  EXPECT_EQ(notes, (Notes{"settled", "settled", "innermost", "settled", "inner", "settled", "settled"}));
}

TEST_F(TurnTest, performsWhileAnEventIsUnderWayAndNotBetweenTheEventsOfANestedLoop) {
  EXPECT_FALSE(turn.isPerforming());
  turn.perform([this] {
    EXPECT_TRUE(turn.isPerforming());
    turn.nestedLoop([this] {
      EXPECT_FALSE(turn.isPerforming());
      turn.perform([this] { EXPECT_TRUE(turn.isPerforming()); });
    });
    EXPECT_TRUE(turn.isPerforming());
  });
  EXPECT_FALSE(turn.isPerforming());
}

TEST_F(TurnTest, whatNeverSettlesEndsWithOneLine) {
  int steps = 0;
  Action again = [&] {
    ++steps;
    settler.add(again);
  };
  settler.add(again);
  testing::internal::CaptureStderr();
  turn.perform([] {});
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "tarnwell: the views did not settle; showing them as they are\n");
  EXPECT_EQ(steps, 100);
  EXPECT_EQ(notes.back(), "settled");
}

using TurnDeathTest = TurnTest;

TEST_F(TurnDeathTest, aNestedLoopWhileSettlingIsAFault) {
  settler.add([this] { turn.nestedLoop([] {}); });
  EXPECT_DEATH(turn.perform([] {}), "tarnwell: a nested loop was started while the views were settling");
}

}  // namespace
}  // namespace tarnwell::kit
