#include "support/WidgetTestSupport.h"

#include <zowidgets/host/widgets/popups/MenuGlob.h>

#include <string>
#include <vector>

namespace {

std::string narrow(LightweightString<wchar_t> const& text) {
  std::wstring const wide = text.str();
  return std::string(wide.begin(), wide.end());
}

// A panel that builds its menu afresh before each showing, from what it
// holds, as a log panel does over a link row.
class LinkPanel : public StandardPanel {
public:
  explicit LinkPanel(InitArgs const& args) : StandardPanel(args) {}
  void reviewMenu(Event const*) override {
    clearMenu();
    setMenuTitle(getTitle());
    for (std::string action : {"Copy", "Open", "Reveal"})
      addMenuItem(UIString(LightweightString<wchar_t>(std::wstring(action.begin(), action.end()))),
                  [this, action](MenuItem const&) { ran.push_back(action); });
  }
  void handleMenuChoice(int index, MenuItem const& item) override {
    heard.push_back(std::to_string(index) + ":" + narrow(item.text.getString()));
  }
  std::vector<std::string> ran;
  std::vector<std::string> heard;
};

TEST(MenuGlob, HoldsRowsUnderItsTitleAndClearsThem) {
  MenuGlob glob(GlobCreationInfo(XY<int>(10, 10)));
  EXPECT_TRUE(glob.getMenuItems(nullptr).empty());
  glob.setMenuTitle(UIString(L"Clip"));
  EXPECT_TRUE(glob.getMenuItems(nullptr).empty()) << "a title alone makes no menu";
  glob.addMenuItem(MenuItem(UIString(L"Rename")));
  glob.addMenuSeparator();
  glob.addMenuItem(UIString(L"Delete"), [](MenuItem const&) {});
  std::vector<MenuItem> const items = glob.getMenuItems(nullptr);
  ASSERT_EQ(items.size(), 4u);
  EXPECT_EQ(items[0].style, MenuItem::kHeading);
  EXPECT_EQ(items[0].text.getString(), L"Clip");
  EXPECT_EQ(items[2].style, MenuItem::kSeparator);
  EXPECT_TRUE(static_cast<bool>(items[3].action));
  EXPECT_EQ(glob.heldMenuItems().size(), 3u);
  glob.clearMenu();
  EXPECT_TRUE(glob.getMenuItems(nullptr).empty());
  EXPECT_TRUE(glob.getMenuTitle().empty());
}

TEST(MenuGlob, EveryPanelIsOneSoItsMenuCanBeFoundByCasting) {
  StandardPanel panel(StandardPanel::InitArgs(XY<int>(100, 100)));
  Glob* asGlob = &panel;
  MenuGlob* menus = dynamic_cast<MenuGlob*>(asGlob);
  ASSERT_NE(menus, nullptr);
  menus->addMenuItem(MenuItem(UIString(L"Only row")));
  EXPECT_EQ(panel.getMenuItems(nullptr).size(), 1u);
}

struct MenuGlobPanelTest : HeadlessScreenTest {};

TEST_F(MenuGlobPanelTest, AChosenRowRunsItsActionThenThePanelHearsOfIt) {
  StandardPanel::InitArgs args(XY<int>(300, 200));
  args.screenPosition = XY<int>(200, 200);
  args.title = L"Log";
  auto* panel = new LinkPanel(args);
  GlobManager::realize(panel);
  HeadlessInput::clickOn(*panel, XY<int>(150, 60), kMouseRight);
  MenuWindow* menu = panel->openMenu();
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->menu().size(), 4);
  EXPECT_EQ(menu->menu().item(0).text.getString(), L"Log");
  HeadlessInput::key(kKeyDown);
  HeadlessInput::key(kKeyDown);
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(panel->ran, std::vector<std::string>{"Open"});
  EXPECT_EQ(panel->heard, std::vector<std::string>{"2:Open"});
  // Built afresh for the next showing, not added to.
  HeadlessInput::clickOn(*panel, XY<int>(150, 60), kMouseRight);
  ASSERT_NE(panel->openMenu(), nullptr);
  EXPECT_EQ(panel->openMenu()->menu().size(), 4);
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_EQ(panel->ran.size(), 1u);
}

} // namespace
