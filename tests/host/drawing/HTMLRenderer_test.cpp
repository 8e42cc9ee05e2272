#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/HTMLRenderer.h>
#include <zowidgets/host/drawing/HTMLUtils.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/drawing/TextLayout.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include "host/drawing/DrawingTestSupport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

using Paragraphs = std::vector<HTMLParagraph>;

namespace {

Glib::FontDesc const kFont("DejaVu Sans", 13, 0);

Paragraphs parse(std::wstring_view html) { return HTMLRenderer::parse(html, Palette()); }

std::wstring visible(std::wstring_view html) { return HTMLRenderer::visibleText(parse(html)).str(); }

} // namespace

TEST(HTMLRenderer, PlainTextIsOneRunInTheTextColour) {
  Palette const palette;
  Paragraphs const paragraphs = HTMLRenderer::parse(L"Hello world", palette);
  ASSERT_EQ(paragraphs.size(), 1u);
  ASSERT_EQ(paragraphs[0].runs.size(), 1u);
  EXPECT_EQ(paragraphs[0].runs[0].text, L"Hello world");
  EXPECT_EQ(paragraphs[0].runs[0].style, 0u);
  EXPECT_EQ(paragraphs[0].runs[0].colour, palette.text());
  EXPECT_TRUE(paragraphs[0].runs[0].link.empty());
}

TEST(HTMLRenderer, EmptyTextIsOneEmptyParagraph) {
  Paragraphs const paragraphs = parse(L"");
  ASSERT_EQ(paragraphs.size(), 1u);
  EXPECT_TRUE(paragraphs[0].runs.empty());
}

TEST(HTMLRenderer, StyleTagsNestAndClose) {
  Paragraphs const paragraphs = parse(L"a<b>b<i>c<u>d</u></i></B><strong>e</strong><em>f</em>");
  ASSERT_EQ(paragraphs.size(), 1u);
  std::vector<HTMLRun> const& runs = paragraphs[0].runs;
  ASSERT_EQ(runs.size(), 6u);
  EXPECT_EQ(runs[0].style, 0u);
  EXPECT_EQ(runs[1].style, HTMLRun::kBold);
  EXPECT_EQ(runs[2].style, HTMLRun::kBold | HTMLRun::kItalic);
  EXPECT_EQ(runs[3].style, HTMLRun::kBold | HTMLRun::kItalic | HTMLRun::kUnderline);
  EXPECT_EQ(runs[4].style, HTMLRun::kBold);
  EXPECT_EQ(runs[5].style, HTMLRun::kItalic);
}

TEST(HTMLRenderer, AdjacentRunsInTheSameStyleMerge) {
  Paragraphs const paragraphs = parse(L"<b>one</b><b> two</b>");
  ASSERT_EQ(paragraphs[0].runs.size(), 1u);
  EXPECT_EQ(paragraphs[0].runs[0].text, L"one two");
}

TEST(HTMLRenderer, ColourComesFromFontAndSpan) {
  Paragraphs const paragraphs =
      parse(L"<font color=\"#ff0000\">red</font><span style=\"font-weight: bold; COLOR: #00f\">blue</span>"
            L"<font color=nonsense>plain</font>");
  std::vector<HTMLRun> const& runs = paragraphs[0].runs;
  ASSERT_EQ(runs.size(), 3u);
  EXPECT_EQ(runs[0].colour, Colour(1.0, 0.0, 0.0));
  EXPECT_EQ(runs[1].colour, Colour(0.0, 0.0, 1.0));
  EXPECT_EQ(runs[2].colour, Palette().text());
}

TEST(HTMLRenderer, LinksCarryTheirTargetInTheAccentColour) {
  Palette const palette;
  Paragraphs const paragraphs =
      HTMLRenderer::parse(L"see <a href='https://example.com/?a=1&amp;b=2'>here</a>.", palette);
  std::vector<HTMLRun> const& runs = paragraphs[0].runs;
  ASSERT_EQ(runs.size(), 3u);
  EXPECT_EQ(runs[1].text, L"here");
  EXPECT_EQ(runs[1].link, L"https://example.com/?a=1&b=2");
  EXPECT_EQ(runs[1].colour, palette.subheadingText());
  EXPECT_TRUE(runs[1].style & HTMLRun::kUnderline);
  EXPECT_TRUE(runs[2].link.empty());
}

TEST(HTMLRenderer, BreaksAndParagraphsMakeLines) {
  EXPECT_EQ(visible(L"one<br>two<br/>three"), L"one\ntwo\nthree");
  EXPECT_EQ(visible(L"<p>one</p><p>two</p>"), L"one\ntwo");
  EXPECT_EQ(visible(L"one<p>two"), L"one\ntwo");
  EXPECT_EQ(visible(L"end<br>"), L"end\n");
  EXPECT_EQ(visible(L"<br><br>"), L"\n\n");
}

TEST(HTMLRenderer, LineBreaksInTheSourceAreSpacesOutsidePre) {
  EXPECT_EQ(visible(L"one\ntwo\r\nthree"), L"one two  three");
  EXPECT_EQ(visible(L"<pre>\nfirst\n  second\r\n</pre>after"), L"first\n  second\nafter");
}

TEST(HTMLRenderer, EntitiesAreDecoded) { EXPECT_EQ(visible(L"a &lt;b&gt; &amp; &#x263A;"), L"a <b> & \u263A"); }

TEST(HTMLRenderer, UnknownTagsAreShownAsWritten) {
  EXPECT_EQ(visible(L"<script>alert('x')</script>"), L"<script>alert('x')</script>");
  EXPECT_EQ(visible(L"<style>p { color: red }</style>"), L"<style>p { color: red }</style>");
  EXPECT_EQ(visible(L"<img src=x onerror=run()>"), L"<img src=x onerror=run()>");
}

TEST(HTMLRenderer, BrokenMarkupIsText) {
  EXPECT_EQ(visible(L"a < b > c"), L"a < b > c");
  EXPECT_EQ(visible(L"<b"), L"<b");
  EXPECT_EQ(visible(L"<a href=\"open"), L"<a href=\"open");
  EXPECT_EQ(visible(L"<>"), L"<>");
  // Closing tags with nothing to close are dropped.
  EXPECT_EQ(visible(L"</b>x</i>"), L"x");
}

TEST(HTMLRenderer, ControlCharactersAreDropped) {
  EXPECT_EQ(visible(std::wstring(L"a\x01"
                                 L"b\x7f"
                                 L"c")),
            L"abc");
}

TEST(HTMLRenderer, ConvertToHTMLEscapesAndBreaksLines) {
  EXPECT_EQ(HTMLRenderer::convertToHTML(L"a<b>\nc\r\nd\re", 3), L"a&lt;b&gt;<br>c<br>d<br>e");
  EXPECT_EQ(HTMLRenderer::convertToHTML(L"a<b>\nc", HTMLRenderer::kEscapeMarkup), L"a&lt;b&gt;\nc");
  EXPECT_EQ(HTMLRenderer::convertToHTML(L"a<b>\nc", HTMLRenderer::kLineBreaksToTags), L"a<b><br>c");
}

TEST(HTMLRenderer, IsHTMLLooksForTagsOfTheSubset) {
  EXPECT_TRUE(HTMLRenderer::isHTML(L"some <b>bold</b>"));
  EXPECT_TRUE(HTMLRenderer::isHTML(L"line<BR/>"));
  EXPECT_TRUE(HTMLRenderer::isHTML(L"<a href=\"x\">x</a>"));
  EXPECT_FALSE(HTMLRenderer::isHTML(L"3 < 4 and 5 > 2"));
  EXPECT_FALSE(HTMLRenderer::isHTML(L"<script>"));
  EXPECT_FALSE(HTMLRenderer::isHTML(L"&amp;"));
}

TEST(HTMLRenderer, WideEnoughTextTakesOneLinePerParagraph) {
  Paragraphs const paragraphs = parse(L"one two three<br>four");
  EXPECT_EQ(HTMLRenderer::calcNumDisplayLines(paragraphs, 10000.0, kFont), 2);
  EXPECT_EQ(HTMLRenderer::calcNumDisplayLines(paragraphs, 0.0, kFont), 2);
}

TEST(HTMLRenderer, NarrowTextWrapsAtWords) {
  Paragraphs const paragraphs = parse(L"one two <b>three</b> four");
  // Narrower than any word: each word on its own line.
  EXPECT_EQ(HTMLRenderer::calcNumDisplayLines(paragraphs, 1.0, kFont), 4);
  double const oneTwo = Glib::TextLayout::measure(L"one two", kFont).width;
  EXPECT_EQ(HTMLRenderer::calcNumDisplayLines(paragraphs, oneTwo + 1.0, kFont), 3);
}

TEST(HTMLRenderer, WordsAcrossStylesStayTogether) {
  Paragraphs const paragraphs = parse(L"ab<b>cd</b>ef gh");
  std::vector<HTMLPlacedText> const placed = HTMLRenderer::layout(paragraphs, 1.0, kFont);
  for (HTMLPlacedText const& piece : placed)
    EXPECT_EQ(piece.line, piece.text == L"gh" ? 1 : 0) << toNarrow(piece.text);
}

TEST(HTMLRenderer, MaxWidthIsTheWidestParagraph) {
  Paragraphs const paragraphs = parse(L"short<br>a much longer line");
  double const expected = Glib::TextLayout::measure(L"a much longer line", kFont).width;
  EXPECT_NEAR(HTMLRenderer::calcMaxWidth(paragraphs, kFont), expected, 1.0);
  EXPECT_EQ(HTMLRenderer::calcMaxWidth(parse(L""), kFont), 0.0);
}

TEST(HTMLRenderer, LinkAtFindsTheLinkUnderAPoint) {
  Paragraphs const paragraphs = parse(L"go <a href=\"https://example.com\">there</a><br>next");
  double const goWidth = Glib::TextLayout::measure(L"go ", kFont).width;
  int const lineHeight = 20;
  EXPECT_EQ(HTMLRenderer::linkAt(paragraphs, 500.0, lineHeight, goWidth + 2.0, 5.0, kFont), L"https://example.com");
  EXPECT_TRUE(HTMLRenderer::linkAt(paragraphs, 500.0, lineHeight, 1.0, 5.0, kFont).empty());
  EXPECT_TRUE(HTMLRenderer::linkAt(paragraphs, 500.0, lineHeight, goWidth + 2.0, lineHeight + 5.0, kFont).empty());
}

namespace {

struct Drawn {
  Zo::Image::Surface surface;
  int inkPixels = 0;
};

Drawn draw(std::wstring_view html) {
  Drawn result{Zo::Image::Surface(240, 60), 0};
  CanvasRenderer renderer(result.surface);
  HTMLRenderer::render(renderer, parse(html), Zo::Box<int>(0, 0, 240, 60), 20, kFont);
  renderer.flush();
  for (int y = 0; y < 60; ++y)
    for (int x = 0; x < 240; ++x)
      if (result.surface.pixel(x, y) != 0u)
        ++result.inkPixels;
  return result;
}

} // namespace

TEST(HTMLRenderer, StylesChangeTheDrawnPixels) {
  Drawn const plain = draw(L"Styled text");
  ASSERT_GT(plain.inkPixels, 0);
  Drawn const bold = draw(L"<b>Styled text</b>");
  EXPECT_GT(bold.inkPixels, plain.inkPixels);
  EXPECT_FALSE(samePixels(plain.surface, draw(L"<i>Styled text</i>").surface));
  EXPECT_GT(draw(L"<u>Styled text</u>").inkPixels, plain.inkPixels);
  EXPECT_FALSE(samePixels(plain.surface, draw(L"<font color=red>Styled text</font>").surface));
}

TEST(HTMLRenderer, ColouredTextIsDrawnInItsColour) {
  Drawn const red = draw(L"<font color=\"#ff0000\">MMMM</font>");
  bool foundRed = false;
  for (int y = 0; y < 60 && !foundRed; ++y)
    for (int x = 0; x < 240 && !foundRed; ++x)
      foundRed = red.surface.pixel(x, y) == 0xFFFF0000u;
  EXPECT_TRUE(foundRed);
}

TEST(HTMLRenderer, RenderDrawsOnlyLinesInsideTheArea) {
  // Three lines of 20 pixels in an area 20 pixels high: only the first shows.
  Drawn const first = draw(L"A");
  Zo::Image::Surface surface(240, 60);
  CanvasRenderer renderer(surface);
  HTMLRenderer::render(renderer, parse(L"A<br>B<br>C"), Zo::Box<int>(0, 40, 240, 60), 20, kFont);
  renderer.flush();
  EXPECT_TRUE(samePixels(surface, first.surface));
  // Scrolled by one line, "B" takes the top line.
  Zo::Image::Surface scrolled(240, 60);
  CanvasRenderer scrolledRenderer(scrolled);
  HTMLRenderer::render(scrolledRenderer, parse(L"A<br>B<br>C"), Zo::Box<int>(0, 40, 240, 60), 20, kFont, 1);
  scrolledRenderer.flush();
  EXPECT_TRUE(samePixels(scrolled, draw(L"B").surface));
}
