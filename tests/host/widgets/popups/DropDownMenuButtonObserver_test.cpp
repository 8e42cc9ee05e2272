#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>

#include <string>
#include <vector>

namespace {

// A menu button that writes down, at each notification, what it showed and
// whether its menu was open.
class WatchingButton : public DropDownMenuButton {
public:
  using DropDownMenuButton::DropDownMenuButton;
  void notifyPreValChanged(ValObserverBase const& value) override {
    calls.push_back("pre: showing " + std::to_string(getSelectedItem()) + (getMenuWindow() ? ", menu open" : ""));
    DropDownMenuButton::notifyPreValChanged(value);
    calls.push_back(getMenuWindow() ? "menu still open" : "menu closed");
  }
  void notifyValChanged(ValObserverBase const& value) override {
    DropDownMenuButton::notifyValChanged(value);
    calls.push_back("post: showing " + std::to_string(getSelectedItem()));
  }
  std::vector<std::string> calls;
};

struct DropDownMenuButtonObserverTest : HeadlessScreenTest {
  ValObserver<int> choice{1};
  StandardPanel* panel = nullptr;
  WatchingButton* button = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(300, 200), XY<int>(200, 400));
    std::vector<MenuItem> items{MenuItem(L"Cut"), MenuItem(L"Dissolve"), MenuItem(L"Wipe")};
    button = panel->createWidget<WatchingButton>(DropDownMenuButton::InitArgs(items, 0, XY<int>(120, 0)),
                                                 Glob::UserTopLeft(UifStd::getWidgetGap(), UifStd::getWidgetGap()));
    button->observeChoice(&choice);
  }
};

TEST_F(DropDownMenuButtonObserverTest, TheButtonShowsTheObservedChoice) {
  EXPECT_EQ(button->getSelectedItem(), 1);
  EXPECT_EQ(button->getLabel(), LightweightString<wchar_t>(L"Dissolve"));
}

TEST_F(DropDownMenuButtonObserverTest, ItIsToldBeforeAndAfterTheChoiceChanges) {
  button->openMenu();
  ASSERT_NE(button->getMenuWindow(), nullptr);
  choice.set(2);
  std::vector<std::string> const expected{"pre: showing 1, menu open", "menu closed", "post: showing 2"};
  EXPECT_EQ(button->calls, expected);
  EXPECT_EQ(button->getLabel(), LightweightString<wchar_t>(L"Wipe"));
}

TEST_F(DropDownMenuButtonObserverTest, ARowThePersonPicksBecomesTheChoice) {
  HeadlessInput::clickOn(*button);
  MenuWindow* window = button->getMenuWindow();
  ASSERT_NE(window, nullptr);
  Zo::Box<int> const row = window->rowBox(2);
  HeadlessInput::click(HeadlessInput::pointOn(*window, XY<int>((row.x0 + row.x1) / 2, (row.y0 + row.y1) / 2)));
  EXPECT_EQ(choice.get(), 2);
  EXPECT_EQ(button->getSelectedItem(), 2);
  EXPECT_EQ(button->calls.back(), "post: showing 2");
}

TEST_F(DropDownMenuButtonObserverTest, AButtonThatStoppedObservingIsToldNothing) {
  button->observeChoice(nullptr);
  choice.set(0);
  EXPECT_TRUE(button->calls.empty());
  EXPECT_EQ(button->getSelectedItem(), 1);
  EXPECT_FALSE(choice.isObservedBy(button));
}

TEST_F(DropDownMenuButtonObserverTest, AChoiceThatGoesFirstIsForgotten) {
  auto shortLived = std::make_unique<ValObserver<int>>(2);
  button->observeChoice(shortLived.get());
  shortLived.reset();
  EXPECT_EQ(button->getObservedChoice(), nullptr);
}

TEST_F(DropDownMenuButtonObserverTest, AButtonThatGoesFirstLeavesTheChoice) {
  ValObserverClient const* const asClient = button;
  panel->removeWidget(button);
  EXPECT_FALSE(choice.isObservedBy(asClient));
  choice.set(2); // nothing left to tell
  EXPECT_EQ(choice.get(), 2);
}

} // namespace
