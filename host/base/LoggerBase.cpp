#include <zowidgets/host/base/LoggerBase.h>

namespace {

// Starts the encoded form of a link; a character no one types.
constexpr wchar_t kLinkMarker[] = L"\u2060link";
constexpr wchar_t kInternalMarker[] = L"\u2060ilink";

LightweightString<wchar_t> withoutTabs(LightweightString<wchar_t> text) {
  if (text.find(L'\t') == LightweightString<wchar_t>::npos)
    return text;
  std::wstring plain = text.str();
  for (wchar_t& c : plain)
    if (c == L'\t')
      c = L' ';
  return LightweightString<wchar_t>(plain);
}

std::vector<LightweightString<wchar_t>> splitAtTabs(std::wstring_view text) {
  std::vector<LightweightString<wchar_t>> pieces;
  for (;;) {
    std::size_t const tab = text.find(L'\t');
    pieces.emplace_back(text.substr(0, tab));
    if (tab == std::wstring_view::npos)
      return pieces;
    text.remove_prefix(tab + 1);
  }
}

} // namespace

void LoggerBase::setFilename(LightweightString<wchar_t> folder, LightweightString<wchar_t> name) {
  if (!folder.empty() && !folder.endsWith(L"/"))
    folder += L"/";
  setFilename(folder + name);
}

LoggerBase::HyperLink LoggerBase::HyperLink::fromString(LightweightString<wchar_t> const& text) {
  std::wstring_view const view = text.view();
  for (auto [marker, internal] :
       {std::pair{std::wstring_view(kLinkMarker), false}, std::pair{std::wstring_view(kInternalMarker), true}}) {
    if (!view.starts_with(marker) || view.size() == marker.size() || view[marker.size()] != L'\t')
      continue;
    auto pieces = splitAtTabs(view.substr(marker.size() + 1));
    LightweightString<wchar_t> description = pieces.front();
    pieces.erase(pieces.begin());
    std::erase_if(pieces, [](auto const& target) { return target.empty(); });
    return HyperLink(description, std::move(pieces), internal);
  }
  if (text.empty())
    return {};
  return HyperLink({}, {text});
}

LightweightString<wchar_t> LoggerBase::HyperLink::toString() const {
  LightweightString<wchar_t> text(internal_ ? kInternalMarker : kLinkMarker);
  text += L"\t";
  text += withoutTabs(description_);
  for (auto const& target : targets_) {
    text += L"\t";
    text += withoutTabs(target);
  }
  return text;
}

LightweightString<wchar_t> LoggerBase::HyperLink::getDescription() const {
  if (!description_.empty() || targets_.empty())
    return description_;
  return targets_.front();
}
