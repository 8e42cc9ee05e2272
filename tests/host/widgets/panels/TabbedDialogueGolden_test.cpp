#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/TabbedDialogue.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/values/Slider.h>

namespace {

struct TabbedDialogueGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  // A titled panel whose tabs hold a few rows; the second tab is current,
  // the last has a colour of its own, and the tab row has the focus.
  StandardPanel* openTabbedPanel() {
    int const row = UifStd::getRowHeight();
    unsigned const widgets = StandardPanel::kTitle | StandardPanel::kPoot;
    XY<int> const user(16 * row, TabbedDialogue::calcHeightForContents(3 * row + 2 * UifStd::getRowGap()));
    StandardPanel* panel = openPanel(StandardPanel::calcPanelSize(user, widgets, StandardPanel::getDefaultBorder()),
                                     XY<int>(40, 40), widgets, L"Clip properties");
    TabbedDialogue* tabs = panel->createWidget<TabbedDialogue>(TabbedDialogue::InitArgs(user), Glob::UserTopLeft(0, 0));
    for (wchar_t const* title : {L"Video", L"Audio"}) {
      Glob* page = tabs->createPage<Glob>(TabbedDialogue::Page(title), GlobCreationInfo());
      int const width = page->width();
      TextLabel::InitArgs label(XY<int>(width, row));
      label.text = LightweightString<wchar_t>(std::wstring(title) + L" settings");
      page->createChild<TextLabel>(label, Glob::TopLeft(0, 0));
      Slider::InitArgs level(XY<int>(width * 2 / 3, row));
      level.initialValue = 0.6;
      page->createChild<Slider>(level, Glob::Below(UifStd::getRowGap()));
    }
    tabs->addTab(TabbedDialogue::Page(L"Markers", {}, Colour(0.55, 0.35, 0.1)));
    Zo::Box<int> const audio = tabs->getTabBox(1);
    HeadlessInput::click(
        HeadlessInput::pointOn(*tabs->getTabRow(), XY<int>((audio.x0 + audio.x1) / 2, (audio.y0 + audio.y1) / 2)));
    HeadlessInput::moveTo(XY<int>(5, 5));
    return panel;
  }
};

TEST_F(TabbedDialogueGolden, TabsAtScale1) {
  StandardPanel* panel = openTabbedPanel();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/tabbed_dialogue.png"));
}

TEST_F(TabbedDialogueGolden, TabsAtScale2) {
  UifStd::setScale(2.0);
  StandardPanel* panel = openTabbedPanel();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/tabbed_dialogue_scale2.png"));
}

} // namespace
