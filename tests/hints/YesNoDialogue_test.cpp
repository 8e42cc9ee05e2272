#include "support/WidgetTestSupport.h"

#include <zowidgets/hints/YesNoDialogue.h>
#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/ScreenRefresh.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <string>
#include <vector>

namespace {

using NullDialogue = DialogueCtx<Loki::NullType>;

struct YesNoDialogueTest : HeadlessScreenTest {
  std::vector<std::string> heard;

  std::vector<Warn::Callback> yesAndNo() {
    return {Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) { heard.push_back("yes"); }),
            Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) { heard.push_back("no"); })};
  }
  static std::wstring titleOf(StandardPanel const& panel) { return panel.getTitle().getString().str(); }
};

TEST_F(YesNoDialogueTest, ItAsksYesThenNoInAModalWarnAndYesRunsTheFirstCallback) {
  NullDialogue* dialogue = makeYesNoDialogue(UIString(L"Delete"), UIString(L"Delete the clip?"), yesAndNo());
  ASSERT_TRUE(is_good_glob_ptr(dialogue, "warn"));
  EXPECT_TRUE(GlobManager::isModal(dialogue));
  ASSERT_EQ(dialogue->getNumButtons(), 2);
  EXPECT_EQ(dialogue->getButton(0)->getLabel(), LightweightString<wchar_t>(L"Yes"));
  EXPECT_EQ(dialogue->getButton(1)->getLabel(), LightweightString<wchar_t>(L"No"));
  EXPECT_LT(dialogue->getButton(0)->getX(), dialogue->getButton(1)->getX());
  EXPECT_EQ(titleOf(*dialogue), L"Delete");
  HeadlessInput::clickOn(*dialogue->getButton(0));
  pump();
  EXPECT_EQ(heard, std::vector<std::string>{"yes"});
  EXPECT_FALSE(is_good_glob_ptr(dialogue)) << "answered, it goes";
}

TEST_F(YesNoDialogueTest, TheDialogueCastsTheStandardShadowAndLeavesTheScreenRefreshing) {
  NullDialogue* dialogue = makeYesNoDialogue(UIString(L"Delete the clip?"), yesAndNo(), 300, 300);
  EXPECT_FALSE(refresh_is_off());
  Glob::Surround const& shadow = dialogue->getWindowSurround();
  EXPECT_EQ(shadow.edges, unsigned(Glob::kEdgeRight | Glob::kEdgeBottom));
  Zo::Box<int> const box = dialogue->canvas()->screenBox();
  Rgb const below = rgbOf(screenPixel(XY<int>((box.x0 + box.x1) / 2, box.y0 - 1)));
  Rgb const desktop = rgbOf(Colour(0.2, 0.22, 0.25));
  EXPECT_LT(below.r + below.g + below.b, desktop.r + desktop.g + desktop.b);
  EXPECT_EQ(rgbOf(screenPixel(XY<int>((box.x0 + box.x1) / 2, box.y1))), desktop) << "no shadow above";
}

TEST_F(YesNoDialogueTest, NoRunsTheSecondCallbackAndEscapeRunsNone) {
  NullDialogue* first = makeYesNoDialogue(UIString(L"Keep the take?"), yesAndNo());
  HeadlessInput::clickOn(*first->getButton(1));
  pump();
  EXPECT_EQ(heard, std::vector<std::string>{"no"});
  NullDialogue* second = makeYesNoDialogue(UIString(L"Keep the take?"), yesAndNo());
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(second));
  EXPECT_EQ(heard, std::vector<std::string>{"no"});
}

TEST_F(YesNoDialogueTest, WithoutATitleItAsksPleaseConfirm) {
  NullDialogue* dialogue = makeYesNoDialogue(UIString(L"Keep the take?"), yesAndNo());
  EXPECT_EQ(titleOf(*dialogue), L"Please confirm");
  NullDialogue* titled = NullDialogue::make(UIString(11846), UIString(L"Sure?"), {UIString(L"OK")}, {});
  EXPECT_EQ(titleOf(*titled), L"Please confirm") << "a title by resource is kept as given";
}

TEST_F(YesNoDialogueTest, TheGeneralFormTakesAnyButtonsEachWithItsCallback) {
  std::vector<UIString> const buttons{UIString(L"Render"), UIString(L"Later"), UIString(L"Never")};
  std::vector<Warn::Callback> const callbacks{
      Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) { heard.push_back("render"); }),
      Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) { heard.push_back("later"); })};
  NullDialogue* dialogue = NullDialogue::make(UIString(L"Render"), UIString(L"Render now?"), buttons, callbacks);
  ASSERT_EQ(dialogue->getNumButtons(), 3);
  EXPECT_EQ(dialogue->getContext(), nullptr);
  HeadlessInput::clickOn(*dialogue->getButton(2));
  pump();
  EXPECT_TRUE(heard.empty()) << "a button without a callback only closes";
  EXPECT_FALSE(is_good_glob_ptr(dialogue));
}

TEST_F(YesNoDialogueTest, ItIsSizedForItsTextWrappedAtEighteenRowsAndStandsWhereAsked) {
  std::wstring words;
  for (int i = 0; i < 60; ++i)
    words += L"clip ";
  UIString const message{LightweightString<wchar_t>(words.c_str())};
  NullDialogue* dialogue = makeYesNoDialogue(message, yesAndNo(), 40, 60);
  int const row = UifStd::getRowHeight();
  Message::Analysis const text = Message::analyse(message, 18 * row);
  EXPECT_LE(text.size.x, 18 * row);
  EXPECT_GT(text.size.y, 2 * row) << "long enough to wrap";
  Zo::Box<int> const user = dialogue->getUserArea();
  EXPECT_GE(user.width(), text.size.x + 2 * UifStd::getIndentWidth());
  EXPECT_GE(user.height(), text.size.y + row + 2 * UifStd::getWidgetGap());
  Zo::Box<int> const area = dialogue->getTextArea();
  EXPECT_GE(area.height(), text.size.y) << "no line is cut";
  EXPECT_GE(area.width(), text.size.x);
  EXPECT_EQ(dialogue->screenPosition(), XY<int>(40, 60));
}

TEST_F(YesNoDialogueTest, ButtonsWiderThanEighteenRowsWidenTheDialogue) {
  std::wstring wide(80, L'W');
  std::vector<UIString> const buttons{UIString(LightweightString<wchar_t>(wide.c_str())), UIString(L"No")};
  XY<int> const size = NullDialogue::calcDialogueSize(UIString(L"Short"), buttons);
  EXPECT_GE(size.x, Warn::calcButtonRowWidth(buttons) + 2 * UifStd::getIndentWidth());
  NullDialogue* dialogue = NullDialogue::make(UIString(), UIString(L"Short"), buttons, {});
  EXPECT_EQ(dialogue->getSize(), size);
  EXPECT_GE(dialogue->getButton(0)->getX(), 0) << "both buttons inside";
}

} // namespace
