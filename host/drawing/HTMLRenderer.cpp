#include <zowidgets/host/drawing/HTMLRenderer.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/HTMLUtils.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/drawing/TextLayout.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cwctype>
#include <optional>
#include <string>
#include <utility>

namespace {

using WString = LightweightString<wchar_t>;

// ---- Reading tags ----

struct Attribute {
  std::wstring name;
  std::wstring_view rawValue;
};

struct Tag {
  std::wstring name; // lower case
  bool closing = false;
  std::vector<Attribute> attributes;
  std::size_t end = 0; // one past the '>'
};

std::wstring lowerCase(std::wstring_view text) {
  std::wstring result(text);
  for (wchar_t& c : result)
    c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
  return result;
}

bool isAsciiLetter(wchar_t c) { return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z'); }
bool isAsciiDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }
bool isSpace(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r' || c == L'\f'; }

// The tag that starts at text[start] == '<', or nothing when the '<' does not
// open a well-formed tag (it is then text).
std::optional<Tag> readTag(std::wstring_view text, std::size_t start) {
  Tag tag;
  std::size_t i = start + 1;
  if (i < text.size() && text[i] == L'/') {
    tag.closing = true;
    ++i;
  }
  std::size_t const nameStart = i;
  if (i >= text.size() || !isAsciiLetter(text[i]))
    return std::nullopt;
  while (i < text.size() && (isAsciiLetter(text[i]) || isAsciiDigit(text[i])))
    ++i;
  tag.name = lowerCase(text.substr(nameStart, i - nameStart));
  while (i < text.size()) {
    wchar_t const c = text[i];
    if (isSpace(c) || c == L'/') {
      ++i;
      continue;
    }
    if (c == L'>') {
      tag.end = i + 1;
      return tag;
    }
    if (c == L'<' || c == L'=' || c == L'"' || c == L'\'')
      return std::nullopt;
    std::size_t const attributeStart = i;
    while (i < text.size() && !isSpace(text[i]) && text[i] != L'=' && text[i] != L'>' && text[i] != L'/' &&
           text[i] != L'<' && text[i] != L'"' && text[i] != L'\'')
      ++i;
    Attribute attribute{lowerCase(text.substr(attributeStart, i - attributeStart)), {}};
    while (i < text.size() && isSpace(text[i]))
      ++i;
    if (i < text.size() && text[i] == L'=') {
      ++i;
      while (i < text.size() && isSpace(text[i]))
        ++i;
      if (i >= text.size())
        return std::nullopt;
      if (text[i] == L'"' || text[i] == L'\'') {
        std::size_t const close = text.find(text[i], i + 1);
        if (close == std::wstring_view::npos)
          return std::nullopt;
        attribute.rawValue = text.substr(i + 1, close - i - 1);
        i = close + 1;
      } else {
        std::size_t const valueStart = i;
        while (i < text.size() && !isSpace(text[i]) && text[i] != L'>' && text[i] != L'<')
          ++i;
        attribute.rawValue = text.substr(valueStart, i - valueStart);
      }
    }
    tag.attributes.push_back(std::move(attribute));
  }
  return std::nullopt;
}

std::optional<std::wstring_view> attribute(Tag const& tag, std::wstring_view name) {
  for (Attribute const& candidate : tag.attributes)
    if (candidate.name == name)
      return candidate.rawValue;
  return std::nullopt;
}

enum class eElement { Unknown, Paragraph, Break, Bold, Italic, Underline, Font, Span, Link, Pre };

eElement elementOf(std::wstring_view name) {
  static constexpr std::pair<std::wstring_view, eElement> kElements[] = {
      {L"p", eElement::Paragraph}, {L"br", eElement::Break},  {L"b", eElement::Bold},      {L"strong", eElement::Bold},
      {L"i", eElement::Italic},    {L"em", eElement::Italic}, {L"u", eElement::Underline}, {L"font", eElement::Font},
      {L"span", eElement::Span},   {L"a", eElement::Link},    {L"pre", eElement::Pre},
  };
  for (auto const& [elementName, element] : kElements)
    if (name == elementName)
      return element;
  return eElement::Unknown;
}

// The colour in a style attribute such as "font-weight: bold; color: #f80".
std::optional<Colour> colourInStyle(std::wstring_view style) {
  while (!style.empty()) {
    std::size_t const semicolon = style.find(L';');
    std::wstring_view const declaration = style.substr(0, semicolon);
    std::size_t const colon = declaration.find(L':');
    if (colon != std::wstring_view::npos) {
      std::wstring name = lowerCase(declaration.substr(0, colon));
      std::erase_if(name, isSpace);
      if (name == L"color")
        return HTMLUtils::parseColour(declaration.substr(colon + 1));
    }
    if (semicolon == std::wstring_view::npos)
      break;
    style.remove_prefix(semicolon + 1);
  }
  return std::nullopt;
}

// Code points that cannot be shown: control characters other than tab and
// line breaks, surrogates and values beyond Unicode.
bool isShowable(wchar_t c) {
  auto const value = static_cast<std::uint32_t>(c);
  if (value < 0x20)
    return c == L'\t' || c == L'\n' || c == L'\r';
  return value != 0x7F && !(value >= 0xD800 && value <= 0xDFFF) && value <= 0x10FFFF;
}

// ---- Building paragraphs ----

class Parser {
public:
  explicit Parser(Palette const& palette) : linkColour_(palette.subheadingText()) {
    OpenElement root;
    root.colour = palette.text();
    open_.push_back(std::move(root));
    paragraphs_.emplace_back();
  }

  std::vector<HTMLParagraph> run(std::wstring_view html) {
    std::size_t i = 0;
    while (i < html.size()) {
      std::size_t const next = html.find(L'<', i);
      if (next != i) {
        std::size_t const end = next == std::wstring_view::npos ? html.size() : next;
        appendText(HTMLUtils::unescape(html.substr(i, end - i)).view());
        i = end;
        continue;
      }
      std::optional<Tag> const tag = readTag(html, i);
      if (!tag) {
        appendText(L"<");
        ++i;
      } else if (!applyTag(*tag)) {
        appendText(html.substr(i, tag->end - i));
        i = tag->end;
      } else {
        i = tag->end;
      }
    }
    if (paragraphs_.size() > 1 && paragraphs_.back().runs.empty() && !lastStartedByBreak_)
      paragraphs_.pop_back();
    return std::move(paragraphs_);
  }

private:
  struct OpenElement {
    std::wstring name;
    unsigned style = 0;
    Colour colour;
    WString link;
    bool pre = false;
  };

  // False for a tag outside the subset, which is then shown as text.
  bool applyTag(Tag const& tag) {
    eElement const element = elementOf(tag.name);
    switch (element) {
    case eElement::Unknown:
      return false;
    case eElement::Paragraph:
      endParagraph();
      return true;
    case eElement::Break:
      if (!tag.closing)
        breakLine();
      return true;
    case eElement::Pre:
      endParagraph();
      if (tag.closing) {
        close(tag.name);
      } else {
        open(tag).pre = true;
        skipNextLineBreak_ = true;
      }
      return true;
    default:
      break;
    }
    if (tag.closing) {
      close(tag.name);
      return true;
    }
    OpenElement& opened = open(tag);
    switch (element) {
    case eElement::Bold:
      opened.style |= HTMLRun::kBold;
      break;
    case eElement::Italic:
      opened.style |= HTMLRun::kItalic;
      break;
    case eElement::Underline:
      opened.style |= HTMLRun::kUnderline;
      break;
    case eElement::Font:
      if (auto const value = attribute(tag, L"color"))
        if (auto const colour = HTMLUtils::parseColour(HTMLUtils::unescape(*value).view()))
          opened.colour = *colour;
      break;
    case eElement::Span:
      if (auto const value = attribute(tag, L"style"))
        if (auto const colour = colourInStyle(HTMLUtils::unescape(*value).view()))
          opened.colour = *colour;
      break;
    case eElement::Link:
      if (auto const value = attribute(tag, L"href")) {
        opened.link = HTMLUtils::unescape(*value);
        opened.colour = linkColour_;
        opened.style |= HTMLRun::kUnderline;
      }
      break;
    default:
      break;
    }
    return true;
  }

  OpenElement& open(Tag const& tag) {
    OpenElement element = open_.back();
    element.name = tag.name;
    open_.push_back(std::move(element));
    return open_.back();
  }

  // Closes the innermost open element of that name and everything opened
  // inside it; a closing tag with nothing to close is dropped.
  void close(std::wstring const& name) {
    for (std::size_t i = open_.size(); i-- > 1;) {
      if (open_[i].name == name) {
        open_.resize(i);
        return;
      }
    }
  }

  void endParagraph() {
    if (!paragraphs_.back().runs.empty()) {
      paragraphs_.emplace_back();
      lastStartedByBreak_ = false;
    }
  }

  void breakLine() {
    paragraphs_.emplace_back();
    lastStartedByBreak_ = true;
  }

  void appendText(std::wstring_view text) {
    bool const pre = open_.back().pre;
    std::wstring visible;
    for (std::size_t i = 0; i < text.size(); ++i) {
      wchar_t const c = text[i];
      bool const lineBreak = c == L'\n' || c == L'\r';
      if (skipNextLineBreak_) {
        skipNextLineBreak_ = false;
        if (lineBreak) {
          if (c == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n')
            ++i;
          continue;
        }
      }
      if (!isShowable(c))
        continue;
      if (lineBreak && pre) {
        appendRun(visible);
        visible.clear();
        breakLine();
        if (c == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n')
          ++i;
      } else {
        visible += lineBreak ? L' ' : c;
      }
    }
    appendRun(visible);
  }

  void appendRun(std::wstring_view text) {
    if (text.empty())
      return;
    OpenElement const& current = open_.back();
    std::vector<HTMLRun>& runs = paragraphs_.back().runs;
    if (!runs.empty() && runs.back().style == current.style && runs.back().colour == current.colour &&
        runs.back().link == current.link) {
      runs.back().text += text;
      return;
    }
    runs.push_back(HTMLRun{WString(text), current.style, current.colour, current.link});
  }

  Colour linkColour_;
  std::vector<OpenElement> open_;
  std::vector<HTMLParagraph> paragraphs_;
  bool lastStartedByBreak_ = false;
  bool skipNextLineBreak_ = false;
};

// ---- Laying out ----

struct Chunk {
  std::size_t run;
  WString text;
  double width;
};

double measureWidth(WString const& text, Glib::FontDesc const& font) {
  return Glib::TextLayout::measure(text, font).width;
}

// Lays out one paragraph from display line `line`; gives the line after it.
int layoutParagraph(std::vector<HTMLPlacedText>& placed, std::size_t paragraphIndex, HTMLParagraph const& paragraph,
                    double width, Glib::FontDesc const& base, int line) {
  std::vector<Chunk> spaces;
  std::vector<Chunk> word;
  double x = 0.0;
  bool lineHasWord = false;

  auto place = [&](std::vector<Chunk>& chunks, bool isSpace) {
    for (Chunk& chunk : chunks) {
      placed.push_back(HTMLPlacedText{paragraphIndex, chunk.run, std::move(chunk.text), x, chunk.width, line, isSpace});
      x += chunk.width;
    }
    chunks.clear();
  };
  auto flushWord = [&] {
    if (word.empty())
      return;
    double spaceWidth = 0.0;
    double wordWidth = 0.0;
    for (Chunk const& chunk : spaces)
      spaceWidth += chunk.width;
    for (Chunk const& chunk : word)
      wordWidth += chunk.width;
    if (lineHasWord && width > 0.0 && x + spaceWidth + wordWidth > width) {
      ++line;
      x = 0.0;
      spaces.clear();
    }
    place(spaces, true);
    place(word, false);
    lineHasWord = true;
  };

  for (std::size_t runIndex = 0; runIndex < paragraph.runs.size(); ++runIndex) {
    HTMLRun const& run = paragraph.runs[runIndex];
    Glib::FontDesc const font = HTMLRenderer::fontFor(run, base);
    std::wstring_view const text = run.text.view();
    std::size_t i = 0;
    while (i < text.size()) {
      bool const space = text[i] == L' ';
      std::size_t end = i;
      while (end < text.size() && (text[end] == L' ') == space)
        ++end;
      WString piece(text.substr(i, end - i));
      double const pieceWidth = measureWidth(piece, font);
      if (space) {
        flushWord();
        spaces.push_back(Chunk{runIndex, std::move(piece), pieceWidth});
      } else {
        word.push_back(Chunk{runIndex, std::move(piece), pieceWidth});
      }
      i = end;
    }
  }
  flushWord();
  return line + 1;
}

// How far below the top of a display line `lineHeight` pixels tall its
// baseline sits, the font centred in the line.
double baselineBelowTop(Glib::FontDesc const& font, int lineHeight) {
  Glib::FontMetrics const metrics = Glib::TextLayout::fontMetrics(font);
  return std::round((lineHeight - metrics.lineHeight) / 2.0 + metrics.ascent);
}

} // namespace

WString HTMLRenderer::convertToHTML(std::wstring_view text, unsigned flags) {
  WString const escaped = (flags & kEscapeMarkup) ? HTMLUtils::escape(text) : WString(text);
  if (!(flags & kLineBreaksToTags))
    return escaped;
  std::wstring_view const source = escaped.view();
  WString result;
  result.resizeFor(source.size());
  for (std::size_t i = 0; i < source.size(); ++i) {
    if (source[i] == L'\r' || source[i] == L'\n') {
      if (source[i] == L'\r' && i + 1 < source.size() && source[i + 1] == L'\n')
        ++i;
      result += L"<br>";
    } else {
      result += source[i];
    }
  }
  return result;
}

bool HTMLRenderer::isHTML(std::wstring_view text) {
  for (std::size_t i = text.find(L'<'); i != std::wstring_view::npos; i = text.find(L'<', i + 1)) {
    std::optional<Tag> const tag = readTag(text, i);
    if (tag && elementOf(tag->name) != eElement::Unknown)
      return true;
  }
  return false;
}

std::vector<HTMLParagraph> HTMLRenderer::parse(std::wstring_view html, Palette const& palette) {
  return Parser(palette).run(html);
}

WString HTMLRenderer::visibleText(std::vector<HTMLParagraph> const& paragraphs) {
  WString result;
  for (std::size_t i = 0; i < paragraphs.size(); ++i) {
    if (i > 0)
      result += L'\n';
    for (HTMLRun const& run : paragraphs[i].runs)
      result += run.text;
  }
  return result;
}

Glib::FontDesc HTMLRenderer::fontFor(HTMLRun const& run, Glib::FontDesc const& font) {
  Glib::FontDesc result = Glib::TextLayout::resolve(font);
  if (run.style & HTMLRun::kBold)
    result.setBold(true);
  if (run.style & HTMLRun::kItalic)
    result.setItalic(true);
  return result;
}

std::vector<HTMLPlacedText> HTMLRenderer::layout(std::vector<HTMLParagraph> const& paragraphs, double width,
                                                 Glib::FontDesc const& font) {
  std::vector<HTMLPlacedText> placed;
  int line = 0;
  for (std::size_t i = 0; i < paragraphs.size(); ++i)
    line = layoutParagraph(placed, i, paragraphs[i], width, font, line);
  return placed;
}

int HTMLRenderer::calcNumDisplayLines(std::vector<HTMLParagraph> const& paragraphs, double width,
                                      Glib::FontDesc const& font) {
  int lines = 0;
  std::vector<HTMLPlacedText> placed;
  for (std::size_t i = 0; i < paragraphs.size(); ++i)
    lines = layoutParagraph(placed, i, paragraphs[i], width, font, lines);
  return std::max(lines, 1);
}

double HTMLRenderer::calcMaxWidth(std::vector<HTMLParagraph> const& paragraphs, Glib::FontDesc const& font) {
  double widest = 0.0;
  for (HTMLPlacedText const& piece : layout(paragraphs, 0.0, font))
    if (!piece.isSpace)
      widest = std::max(widest, piece.x + piece.width);
  return widest;
}

void HTMLRenderer::render(CanvasRenderer& renderer, std::vector<HTMLParagraph> const& paragraphs,
                          Zo::Box<int> const& area, int lineHeight, Glib::FontDesc const& font, int firstLine) {
  if (lineHeight <= 0 || area.empty())
    return;
  Glib::FontDesc const base = Glib::TextLayout::resolve(font);
  double const baselineOffset = baselineBelowTop(base, lineHeight);
  Glib::FontMetrics const metrics = Glib::TextLayout::fontMetrics(base);
  // Underlines sit halfway down the descent, as thick as the font is large.
  double const underlineGap = std::max(1.0, std::round(metrics.descent / 2.0));
  double const underlineWidth = std::max(1.0, std::round(metrics.lineHeight / 16.0));
  for (HTMLPlacedText const& piece : layout(paragraphs, area.width(), font)) {
    int const visibleLine = piece.line - firstLine;
    int const lineTop = area.y1 - visibleLine * lineHeight;
    if (visibleLine < 0 || lineTop <= area.y0)
      continue;
    HTMLRun const& run = paragraphs[piece.paragraph].runs[piece.run];
    double const baseline = lineTop - baselineOffset;
    double const left = area.x0 + piece.x;
    if (!piece.isSpace)
      renderer.renderPrimitive(
          Glib::TextDescription(piece.text, XY<double>(left, baseline), fontFor(run, font), run.colour));
    if (run.style & HTMLRun::kUnderline) {
      double const y = baseline - underlineGap;
      renderer.renderPrimitive(
          Glib::LineDescription(XY<double>(left, y), XY<double>(left + piece.width, y), underlineWidth, run.colour));
    }
  }
}

WString HTMLRenderer::linkAt(std::vector<HTMLParagraph> const& paragraphs, double width, int lineHeight, double x,
                             double yFromTop, Glib::FontDesc const& font, int firstLine) {
  if (lineHeight <= 0 || yFromTop < 0.0)
    return {};
  int const line = firstLine + static_cast<int>(yFromTop / lineHeight);
  for (HTMLPlacedText const& piece : layout(paragraphs, width, font)) {
    if (piece.line == line && x >= piece.x && x < piece.x + piece.width) {
      return paragraphs[piece.paragraph].runs[piece.run].link;
    }
  }
  return {};
}
