#include "BuilderTestSupport.h"

#include <zowidgets/host/UifStd.h>

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
    return panel;
  }
};

TEST_F(BuilderGolden, EveryRowKind) {
  StandardPanel* panel = buildPanel(everyRowKind(), 0, L"Mask");
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/every_row_kind.png"));
}

} // namespace
