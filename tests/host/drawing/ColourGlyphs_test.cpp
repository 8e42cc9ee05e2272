#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/TextLayout.h>

#include "host/drawing/DrawingTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>

using Glib::FontDesc;
using Glib::TextLayout;
using Zo::Image::Surface;

namespace {

// DejaVu Sans has no emoji: every one of them comes through font fallback.
FontDesc const kFont("DejaVu Sans", 40, 0);
Colour const kBlack(0.0, 0.0, 0.0);
Colour const kBlue(0.0, 0.0, 1.0);
Colour const kWhite(1.0, 1.0, 1.0);

wchar_t const kGrinningFace[] = L"\U0001F600";
wchar_t const kFrenchFlag[] = L"\U0001F1EB\U0001F1F7";
wchar_t const kRainbowFlag[] = L"\U0001F3F3\uFE0F\u200D\U0001F308";
wchar_t const kFamily[] = L"\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466";
// Private use, plane 16: no installed font has it, so pango draws its
// missing-glyph box.
wchar_t const kNoGlyph[] = L"\U0010FFFD";

// On white, a grey pixel has its three channels alike; a coloured one does
// not.
bool isColoured(std::uint32_t pixel) {
  int const highest = std::max({redOf(pixel), greenOf(pixel), blueOf(pixel)});
  int const lowest = std::min({redOf(pixel), greenOf(pixel), blueOf(pixel)});
  return highest - lowest > 60;
}

struct Ink {
  int coloured = 0;
  int marked = 0; // pixels no longer white
  int yellow = 0; // red and green well above blue
  int blue = 0;
  int red = 0;
  double blueX = 0.0; // mean column of the blue pixels
  double redX = 0.0;
};

Ink inkOf(Surface const& surface, int fromX = 0, int toX = -1) {
  Ink ink;
  int const endX = toX < 0 ? surface.width() : toX;
  for (int row = 0; row < surface.height(); ++row)
    for (int x = fromX; x < endX; ++x) {
      std::uint32_t const pixel = surface.pixel(x, row);
      int const r = redOf(pixel), g = greenOf(pixel), b = blueOf(pixel);
      ink.marked += pixel != 0xFFFFFFFFu ? 1 : 0;
      if (!isColoured(pixel))
        continue;
      ++ink.coloured;
      if (r > b + 80 && g > b + 40)
        ++ink.yellow;
      if (b > r + 80 && b > g + 40) {
        ++ink.blue;
        ink.blueX += x;
      }
      if (r > b + 80 && r > g + 80) {
        ++ink.red;
        ink.redX += x;
      }
    }
  if (ink.blue > 0)
    ink.blueX /= ink.blue;
  if (ink.red > 0)
    ink.redX /= ink.red;
  return ink;
}

Surface drawn(wchar_t const* text, Colour const& colour, int width = 80) {
  Surface surface(width, 60);
  surface.fill(kWhite);
  Glib::TextRun run;
  run.text = text;
  run.font = kFont;
  TextLayout::draw(surface, run, colour, XY<double>(4.0, 4.0));
  return surface;
}

} // namespace

TEST(ColourGlyphs, AGrinningFaceIsDrawnInItsOwnColours) {
  Ink const ink = inkOf(drawn(kGrinningFace, kBlack));
  // Most of a 40-pixel face is its yellow disc.
  EXPECT_GT(ink.coloured, 600);
  EXPECT_GT(ink.yellow, 500);
}

TEST(ColourGlyphs, TheTextColourDoesNotTintAnEmoji) {
  EXPECT_TRUE(samePixels(drawn(kGrinningFace, kBlack), drawn(kGrinningFace, kBlue)));
}

TEST(ColourGlyphs, TheMissingGlyphBoxIsGreyAndUnlikeAnEmoji) {
  Surface const box = drawn(kNoGlyph, kBlack);
  Ink const missing = inkOf(box);
  EXPECT_GT(missing.marked, 50);  // the box is drawn...
  EXPECT_EQ(missing.coloured, 0); // ...in the text colour alone
  Surface const face = drawn(kGrinningFace, kBlack);
  EXPECT_GT(countDifferentBy(box, face, 60), 500);
}

TEST(ColourGlyphs, AFlagSequenceIsOneFlagBlueBeforeRed) {
  double const flagWidth = TextLayout::measure(kFrenchFlag, kFont).width;
  double const faceWidth = TextLayout::measure(kGrinningFace, kFont).width;
  // Two regional indicators drawn apart would be two glyphs wide.
  EXPECT_NEAR(flagWidth, faceWidth, 1.0);
  Ink const ink = inkOf(drawn(kFrenchFlag, kBlack));
  EXPECT_GT(ink.blue, 100);
  EXPECT_GT(ink.red, 100);
  EXPECT_LT(ink.blueX, ink.redX);
}

TEST(ColourGlyphs, JoinedSequencesAreOneGlyphInTheirOwnColours) {
  double const faceWidth = TextLayout::measure(kGrinningFace, kFont).width;
  EXPECT_NEAR(TextLayout::measure(kRainbowFlag, kFont).width, faceWidth, 1.0);
  EXPECT_GT(inkOf(drawn(kRainbowFlag, kBlack)).coloured, 600);
  // The emoji font draws families as grey silhouettes: in colour all the
  // same, so blue text leaves them grey.
  EXPECT_NEAR(TextLayout::measure(kFamily, kFont).width, faceWidth, 1.0);
  Surface const family = drawn(kFamily, kBlack);
  EXPECT_GT(inkOf(family).marked, 600);
  EXPECT_TRUE(samePixels(family, drawn(kFamily, kBlue)));
}

TEST(ColourGlyphs, TextBesideAnEmojiKeepsTheTextColour) {
  wchar_t const text[] = L"HH\U0001F600";
  int const lettersEnd = static_cast<int>(4.0 + TextLayout::measure(L"HH", kFont).width);
  Surface const surface = drawn(text, kBlue, 140);
  Ink const letters = inkOf(surface, 0, lettersEnd);
  Ink const face = inkOf(surface, lettersEnd);
  EXPECT_GT(letters.blue, 100);
  EXPECT_EQ(letters.yellow, 0);
  EXPECT_GT(face.yellow, 500);
  EXPECT_EQ(face.blue, 0);
}

TEST(ColourGlyphs, TheCanvasRendererDrawsEmojiInColourWithinItsClip) {
  Surface surface(120, 60);
  surface.fill(kWhite);
  CanvasRenderer renderer(surface);
  // The clip cuts the flag in half: its blue half stays, its red half goes.
  double const flagWidth = TextLayout::measure(kFrenchFlag, kFont).width;
  int const middle = static_cast<int>(10 + flagWidth / 2.0);
  renderer.setClipBox(Zo::Box<int>(0, 0, middle, 60));
  renderer.renderPrimitive(Glib::TextDescription(kFrenchFlag, XY<double>(10, 15), kFont, kBlack));
  Ink const ink = inkOf(surface);
  EXPECT_GT(ink.blue, 100);
  EXPECT_EQ(ink.red, 0);
  EXPECT_EQ(inkOf(surface, middle).marked, 0);
}
