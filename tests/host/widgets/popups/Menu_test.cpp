#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>
#include <zowidgets/host/widgets/popups/Menu.h>

#include <string>
#include <vector>

namespace {

class MessageLog : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override {
    messages.push_back(message.str());
    senders.push_back(sender);
    return 1;
  }
  std::vector<std::string> messages;
  std::vector<Glob*> senders;
};

std::vector<MenuItem> frameRates() {
  return {MenuItem::heading(L"Film"),  MenuItem(L"23.976"), MenuItem(L"24"),    MenuItem::separator(),
          MenuItem::heading(L"Video"), MenuItem(L"25"),     MenuItem(L"29.97"), MenuItem(L"30")};
}

struct MenuTest : HeadlessScreenTest {
  MessageLog* panel = nullptr;
  DropDownMenuButton* button = nullptr;
  std::vector<int> hooked;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    StandardPanel::InitArgs args(XY<int>(300, 200));
    args.screenPosition = XY<int>(200, 400);
    panel = new MessageLog(args);
    GlobManager::realize(panel);
    std::vector<MenuItem> items = frameRates();
    items[6].active = false; // 29.97 cannot be chosen
    button = panel->createWidget<DropDownMenuButton>(DropDownMenuButton::InitArgs(items, 2, XY<int>(120, 0)),
                                                     Glob::UserTopLeft(UifStd::getWidgetGap(), UifStd::getWidgetGap()));
    button->setSelectionHook([this](int index) { hooked.push_back(index); });
  }

  MenuWindow* openByClick() {
    HeadlessInput::clickOn(*button);
    return button->getMenuWindow();
  }
  XY<int> pointOnRow(MenuWindow const& window, int row) {
    Zo::Box<int> const box = window.rowBox(row);
    return HeadlessInput::pointOn(window, XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2));
  }
};

TEST_F(MenuTest, TheButtonShowsTheSelectedRow) {
  EXPECT_EQ(button->getSelectedItem(), 2);
  EXPECT_EQ(button->getSelectedItemNameW(), LightweightString<wchar_t>(L"24"));
  EXPECT_EQ(button->getLabel(), LightweightString<wchar_t>(L"24"));
  button->setSelectedItem(0); // a heading
  EXPECT_EQ(button->getSelectedItem(), 2);
  button->setSelectedItem(6); // inactive
  EXPECT_EQ(button->getSelectedItem(), 2);
  button->setSelectedItem(5);
  EXPECT_EQ(button->getSelectedItemNameW(), LightweightString<wchar_t>(L"25"));
  EXPECT_TRUE(hooked.empty()) << "only the user's choice calls the hook";
  EXPECT_TRUE(panel->messages.empty());
}

TEST_F(MenuTest, AClickOpensAPopupWindowBelowTheButtonWithTheKeyboardFocus) {
  MenuWindow* window = openByClick();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->parent(), nullptr);
  EXPECT_NE(window->canvas(), nullptr);
  EXPECT_EQ(GlobManager::topLevelWindows().back(), window);
  EXPECT_EQ(window->screenPosition().x, button->screenPosition().x);
  EXPECT_EQ(window->screenPosition().y + window->height(), button->screenPosition().y);
  EXPECT_GE(window->width(), button->width());
  EXPECT_EQ(get_kbd_focus(), window);
  EXPECT_EQ(window->getHighlighted(), 2);
}

TEST_F(MenuTest, NearTheScreensBottomTheMenuOpensAboveTheButtonNotOverIt) {
  // The panel's bottom edge at the screen's: no room below the button.
  panel->canvas()->move(XY<int>(200, 0));
  MenuWindow* window = openByClick();
  ASSERT_NE(window, nullptr);
  ASSERT_LT(button->screenPosition().y, window->height());
  EXPECT_EQ(window->screenPosition().y, button->screenPosition().y + button->height());
  EXPECT_EQ(window->screenPosition().x, button->screenPosition().x);
}

TEST_F(MenuTest, WithRoomOnNeitherSideTheMenuOpensBelowKeptOnTheScreen) {
  // Rows enough for about two thirds of the screen, the button near its middle.
  int const screenHeight = screenBackend().screenSize().y;
  std::vector<MenuItem> rows;
  while (MenuWindow::calcSize(Menu(rows)).y < screenHeight * 2 / 3)
    rows.emplace_back(UIString(LightweightString<wchar_t>((L"Rate " + std::to_wstring(rows.size())).c_str())));
  panel->canvas()->move(XY<int>(200, screenHeight / 2 - panel->height() / 2));
  auto* tall = panel->createWidget<DropDownMenuButton>(DropDownMenuButton::InitArgs(rows, 0, XY<int>(120, 0)),
                                                       Glob::UserTopLeft(200, UifStd::getWidgetGap()));
  HeadlessInput::clickOn(*tall);
  MenuWindow* window = tall->getMenuWindow();
  ASSERT_NE(window, nullptr);
  ASSERT_GT(window->height(), tall->screenPosition().y) << "no room below";
  ASSERT_GT(tall->screenPosition().y + tall->height() + window->height(), screenHeight) << "nor above";
  EXPECT_EQ(window->screenPosition().y, 0) << "below, pushed up to the screen's bottom edge";
  EXPECT_EQ(window->screenPosition().x, tall->screenPosition().x);
  EXPECT_LE(window->screenPosition().y + window->height(), screenHeight);
}

TEST_F(MenuTest, AnotherWindowActivatedOrAnotherProgramsCancelsTheMenu) {
  StandardPanel* other = openPanel(XY<int>(120, 80), XY<int>(900, 300));
  MenuWindow* window = openByClick();
  ASSERT_NE(window, nullptr);
  InputRouter::windowActivated(other);
  EXPECT_EQ(button->getMenuWindow(), nullptr);
  EXPECT_EQ(button->getSelectedItem(), 2) << "nothing chosen";
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));

  ASSERT_NE(openByClick(), nullptr);
  InputRouter::applicationDeactivated();
  EXPECT_EQ(button->getMenuWindow(), nullptr);
  EXPECT_TRUE(hooked.empty());
}

TEST_F(MenuTest, ArrowKeysSkipHeadingsSeparatorsAndInactiveRowsAndReturnChooses) {
  MenuWindow* window = openByClick();
  ASSERT_NE(window, nullptr);
  HeadlessInput::key(kKeyDown);
  EXPECT_EQ(window->getHighlighted(), 5);
  HeadlessInput::key(kKeyDown);
  EXPECT_EQ(window->getHighlighted(), 7);
  HeadlessInput::key(kKeyDown);
  EXPECT_EQ(window->getHighlighted(), 7) << "stops at the last row";
  HeadlessInput::key(kKeyUp);
  EXPECT_EQ(window->getHighlighted(), 5);
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(button->getSelectedItem(), 5);
  EXPECT_EQ(hooked, (std::vector<int>{5}));
  EXPECT_EQ(panel->messages, (std::vector<std::string>{DropDownMenuButton::dropDownMenuButtonMsg}));
  EXPECT_EQ(panel->senders, (std::vector<Glob*>{button}));
  EXPECT_EQ(button->getMenuWindow(), nullptr);
  EXPECT_EQ(get_kbd_focus(), button);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
}

TEST_F(MenuTest, DownOrAltDownOnTheButtonOpensTheMenuAndThenMovesInIt) {
  button->claimKbdFocus();
  HeadlessInput::key(kKeyDown, kKeyCtrl);
  EXPECT_EQ(button->getMenuWindow(), nullptr) << "Ctrl+Down is not for the button";
  HeadlessInput::key(kKeyDown);
  MenuWindow* window = button->getMenuWindow();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(get_kbd_focus(), window);
  EXPECT_EQ(window->getHighlighted(), 2);
  HeadlessInput::key(kKeyDown);
  EXPECT_EQ(button->getMenuWindow(), window) << "a second Down moves in the open menu";
  EXPECT_EQ(window->getHighlighted(), 5);
  HeadlessInput::key(kKeyEscape);
  pump();
  ASSERT_EQ(get_kbd_focus(), button);
  HeadlessInput::key(kKeyDown, kKeyAlt);
  EXPECT_NE(button->getMenuWindow(), nullptr);
  EXPECT_EQ(button->getSelectedItem(), 2) << "opening chooses nothing";
}

TEST_F(MenuTest, MovingTheHighlightRepaintsTheRowItLeft) {
  MenuWindow* window = openByClick();
  ASSERT_NE(window, nullptr);
  auto bandPixel = [&](int row) {
    Zo::Box<int> const box = window->rowBox(row);
    return rgbOf(widgetPixel(*window, XY<int>(box.x1 - UifStd::getRowHeight() / 2, (box.y0 + box.y1) / 2)));
  };
  Rgb const highlight = rgbOf(window->getPalette().selection());
  EXPECT_TRUE(near(bandPixel(2), highlight));
  HeadlessInput::key(kKeyDown);
  EXPECT_FALSE(near(bandPixel(2), highlight));
  EXPECT_TRUE(near(bandPixel(5), highlight));
}

TEST_F(MenuTest, EscapeClosesWithoutChoosing) {
  MenuWindow* window = openByClick();
  ASSERT_NE(window, nullptr);
  HeadlessInput::key(kKeyDown);
  HeadlessInput::key(kKeyEscape);
  EXPECT_EQ(button->getSelectedItem(), 2);
  EXPECT_TRUE(hooked.empty());
  EXPECT_TRUE(panel->messages.empty());
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
}

TEST_F(MenuTest, ClickingARowChoosesIt) {
  MenuWindow* window = openByClick();
  ASSERT_NE(window, nullptr);
  HeadlessInput::click(pointOnRow(*window, 7));
  EXPECT_EQ(button->getSelectedItemNameW(), LightweightString<wchar_t>(L"30"));
  EXPECT_EQ(hooked, (std::vector<int>{7}));
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
}

TEST_F(MenuTest, ClickingAHeadingOrAnInactiveRowKeepsTheMenuOpen) {
  MenuWindow* window = openByClick();
  ASSERT_NE(window, nullptr);
  HeadlessInput::click(pointOnRow(*window, 0));
  HeadlessInput::click(pointOnRow(*window, 6));
  EXPECT_EQ(button->getMenuWindow(), window);
  EXPECT_TRUE(hooked.empty());
}

TEST_F(MenuTest, HoveringMovesTheHighlight) {
  MenuWindow* window = openByClick();
  ASSERT_NE(window, nullptr);
  HeadlessInput::moveTo(pointOnRow(*window, 1));
  EXPECT_EQ(window->getHighlighted(), 1);
  HeadlessInput::moveTo(pointOnRow(*window, 4));
  EXPECT_EQ(window->getHighlighted(), -1);
}

TEST_F(MenuTest, APressOutsideClosesTheMenuAndDoesNothingElse) {
  std::vector<ButtonEvent> presses;
  button->setCallback(Broadcaster<ButtonEvent>::makeCallback([&](ButtonEvent const& e) { presses.push_back(e); }));
  MenuWindow* window = openByClick();
  ASSERT_NE(window, nullptr);
  ASSERT_EQ(presses.size(), 1u);
  HeadlessInput::clickOn(*button); // outside the menu, on the button itself
  EXPECT_EQ(button->getMenuWindow(), nullptr);
  EXPECT_EQ(presses.size(), 1u) << "the closing press does not reach the button";
  EXPECT_TRUE(hooked.empty());
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
  EXPECT_TRUE(getEventInterceptStack().empty());
}

TEST_F(MenuTest, AMenuNearTheScreenEdgeStaysOnTheScreen) {
  Menu menu(frameRates());
  XY<int> const size = MenuWindow::calcSize(menu);
  MenuWindow* window = MenuWindow::open(menu, XY<int>(1920 - size.x / 2, size.y / 2), nullptr);
  EXPECT_LE(window->screenPosition().x + window->width(), 1920);
  EXPECT_GE(window->screenPosition().y, 0);
  window->close(MenuData::Change{MenuData::Change::kCancelled, -1});
}

TEST_F(MenuTest, DestroyingTheButtonClosesItsMenu) {
  MenuWindow* window = openByClick();
  ASSERT_NE(window, nullptr);
  panel->removeWidget(button);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(window));
}

TEST_F(MenuTest, StringListsAndWidths) {
  std::vector<UIString> const strings{L"PNG", L"OpenEXR sequence", L"TIFF"};
  button->setStrings(strings, 1);
  EXPECT_EQ(button->getSelectedItemNameW(), LightweightString<wchar_t>(L"OpenEXR sequence"));
  EXPECT_EQ(button->getMenu().size(), 3);
  EXPECT_EQ(DropDownMenuButton::calcWidth(strings),
            Button::calcWidth(UIString(L"OpenEXR sequence")) + Button::getRevealIndicatorWidth());
}

TEST_F(MenuTest, ATitleMenuButtonPassesTheSelectionMessageOn) {
  auto* titled = panel->createWidget<TitleMenuButton>(
      TitleMenuButton::InitArgs(L"Rate", {MenuItem(L"24"), MenuItem(L"25")}, 0, XY<int>()), Glob::UserBottomLeft(0, 0));
  DropDownMenuButton& inner = titled->getBtn();
  EXPECT_EQ(inner.parent(), titled);
  EXPECT_EQ(inner.getX() + inner.width(), titled->width());
  HeadlessInput::clickOn(inner);
  ASSERT_NE(inner.getMenuWindow(), nullptr);
  HeadlessInput::key(kKeyDown);
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(titled->getSelectedItem(), 1);
  EXPECT_EQ(panel->messages, (std::vector<std::string>{DropDownMenuButton::dropDownMenuButtonMsg}));
  EXPECT_EQ(panel->senders, (std::vector<Glob*>{titled}));
}

} // namespace
