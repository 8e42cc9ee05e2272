#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

namespace {

// A labelled bar, as a settings row might draw one.
class LabelledBar : public Glob {
public:
  LabelledBar(XY<int> size, LightweightString<wchar_t> label, double fraction)
      : Glob(GlobCreationInfo(size)), label_(std::move(label)), fraction_(fraction) {}

protected:
  void draw(CanvasRenderer& renderer) override {
    Palette const& palette = getPalette();
    int const half = width() / 2;
    renderer.renderPrimitive(
        Glib::TextDescription(label_, Zo::Box<double>(0, 0, half, height()), UifStd::getFont(), palette.text()));
    int const barHeight = height() / 3;
    int const y0 = (height() - barHeight) / 2;
    renderer.renderPrimitive(
        Glib::RectDescription(Zo::Box<int>(half, y0, width(), y0 + barHeight), palette.window(-3)));
    int const filled = half + static_cast<int>((width() - half) * fraction_);
    renderer.renderPrimitive(
        Glib::RectDescription(Zo::Box<int>(half, y0, filled, y0 + barHeight), palette.selection()));
  }

private:
  LightweightString<wchar_t> label_;
  double fraction_;
};

void buildSettingsPanel(StandardPanel& panel) {
  int const row = UifStd::getRowHeight();
  int const w = panel.getUserArea().width();
  panel.addChild(new LabelledBar(XY<int>(w, row), L"Brightness", 0.7), Glob::UserTopLeft(0, 0));
  panel.addChild(new LabelledBar(XY<int>(w, row), L"Contrast", 0.35), Glob::Below(UifStd::getRowGap()));
  panel.addChild(new LabelledBar(XY<int>(w, row), L"Saturation", 1.0), Glob::Below(UifStd::getRowGap()));
}

struct PanelGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }
};

TEST_F(PanelGolden, StandardPanelWithTitleBarRowsAndFooter) {
  unsigned widgets = StandardPanel::kTitle | StandardPanel::kPoot | StandardPanel::kPin | StandardPanel::kDoIt;
  StandardPanel* panel = openPanel(XY<int>(320, 180), XY<int>(40, 40), widgets, L"Grade settings");
  buildSettingsPanel(*panel);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/standard_panel.png"));
}

TEST_F(PanelGolden, TheSamePanelAtDoubleScale) {
  UifStd::setScale(2.0);
  unsigned widgets = StandardPanel::kTitle | StandardPanel::kPoot | StandardPanel::kPin | StandardPanel::kDoIt;
  StandardPanel* panel = openPanel(XY<int>(640, 360), XY<int>(40, 40), widgets, L"Grade settings");
  buildSettingsPanel(*panel);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/standard_panel_scale2.png"));
}

} // namespace
