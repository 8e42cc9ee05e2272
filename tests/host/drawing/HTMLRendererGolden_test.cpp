#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/HTMLRenderer.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include "support/WidgetTestSupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

constexpr std::wstring_view kSample =
    L"<p>Render <b>queued</b>: <i>3 clips</i>, <u>2 effects</u>.</p>"
    L"<p><font color=\"#e06c6c\">Warning</font>: <span style=\"color: #60c0ff\">proxy media</span> in use, "
    L"see <a href=\"https://example.com/help\">the help page</a> for the details of proxies.</p>"
    L"Unknown <tags> stay as text.";

// The sample drawn on the panel colour in the interface font, wrapped to a
// width of 16 row heights, at the present scale.
Zo::Image::Surface drawSample() {
  Palette const palette = UifStd::getColourScheme();
  std::vector<HTMLParagraph> const paragraphs = HTMLRenderer::parse(kSample, palette);
  int const row = UifStd::getRowHeight();
  int const gap = UifStd::getWidgetGap();
  int const width = 16 * row;
  int const lines = HTMLRenderer::calcNumDisplayLines(paragraphs, width - 2 * gap);
  Zo::Image::Surface surface(width, lines * row + 2 * gap);
  CanvasRenderer renderer(surface);
  renderer.renderPrimitive(
      Glib::RectDescription(Zo::Box<int>(0, 0, surface.width(), surface.height()), palette.childWindow()));
  HTMLRenderer::render(renderer, paragraphs, Zo::Box<int>(gap, gap, width - gap, surface.height() - gap), row);
  renderer.flush();
  return surface;
}

class HTMLRendererGolden : public ::testing::Test {
protected:
  void TearDown() override { UifStd::setScale(1.0); }
};

} // namespace

TEST_F(HTMLRendererGolden, SampleAtScale1) {
  UifStd::setScale(1.0);
  EXPECT_TRUE(matchesGolden(drawSample(), ZO_GOLDEN_DIR "/html_sample_scale1.png"));
}

TEST_F(HTMLRendererGolden, SampleAtScale2) {
  UifStd::setScale(2.0);
  EXPECT_TRUE(matchesGolden(drawSample(), ZO_GOLDEN_DIR "/html_sample_scale2.png"));
}
