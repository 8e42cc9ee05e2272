#include <zowidgets/diagnostics/detail/GlobFacts.h>
#include <zowidgets/host/toolkit/Glob.h>

#include <array>
#include <charconv>
#include <string>

namespace {

using WString = GlobFacts::WString;

// Indexed by Border::eStyle.
constexpr std::array<wchar_t const*, Border::kStyleCount> kStyleNames{
    L"NoBorder",          L"MenuBorder",          L"DropMenuBorder", L"CurvedPanelBorder",
    L"SquarePanelBorder", L"DarkenedRoundedRect", L"LineBorder",
};

WString wide(std::string const& narrow) { return toWide(narrow); }

} // namespace

WString GlobFacts::typeName(Glob const& widget) { return toWide(widget.idstring()); }

WString GlobFacts::sizeText(XY<int> size) { return wide(std::to_string(size.x) + " x " + std::to_string(size.y)); }

WString GlobFacts::pointText(XY<int> point) { return wide(std::to_string(point.x) + ", " + std::to_string(point.y)); }

WString GlobFacts::yesNo(bool yes) { return yes ? L"Yes" : L"No"; }

WString GlobFacts::borderStyleName(int style) {
  if (style < 0 || style >= Border::kStyleCount)
    return L"";
  return kStyleNames[static_cast<std::size_t>(style)];
}

WString GlobFacts::borderName(Border const& border) {
  if (int const style = border.style(); style >= 0)
    return borderStyleName(style);
  if (border.type() == Border::kSunken)
    return L"SunkenBorder";
  return wide("BorderType " + std::to_string(border.type()));
}

WString GlobFacts::marginsText(Border const& border) {
  return wide(std::to_string(border.left()) + ", " + std::to_string(border.right()) + ", " +
              std::to_string(border.top()) + ", " + std::to_string(border.bottom()));
}

IdStamp GlobFacts::stampFromText(WString const& text) {
  std::string narrow;
  for (wchar_t c : text.view()) {
    if (c > 0x7f)
      return IdStamp::null();
    narrow.push_back(static_cast<char>(c));
  }
  std::array<std::uint32_t, 3> words{};
  char const* at = narrow.data();
  char const* const end = narrow.data() + narrow.size();
  for (std::size_t i = 0; i < words.size(); ++i) {
    auto const [next, error] = std::from_chars(at, end, words[i]);
    if (error != std::errc() || next == at)
      return IdStamp::null();
    at = next;
    if (i + 1 == words.size())
      return at == end ? IdStamp(words[0], words[1], words[2]) : IdStamp::null();
    if (at == end || *at != '.')
      return IdStamp::null();
    ++at;
  }
  return IdStamp::null();
}

WString GlobFacts::stampText(IdStamp const& stamp) { return toWide(stamp.asString()); }
