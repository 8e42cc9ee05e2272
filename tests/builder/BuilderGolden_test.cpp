#include "BuilderTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

using namespace BuilderTest;

namespace {

ParamList everyRowKind() {
  std::vector<ChoiceParam::Choice> shapes{{L"Circle", {}, 1, true}, {L"Square", {}, 2, true}};
  ParamList children{boolParam("feather", true, L"Feather edges"), doubleParam("softness", 0.4, 0, 1, L"Softness")};
  return ParamList{
      Zo::Ptr<iParam>(
          new LabelParam(L"Note", "note", L"Settings for the mask of this clip. Feathering softens its edges.")),
      boolParam("enabled", true, L"Enabled"),
      intParam("count", 12, 0, 100, L"Count"),
      doubleParam("opacity", 0.75, 0, 1, L"Opacity"),
      Zo::Ptr<iParam>(new ChoiceParam(L"Shape", "shape", {}, 2, shapes)),
      textParam("name", L"Mask 1", L"Name"),
      Zo::Ptr<iParam>(new GroupParam(L"Edges", "edges", {}, children)),
      Zo::Ptr<iParam>(new ActionParam(L"Reset", "reset", {}, {})),
  };
}

struct BuilderGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }
  StandardPanel* buildPanel(ParamList const& params, unsigned flags, wchar_t const* title) {
    int const width = 18 * UifStd::getRowHeight();
    XY<int> const size = StandardPanel::calcPanelSize(XY<int>(width, UIBuilder::calcHeight(params, flags) + 80),
                                                      StandardPanel::kTitle, StandardPanel::getDefaultBorder());
    StandardPanel* panel = openPanel(size, XY<int>(40, 40), StandardPanel::kTitle, title);
    UIBuilder::build(params, panel, flags);
    // Fit the panel to its rows, as a caller would.
    int lowest = panel->getUserArea().y1;
    for (Glob* row : panel->getChildren())
      if (row->isVisible())
        lowest = std::min(lowest, row->getY() + UifStd::getRowGap());
    panel->resize(panel->width(), panel->height() - (lowest - panel->getUserArea().y0));
    return panel;
  }
};

TEST_F(BuilderGolden, EveryRowKind) {
  StandardPanel* panel = buildPanel(everyRowKind(), 0, L"Mask");
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/every_row_kind.png"));
}

TEST_F(BuilderGolden, ColourFontAndPasswordRows) {
  ParamList params{Zo::Ptr<iParam>(new ColourParam(L"Tint", "tint", {}, NormalisedRGB{0.9f, 0.5f, 0.1f, 1.0f})),
                   Zo::Ptr<iParam>(new FontParam(L"Caption font", "caption", {}, L"DejaVu Sans")),
                   textParam("user", L"ada", L"User name"),
                   Zo::Ptr<iParam>(new TextParam(L"Password", "password", {}, L"secret", {},
                                                 TextParam::kObfuscated | TextParam::kShowPasswordControl))};
  StandardPanel* panel = buildPanel(params, UIBuilder::kCompactText, L"Title card");
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/colour_font_password_rows.png"));
}

TEST_F(BuilderGolden, EveryRowKindAtDoubleScale) {
  UifStd::setScale(2.0);
  StandardPanel* panel = buildPanel(everyRowKind(), 0, L"Mask");
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/every_row_kind_x2.png"));
}

TEST_F(BuilderGolden, CompactTextRows) {
  ParamList params{textParam("first", L"", L"First name"), textParam("last", L"Lovelace", L"Last name"),
                   Zo::Ptr<iParam>(new TextParam(L"Password", "password", {}, L"secret", {},
                                                 TextParam::kObfuscated | TextParam::kShowPasswordControl)),
                   boolParam("remember", true, L"Remember me")};
  StandardPanel* panel = buildPanel(params, UIBuilder::kCompactText, L"Sign in");
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/compact_text_rows.png"));
}

TEST_F(BuilderGolden, GroupsInGroupsWithAHiddenRowAndAnInactiveRow) {
  Zo::Ptr<iParam> sharpen = boolParam("sharpen", false, L"Sharpen");
  Zo::Ptr<iParam> amount = doubleParam("amount", 0.3, 0, 1, L"Amount");
  amount->setVisibleIf(Condition("sharpen", L"true"));
  Zo::Ptr<iParam> radius = intParam("radius", 2, 1, 10, L"Radius");
  radius->setActiveIf(Condition("sharpen", L"true"));
  ParamList detail{sharpen, amount, radius};
  ParamList colour{intParam("temperature", 6500, 2000, 10000, L"Temperature"),
                   Zo::Ptr<iParam>(new GroupParam(L"Detail", "detail", {}, detail))};
  ParamList params{Zo::Ptr<iParam>(new GroupParam(L"Colour", "colour", {}, colour)), choiceParam("mode", 2, L"Mode")};
  StandardPanel* panel = buildPanel(params, 0, L"Grade");
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/groups_in_groups.png"));
}

TEST_F(BuilderGolden, AFormDescribedInJSON) {
  int const width = 18 * UifStd::getRowHeight();
  StandardPanel* panel =
      openPanel(StandardPanel::calcPanelSize(XY<int>(width, 7 * UifStd::getRowHeight()), StandardPanel::kTitle,
                                             StandardPanel::getDefaultBorder()),
                XY<int>(40, 40), StandardPanel::kTitle, L"Export");
  UIBuilder::buildFromJSON(LR"({"rows": [
    {"type": "label", "legend": "Choose how the clip is written."},
    {"type": "text", "name": "file", "legend": "File name", "value": "clip_001", "hint": "name"},
    {"type": "int", "name": "format", "legend": "Format", "values": {"Still frames": 1, "Movie": 2}, "choice": "2"},
    {"type": "float", "name": "quality", "legend": "Quality", "min": 0, "max": 1, "default": 0.85},
    {"type": "bool", "name": "audio", "legend": "Include audio", "default": true},
    {"type": "Note", "legend": "Files are written beside the project."}
  ]})",
                           panel);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/json_form.png"));
}

} // namespace
