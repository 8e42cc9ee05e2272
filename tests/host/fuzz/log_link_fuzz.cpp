// libFuzzer target for reading a log row's link (LoggerBase::HyperLink) and
// for writing any log text into the HTML file.
//
// Every input is read as a link as UTF-8. What comes back must write to a
// text that reads back to the same link, and hold no empty target. The same
// text, as a row of each kind, must give HTML lines in which the text is
// wholly escaped: no '<', '>' or '"' of its own, and only ASCII.

#include <zowidgets/host/base/LoggerBase.h>
#include <zowidgets/logging/LogFiles.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

using WString = LightweightString<wchar_t>;

void check(bool condition) {
  if (!condition)
    std::abort();
}

void checkLink(WString const& text) {
  LoggerBase::HyperLink const link = LoggerBase::HyperLink::fromString(text);
  for (auto const& target : link.targets())
    check(!target.empty());
  LoggerBase::HyperLink const again = LoggerBase::HyperLink::fromString(link.toString());
  check(again.isInternal() == link.isInternal());
  check(again.targets().size() == link.targets().size());
  for (std::size_t i = 0; i < link.targets().size(); ++i)
    check(again.targets()[i] == link.targets()[i] || link.targets()[i].find(L'\t') != WString::npos);
}

// The text of a line less the tags its kind of row is wrapped in.
std::wstring_view inner(std::wstring_view line) {
  if (line.empty())
    return line;
  std::size_t const open = line.find(L'>');
  std::size_t const close = line.rfind(L'<');
  check(open != std::wstring_view::npos && close != std::wstring_view::npos && open < close);
  std::wstring_view body = line.substr(open + 1, close - open - 1);
  // Bold, italic and the like nest one tag deep at most.
  while (body.starts_with(L"<") && body.find(L'>') != std::wstring_view::npos) {
    std::size_t const end = body.find(L'>');
    std::size_t const back = body.rfind(L'<');
    check(back > end);
    body = body.substr(end + 1, back - end - 1);
  }
  return body;
}

void checkHTML(WString const& text) {
  for (int type = 0; type <= 10; ++type) {
    auto const lines = LogFiles::htmlLines({LoggerBase::Item(text, static_cast<LoggerBase::eOutputType>(type))});
    check(lines.front() == L"<pre>" && lines.back() == L"</pre>");
    for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
      for (wchar_t c : lines[i].view())
        check(c >= 0x20 && c < 0x7F);
      std::wstring_view const body = inner(lines[i].view());
      check(body.find_first_of(L"<>\"") == std::wstring_view::npos);
    }
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  WString const text = WString::fromUTF8(std::string_view(reinterpret_cast<char const*>(data), size));
  checkLink(text);
  checkHTML(text);
  return 0;
}
