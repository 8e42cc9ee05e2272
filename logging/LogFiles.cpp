#include <zowidgets/logging/LogFiles.h>

#include <zowidgets/host/base/TextFile.h>
#include <zowidgets/host/drawing/HTMLUtils.h>
#include <zowidgets/host/shell/FileNameRules.h>

#include <cwctype>
#include <string>

namespace {

bool endsWithTxt(LightweightString<wchar_t> const& name) {
  std::wstring_view const view = name.view();
  if (view.size() < 4)
    return false;
  std::wstring_view const tail = view.substr(view.size() - 4);
  auto lower = [](wchar_t c) { return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c))); };
  return tail[0] == L'.' && lower(tail[1]) == L't' && lower(tail[2]) == L'x' && lower(tail[3]) == L't';
}

// Escaped for markup, and kept to ASCII with numeric references.
LightweightString<wchar_t> asciiHTML(LightweightString<wchar_t> const& text) {
  LightweightString<wchar_t> const escaped = HTMLUtils::escape(text.view());
  std::wstring out;
  out.reserve(escaped.size());
  for (wchar_t c : escaped.view()) {
    if (c >= 0x20 && c < 0x7F) {
      out += c;
    } else {
      wchar_t buffer[16];
      std::swprintf(buffer, 16, L"&#x%X;", static_cast<unsigned>(c));
      out += buffer;
    }
  }
  return LightweightString<wchar_t>(out);
}

LightweightString<wchar_t> coloured(LightweightString<wchar_t> const& text, double r, double g, double b) {
  return HTMLUtils::addColourTags(asciiHTML(text).view(), Colour(r, g, b));
}

LightweightString<wchar_t> styled(LightweightString<wchar_t> const& text, unsigned style) {
  return HTMLUtils::addStyleTags(asciiHTML(text).view(), style);
}

void addItemLines(LoggerBase::Item const& item, std::vector<LightweightString<wchar_t>>& lines) {
  switch (item.type) {
  case LoggerBase::kOutputPlain:
    lines.push_back(HTMLUtils::addParagraphTags(asciiHTML(item.text).view()));
    return;
  case LoggerBase::kOutputWarning:
    lines.push_back(coloured(item.text, 0.6, 0.6, 0.0));
    return;
  case LoggerBase::kOutputDim:
    lines.push_back(styled(item.text, 2));
    return;
  case LoggerBase::kOutputError:
    lines.push_back(coloured(item.text, 1.0, 0.0, 0.0));
    return;
  case LoggerBase::kOutputStatusLine:
  case LoggerBase::kOutputDivider:
    lines.emplace_back();
    lines.push_back(styled(item.text, 1));
    return;
  case LoggerBase::kOutputSubheading:
    lines.push_back(styled(item.text, 1));
    return;
  case LoggerBase::kOutputSuccess:
    lines.push_back(coloured(item.text, 0.0, 0.8, 0.2));
    return;
  default:
    // Unstyled rows, links and unknown kinds: the file carries no link rows.
    lines.emplace_back();
    return;
  }
}

} // namespace

namespace LogFiles {

LightweightString<wchar_t> textPath(LightweightString<wchar_t> const& folder, LightweightString<wchar_t> const& name) {
  LightweightString<wchar_t> const bare = endsWithTxt(name) ? name.substr(0, name.size() - 4) : name;
  return Zo::FilespecUtils::makeValidFilespec(folder, bare, L".txt", false, L'_');
}

bool saveText(std::vector<LightweightString<wchar_t>> const& lines, LightweightString<wchar_t> const& path) {
  TextFile file(path, false);
  for (auto const& line : lines)
    file.appendLine(line);
  return file.save(path, TextFile::kUnixEndOfLine);
}

LightweightString<wchar_t> htmlPath(LightweightString<wchar_t> const& folder) {
  return Zo::FilespecUtils::makeValidFilespec(folder, L"TaskLog", L".html", false, L'_');
}

std::vector<LightweightString<wchar_t>> htmlLines(std::vector<LoggerBase::Item> const& items) {
  std::vector<LightweightString<wchar_t>> lines;
  lines.reserve(items.size() + 2);
  lines.emplace_back(L"<pre>");
  for (auto const& item : items)
    addItemLines(item, lines);
  lines.emplace_back(L"</pre>");
  return lines;
}

bool saveHtml(std::vector<LoggerBase::Item> const& items, LightweightString<wchar_t> const& path) {
  return saveText(htmlLines(items), path);
}

} // namespace LogFiles
