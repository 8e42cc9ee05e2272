#include <zowidgets/logging/LogLinkMenu.h>

#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/shell/OS.h>

namespace {

constexpr ResId kCopyText = 10019;
constexpr ResId kOpenText = 10071;
constexpr ResId kRevealText = 12078;

std::vector<LightweightString<wchar_t>> splitTargets(LightweightString<wchar_t> const& joined) {
  std::vector<LightweightString<wchar_t>> targets;
  std::wstring_view rest = joined.view();
  for (;;) {
    std::size_t const comma = rest.find(L',');
    if (std::wstring_view const piece = rest.substr(0, comma); !piece.empty())
      targets.emplace_back(piece);
    if (comma == std::wstring_view::npos)
      return targets;
    rest.remove_prefix(comma + 1);
  }
}

MenuItem entry(ResId text, LightweightString<wchar_t> const& joined,
               void (*action)(LightweightString<wchar_t> const&)) {
  MenuItem item{UIString(resourceStrW(text))};
  item.action = [joined, action](MenuItem const&) { action(joined); };
  return item;
}

} // namespace

namespace LogLinkMenu {

std::vector<MenuItem> entriesFor(LoggerBase::HyperLink const& link) {
  LightweightString<wchar_t> joined;
  for (auto const& target : link.targets()) {
    if (!joined.empty())
      joined += L",";
    joined += target;
  }
  return {entry(kCopyText, joined, copyToClipboard), entry(kOpenText, joined, openFile),
          entry(kRevealText, joined, revealInOS)};
}

void copyToClipboard(LightweightString<wchar_t> const& joined) {
  auto const targets = splitTargets(joined);
  if (!targets.empty())
    OS().copyToClipboard(targets);
}

void openFile(LightweightString<wchar_t> const& joined) {
  auto const targets = splitTargets(joined);
  if (!targets.empty())
    Glib::viewDocument(targets.front());
}

void revealInOS(LightweightString<wchar_t> const& joined) {
  auto const targets = splitTargets(joined);
  if (!targets.empty())
    Glib::revealFiles(targets);
}

} // namespace LogLinkMenu
