#include <gtest/gtest.h>

#include <QtWidgets/QWidget>

#include "app/NamedControl.h"
#include "host/qt/Desktop.h"
#include "host/qt/WidgetDriver.h"
#include "kit/controls/containers/Box.h"
#include "view/Counter.h"
#include "view/controls/containers/Form.h"
#include "view/controls/containers/Section.h"
#include "view/controls/text/Text.h"
#include "view/scenes/HostedWindow.h"

namespace tarnwell::scenarios {
namespace {

namespace driver = host_qt::driver;

const kit::Box& onlyBox(const view::MountedTree& tree) {
  for (const kit::Control* control : tree.controls()) {
    if (const auto* box = dynamic_cast<const kit::Box*>(control)) {
      return *box;
    }
  }
  throw std::logic_error("there is no box");
}

TEST(QtForm, aBoxThatComesLaterLiesUnderItsRow) {
  view::Binding<int> remote;
  const view::Numbered page{.make = [&remote](const view::State<int>& number) -> view::View {
    remote = number.binding();
    const std::vector<view::View> rows(static_cast<std::size_t>(number.get()), view::Text{"row"});
    return view::Form{.sections = {view::Section{.rows = rows, .footer = view::Text{"foot"}}}};
  }};
  kit::Turn turn;
  view::HostedWindow window(turn, host_qt::testApplication().host(),
                            {.identifier = "form", .view = view::View(page).frame({.width = 300})});
  window.open();
  turn.perform([&remote] { remote.set(1); });
  QWidget& box = driver::widget(onlyBox(window.tree()));
  QWidget& row = driver::widget(app::controlNamed("row", window.tree()));
  ASSERT_EQ(box.parentWidget(), row.parentWidget());
  EXPECT_TRUE(box.geometry().contains(row.geometry()));
  const QObjectList& fromTheGroundUp = box.parentWidget()->children();
  EXPECT_LT(fromTheGroundUp.indexOf(&box), fromTheGroundUp.indexOf(&row));
}

}  // namespace
}  // namespace tarnwell::scenarios
