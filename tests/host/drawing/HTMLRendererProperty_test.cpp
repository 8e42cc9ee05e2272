#include <zowidgets/host/drawing/HTMLRenderer.h>
#include <zowidgets/host/drawing/Palette.h>

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

// Random text and tag soup from a fixed seed: the parser must take anything,
// plain text must come back as written, and line counts must be repeatable.
namespace {

using Paragraphs = std::vector<HTMLParagraph>;

Glib::FontDesc const kFont("DejaVu Sans", 13, 0);

constexpr std::array<std::wstring_view, 46> kSoupPieces{
    L"<",
    L">",
    L"</",
    L"/>",
    L"&",
    L";",
    L"#",
    L"\"",
    L"'",
    L"=",
    L" ",
    L"  ",
    L"\n",
    L"\r\n",
    L"\t",
    L"b",
    L"i",
    L"u",
    L"p",
    L"br",
    L"a",
    L"font",
    L"span",
    L"pre",
    L"script",
    L"style",
    L"div",
    L" href=",
    L" color=",
    L" style=",
    L"color:#f00",
    L"#00ff00",
    L"&amp;",
    L"&#x41;",
    L"&#0;",
    L"&lt",
    L"word",
    L"longerword",
    L"\u00e9t\u00e9",
    L"\u4e2d\u6587",
    L"\U0001F600",
    L"<b>",
    L"</b>",
    L"<a href=x>",
    L"<pre>",
    L"<!--",
};

constexpr std::array<wchar_t, 18> kPlainCharacters{L'a', L'b', L'Z', L'0', L' ', L' ',  L'\n',   L'\r',     L'\t',
                                                   L'<', L'>', L'&', L';', L'"', L'\'', L'\x01', L'\u00e9', L'\u4e2d'};

std::wstring randomSoup(std::mt19937& random) {
  std::uniform_int_distribution<int> length(0, 40);
  std::uniform_int_distribution<std::size_t> piece(0, kSoupPieces.size() - 1);
  std::uniform_int_distribution<int> rawChance(0, 19);
  std::uniform_int_distribution<std::uint32_t> raw(0, 0x10FFFF + 0x100);
  std::wstring text;
  for (int n = length(random); n > 0; --n) {
    if (rawChance(random) == 0)
      text += static_cast<wchar_t>(raw(random));
    else
      text += kSoupPieces[piece(random)];
  }
  return text;
}

std::wstring randomPlainText(std::mt19937& random) {
  std::uniform_int_distribution<int> length(0, 60);
  std::uniform_int_distribution<std::size_t> character(0, kPlainCharacters.size() - 1);
  std::wstring text;
  for (int n = length(random); n > 0; --n)
    text += kPlainCharacters[character(random)];
  return text;
}

// What a reader should see of plain text: every line break one '\n', and
// control characters other than tab gone.
std::wstring expectedVisible(std::wstring_view text) {
  std::wstring result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    wchar_t const c = text[i];
    if (c == L'\r') {
      if (i + 1 < text.size() && text[i + 1] == L'\n')
        ++i;
      result += L'\n';
    } else if (c == L'\n' || c == L'\t' || static_cast<std::uint32_t>(c) >= 0x20) {
      result += c;
    }
  }
  return result;
}

bool isShowable(wchar_t c) {
  auto const value = static_cast<std::uint32_t>(c);
  return (value >= 0x20 || c == L'\t') && value != 0x7F && !(value >= 0xD800 && value <= 0xDFFF) && value <= 0x10FFFF;
}

::testing::AssertionResult wellFormed(Paragraphs const& paragraphs) {
  if (paragraphs.empty())
    return ::testing::AssertionFailure() << "no paragraph";
  for (HTMLParagraph const& paragraph : paragraphs) {
    for (HTMLRun const& run : paragraph.runs) {
      if (run.text.empty())
        return ::testing::AssertionFailure() << "an empty run";
      for (wchar_t c : run.text.view())
        if (!isShowable(c))
          return ::testing::AssertionFailure() << "character " << static_cast<std::uint32_t>(c) << " in a run";
    }
  }
  return ::testing::AssertionSuccess();
}

} // namespace

TEST(HTMLRendererProperty, TagSoupAlwaysParsesToShowableRuns) {
  std::mt19937 random(20261121);
  Palette const palette;
  int styled = 0;
  int linked = 0;
  int broken = 0;
  for (int i = 0; i < 5000; ++i) {
    std::wstring const soup = randomSoup(random);
    Paragraphs const paragraphs = HTMLRenderer::parse(soup, palette);
    ASSERT_TRUE(wellFormed(paragraphs)) << "case " << i;
    // Parsing is a function of the text alone.
    ASSERT_EQ(paragraphs, HTMLRenderer::parse(soup, palette)) << "case " << i;
    broken += paragraphs.size() > 1 ? 1 : 0;
    for (HTMLParagraph const& paragraph : paragraphs) {
      for (HTMLRun const& run : paragraph.runs) {
        styled += run.style != 0 ? 1 : 0;
        linked += run.link.empty() ? 0 : 1;
      }
    }
  }
  // The soup reaches the tags of the subset, not only the text paths.
  EXPECT_GT(styled, 100);
  EXPECT_GT(linked, 10);
  EXPECT_GT(broken, 100);
}

TEST(HTMLRendererProperty, PlainTextRoundTripsThroughConvertAndParse) {
  std::mt19937 random(7);
  Palette const palette;
  for (int i = 0; i < 5000; ++i) {
    std::wstring const text = randomPlainText(random);
    LightweightString<wchar_t> const html = HTMLRenderer::convertToHTML(text, 3);
    Paragraphs const paragraphs = HTMLRenderer::parse(html.view(), palette);
    ASSERT_EQ(HTMLRenderer::visibleText(paragraphs).str(), expectedVisible(text)) << "case " << i;
    for (HTMLParagraph const& paragraph : paragraphs)
      for (HTMLRun const& run : paragraph.runs)
        ASSERT_EQ(run.style, 0u) << "case " << i;
  }
}

TEST(HTMLRendererProperty, LineCountsAreRepeatableAndShrinkAsTheWidthGrows) {
  std::mt19937 random(99);
  Palette const palette;
  std::array<double, 5> const widths{1.0, 40.0, 120.0, 400.0, 0.0};
  for (int i = 0; i < 600; ++i) {
    std::wstring const soup = randomSoup(random);
    Paragraphs const paragraphs = HTMLRenderer::parse(soup, palette);
    int const paragraphCount = static_cast<int>(paragraphs.size());
    int previous = -1;
    for (double width : widths) {
      int const lines = HTMLRenderer::calcNumDisplayLines(paragraphs, width, kFont);
      ASSERT_EQ(lines, HTMLRenderer::calcNumDisplayLines(HTMLRenderer::parse(soup, palette), width, kFont))
          << "case " << i;
      ASSERT_GE(lines, paragraphCount) << "case " << i;
      if (previous >= 0) {
        ASSERT_LE(lines, previous) << "case " << i << " width " << width;
      }
      previous = lines;
    }
    // Unwrapped, every paragraph is one line.
    ASSERT_EQ(previous, paragraphCount) << "case " << i;
  }
}

TEST(HTMLRendererProperty, UnfinishedEntitiesTakeLinearTime) {
  // Every '&' here starts an entity that never ends; a parser that looked to
  // the end of the text from each would take minutes.
  std::wstring const text(1000000, L'&');
  auto const start = std::chrono::steady_clock::now();
  Paragraphs const paragraphs = HTMLRenderer::parse(text, Palette());
  auto const elapsed = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(HTMLRenderer::visibleText(paragraphs).str(), text);
  EXPECT_LT(std::chrono::duration_cast<std::chrono::seconds>(elapsed).count(), 5);
}
