#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/DropDownButtonBase.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/textentry/DropDownSearchPanel.h>
#include <zowidgets/textentry/TextFilterWidget.h>

#include <string>

namespace {

// The search and filter boxes in each state a user sees, at both scales.
class SearchGolden : public HeadlessScreenTest, public ::testing::WithParamInterface<double> {
protected:
  void SetUp() override {
    UifStd::setScale(GetParam());
    HeadlessScreenTest::SetUp();
    int const row = UifStd::getRowHeight();
    int const gap = UifStd::getWidgetGap();
    panel = openPanel(XY<int>(row * 14, row * 4 + gap * 5), XY<int>(40, 300));
    TextSearchWidget::InitArgs args(XY<int>(row * 12, row));
    search = panel->createWidget<TextSearchWidget>(args, Glob::UserTopLeft(gap, gap));
    search->setGhostLabel(UIString(L"Search the clips"));
    typed = panel->createWidget<TextSearchWidget>(args, Glob::Below(gap));
    filter = panel->createWidget<TextFilterWidget>(args, Glob::Below(gap));
    button = panel->createWidget<DropDownSearchPanelButton>(DropDownSearchPanelButton::InitArgs(row, panel),
                                                            Glob::Below(gap));
  }
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }
  std::string golden(char const* state) const {
    return std::string(ZO_GOLDEN_DIR "/search_") + state + (GetParam() == 1.0 ? "_scale1.png" : "_scale2.png");
  }

  StandardPanel* panel = nullptr;
  TextSearchWidget* search = nullptr;
  TextSearchWidget* typed = nullptr;
  TextFilterWidget* filter = nullptr;
  DropDownSearchPanelButton* button = nullptr;
};

TEST_P(SearchGolden, EmptyTypedAndFilteredBoxes) {
  HeadlessInput::clickOn(*typed->getTextBox());
  HeadlessInput::typeText("harbour");
  HeadlessInput::clickOn(*filter->getTextBox());
  HeadlessInput::typeText("interview");
  HeadlessInput::key(kKeyReturn);
  ASSERT_EQ(filter->getIconName().str(), "poot.png");
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden("boxes")));
}

TEST_P(SearchGolden, TheDropDownSearchOpen) {
  HeadlessInput::clickOn(*button);
  pump();
  DropDownSearchPanel* dropDown = button->getDropDownPanel();
  ASSERT_NE(dropDown, nullptr);
  HeadlessInput::typeText("drone");
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*button->getDropDownHost()), golden("dropdown")));
}

INSTANTIATE_TEST_SUITE_P(Scales, SearchGolden, ::testing::Values(1.0, 2.0));

} // namespace
