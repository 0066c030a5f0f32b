#include "host/qt/tray/StatusIcon.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QTimer>
#include <QtDBus/QDBusObjectPath>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

#include "host/qt/Desktop.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/tray/FakePanel.h"

namespace tarnwell::host_qt {
namespace {

using testing::ElementsAre;

class StatusIconTest : public testing::Test {
 protected:
  StatusIconTest() : menu_(std::make_shared<kit::Menu>()) {
    menu_->setItems({entry("Settings...", [this] { chosen_ += "settings "; }, {.key = ","}),
                     kit::MenuItem::separatorItem(), check_,
                     entry("Quit Tarnwell", [this] { chosen_ += "quit "; }, {.key = "Q"})});
    item_ = std::make_unique<kit::StatusItem>(desktop_.application(), kit::StatusItem::variableLength, "Utility App");
    item_->button()->setImage({.symbol = "dock.rectangle", .accessibilityDescription = "Utility App"});
    item_->setMenu(menu_);
  }

  Desktop desktop_;
  std::string chosen_;
  std::shared_ptr<kit::MenuItem> check_ = entry("Check_for & Updates", [] {});
  std::shared_ptr<kit::Menu> menu_;
  std::unique_ptr<kit::StatusItem> item_;
};

TEST_F(StatusIconTest, panelIsToldWhatTheIconIs) {
  const FakePanel panel;
  ASSERT_TRUE(panel.hasIcon());
  const QVariantMap icon = panel.icon();
  EXPECT_EQ(icon.value("Id").toString(), "example.tarnwell.Tarnwell");
  EXPECT_EQ(icon.value("Title").toString(), "Utility App");
  EXPECT_EQ(icon.value("Status").toString(), "Active");
  EXPECT_EQ(icon.value("Category").toString(), "ApplicationStatus");
  EXPECT_EQ(qdbus_cast<BusToolTip>(icon.value("ToolTip")).title, "Utility App");
  EXPECT_TRUE(icon.value("ItemIsMenu").toBool());
}

TEST_F(StatusIconTest, pictureIsSentInSeveralSizesMostSignificantByteFirst) {
  const FakePanel panel;
  ASSERT_TRUE(panel.hasIcon());
  const auto images = qdbus_cast<QList<BusImage>>(panel.icon().value("IconPixmap"));
  ASSERT_GE(images.size(), 3);
  for (const BusImage& image : images) {
    EXPECT_EQ(image.pixels.size(), 4 * image.width * image.height);
    // Corners are see-through, something in between is not.
    EXPECT_EQ(image.pixels.at(0), 0);
    EXPECT_TRUE(image.pixels.contains('\xff'));
  }
}

TEST_F(StatusIconTest, pictureIsDarkOnALightDesktopAndLightOnADarkOne) {
  const FakePanel panel;
  ASSERT_TRUE(panel.hasIcon());
  const auto brightest = [&panel] {
    const auto image = qdbus_cast<QList<BusImage>>(panel.icon().value("IconPixmap")).last();
    int most = 0;
    for (qsizetype i = 0; i < image.pixels.size(); i += 4) {
      // Of what can hardly be seen the colour is rounded far.
      const bool isSeen = (static_cast<unsigned char>(image.pixels.at(i)) & 0x80U) != 0;
      most = isSeen ? std::max(most, static_cast<int>(static_cast<unsigned char>(image.pixels.at(i + 1)))) : most;
    }
    return most;
  };
  Theme& theme = desktop_.platform().host().theme();
  theme.setColorScheme(ColorScheme::light);
  EXPECT_LT(brightest(), 80);
  theme.setColorScheme(ColorScheme::dark);
  EXPECT_GT(brightest(), 180);
  theme.setColorScheme(std::nullopt);
}

TEST_F(StatusIconTest, panelReadsTheMenu) {
  const FakePanel panel;
  ASSERT_TRUE(panel.hasIcon());
  EXPECT_THAT(panel.openMenu(),
              ElementsAre("Settings... [Control ,]", "-", "Check__for & Updates", "Quit Tarnwell [Control Q]"));
}

TEST_F(StatusIconTest, menuIsMadeByAnEventWhenThePanelOpensIt) {
  const FakePanel panel;
  ASSERT_TRUE(panel.hasIcon());
  menu_->setOpenAction([this] {
    EXPECT_TRUE(desktop_.application().turn().isPerforming());
    menu_->setItems({entry("Made now", [] {})});
  });
  EXPECT_THAT(panel.openMenu(), ElementsAre("Made now"));
}

TEST_F(StatusIconTest, entriesChosenOnThePanelAreRun) {
  const FakePanel panel;
  ASSERT_TRUE(panel.hasIcon());
  panel.choose("Quit Tarnwell");
  EXPECT_TRUE(becomes([this] { return chosen_ == "quit "; }));
}

TEST_F(StatusIconTest, panelHearsOfAnEntryThatCannotBeChosen) {
  const FakePanel panel;
  ASSERT_TRUE(panel.hasIcon());
  panel.openMenu();
  const int before = panel.menuChanges();
  check_->setEnabled(false);
  EXPECT_TRUE(becomes([&] { return panel.menuChanges() > before; }));
  EXPECT_THAT(panel.openMenu(),
              ElementsAre("Settings... [Control ,]", "-", "(Check__for & Updates)", "Quit Tarnwell [Control Q]"));
}

TEST_F(StatusIconTest, panelThatComesLaterIsTold) {
  driver::settle();
  const FakePanel panel;
  EXPECT_TRUE(panel.hasIcon());
}

TEST_F(StatusIconTest, panelThatComesBackIsToldAgain) {
  {
    const FakePanel panel;
    ASSERT_TRUE(panel.hasIcon());
  }
  const FakePanel again;
  ASSERT_TRUE(again.hasIcon());
  EXPECT_THAT(again.openMenu(),
              ElementsAre("Settings... [Control ,]", "-", "Check__for & Updates", "Quit Tarnwell [Control Q]"));
}

TEST_F(StatusIconTest, leftButtonOpensTheMenuToo) {
  const FakePanel panel;
  ASSERT_TRUE(panel.hasIcon());
  std::vector<std::string> shown;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&shown] {
    if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
      shown = linesOf(*menu);
      menu->close();
    }
  });
  watch.start(0);
  panel.press("Activate");
  EXPECT_TRUE(becomes([&shown] { return !shown.empty(); }));
  EXPECT_THAT(shown, ElementsAre("Settings...|Ctrl+,", "-", "Check_for && Updates", "Quit Tarnwell|Ctrl+Q"));
}

TEST_F(StatusIconTest, controlAndTheLetterThatIsShownChooseAnEntryOfTheOpenMenu) {
  const FakePanel panel;
  ASSERT_TRUE(panel.hasIcon());
  bool isClosedByTheKey = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    if (QWidget* menu = QApplication::activePopupWidget()) {
      watch.stop();
      QTest::keyClick(menu->windowHandle(), Qt::Key_Q, Qt::ControlModifier);
      isClosedByTheKey = !menu->isVisible();
      menu->close();
    }
  });
  watch.start(0);
  panel.press("Activate");
  EXPECT_TRUE(becomes([&isClosedByTheKey] { return isClosedByTheKey; }));
  EXPECT_EQ(chosen_, "quit ");
}

TEST_F(StatusIconTest, iconWithoutAMenuSendsItsActionForEachButton) {
  item_.reset();
  class Target final : public kit::Object {
   public:
    Target() {
      respondTo("clicked:", [this](kit::Object* /*sender*/) {
        types.push_back(kit::Application::shared().events().currentEvent()->type);
      });
    }
    std::vector<kit::Event::Type> types;
  };
  const auto target = std::make_shared<Target>();
  kit::StatusItem item(desktop_.application(), kit::StatusItem::variableLength, "Clicked");
  item.button()->setTarget(target);
  item.button()->setAction("clicked:");
  item.button()->sendActionOn(maskOf(kit::Event::Type::leftMouseUp) | maskOf(kit::Event::Type::rightMouseUp));
  const FakePanel panel;
  ASSERT_TRUE(panel.hasIcon());
  EXPECT_EQ(qdbus_cast<QDBusObjectPath>(panel.icon().value("Menu")).path(), "/NO_DBUSMENU");
  EXPECT_FALSE(panel.icon().value("ItemIsMenu").toBool());
  panel.press("Activate");
  panel.press("ContextMenu");
  EXPECT_TRUE(becomes([&target] { return target->types.size() == 2; }));
  EXPECT_THAT(target->types, ElementsAre(kit::Event::Type::leftMouseUp, kit::Event::Type::rightMouseUp));
}

TEST_F(StatusIconTest, iconGoesWithItsItem) {
  const FakePanel panel;
  ASSERT_TRUE(panel.hasIcon());
  item_.reset();
  EXPECT_TRUE(panel.icon().isEmpty());
}

}  // namespace
}  // namespace tarnwell::host_qt
