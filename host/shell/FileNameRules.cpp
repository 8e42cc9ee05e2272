#include <zowidgets/host/shell/FileNameRules.h>

#include <zowidgets/host/shell/FilePaths.h>
#include <zowidgets/host/shell/OS.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace Zo::FilespecUtils {
namespace {

using WString = LightweightString<wchar_t>;
using View = std::wstring_view;

constexpr View kIllegalPrintable = L"/\\:*?\"<>|";

// Enough tries to find a free name in any real folder; past it the last
// candidate is given rather than looping on a file system that lies.
constexpr int kMaxUniqueTries = 10000;

bool isSpace(wchar_t c) { return c == L' ' || (c >= L'\t' && c <= L'\r') || c == L'\u00A0' || c == L'\u3000'; }

std::size_t utf8Bytes(wchar_t c) {
  auto code = static_cast<std::uint32_t>(c);
  return code < 0x80 ? 1 : code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
}

std::size_t utf8Bytes(View text) {
  std::size_t bytes = 0;
  for (wchar_t c : text)
    bytes += utf8Bytes(c);
  return bytes;
}

void cutToBytes(std::wstring& text, std::size_t maxBytes) {
  std::size_t bytes = 0;
  std::size_t keep = 0;
  while (keep < text.size() && bytes + utf8Bytes(text[keep]) <= maxBytes)
    bytes += utf8Bytes(text[keep++]);
  text.resize(keep);
}

void trimLeadingSpace(std::wstring& text) {
  auto first = std::find_if_not(text.begin(), text.end(), isSpace);
  text.erase(text.begin(), first);
}

// Drops trailing white space and, when the text ends the whole name, trailing
// dots too: both vanish or confuse on the file systems names travel to.
void trimTrailing(std::wstring& text, bool endsName) {
  while (!text.empty() && (isSpace(text.back()) || (endsName && text.back() == L'.')))
    text.pop_back();
}

std::wstring replaceIllegal(View text, wchar_t replacement) {
  std::wstring clean(text);
  std::replace_if(clean.begin(), clean.end(), isIllegalNameCharacter, replacement);
  return clean;
}

bool isReservedDeviceName(View base) {
  static constexpr std::array<View, 4> kPlain = {L"CON", L"PRN", L"AUX", L"NUL"};
  auto upper = [](wchar_t c) { return c >= L'a' && c <= L'z' ? wchar_t(c - L'a' + L'A') : c; };
  std::wstring word;
  std::transform(base.begin(), base.end(), std::back_inserter(word), upper);
  if (std::find(kPlain.begin(), kPlain.end(), word) != kPlain.end())
    return true;
  return word.size() == 4 && (word.starts_with(L"COM") || word.starts_with(L"LPT")) && word[3] >= L'1' &&
         word[3] <= L'9';
}

// The extension as ".ext", cleaned like a name; empty for none.
std::wstring cleanExtension(View extension, wchar_t replacement) {
  auto clean = replaceIllegal(extension, replacement);
  trimLeadingSpace(clean);
  trimTrailing(clean, true);
  if (!clean.empty() && clean.front() != L'.')
    clean.insert(clean.begin(), L'.');
  return clean == L"." ? std::wstring() : clean;
}

// A file name of stem + suffix + extension, the stem made valid and cut so
// that the whole fits; the suffix and extension are valid already.
std::wstring assemble(View name, View suffix, View extension, wchar_t replacement) {
  std::wstring stem(name);
  trimLeadingSpace(stem);
  trimTrailing(stem, suffix.empty() && extension.empty());
  stem = replaceIllegal(stem, replacement);
  trimTrailing(stem, suffix.empty() && extension.empty());
  auto baseEnd = std::min(stem.find(L'.'), stem.size());
  if (baseEnd > 0 && isReservedDeviceName(View(stem).substr(0, baseEnd)))
    stem.insert(baseEnd, 1, replacement);
  std::wstring tail = std::wstring(suffix) + std::wstring(extension);
  cutToBytes(tail, kMaxNameBytes - utf8Bytes(replacement));
  cutToBytes(stem, kMaxNameBytes - utf8Bytes(tail));
  trimTrailing(stem, tail.empty());
  if (stem.empty())
    stem.assign(1, replacement);
  return stem + tail;
}

wchar_t usableReplacement(wchar_t replacement) {
  return isIllegalNameCharacter(replacement) || isSpace(replacement) || replacement == L'.' ? L'_' : replacement;
}

} // namespace

WString getIllegalNameCharacters() {
  std::wstring list(kIllegalPrintable);
  for (wchar_t c = 1; c < 0x20; ++c)
    list += c;
  return WString(list);
}

bool isIllegalNameCharacter(wchar_t c) noexcept {
  auto code = static_cast<std::uint32_t>(c);
  return code < 0x20 || (code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF ||
         kIllegalPrintable.find(c) != View::npos;
}

WString makeValidFileName(WString const& text, wchar_t replacement) {
  return WString(assemble(text.view(), View(), View(), usableReplacement(replacement)));
}

bool isValidFileName(WString const& name) { return makeValidFileName(name) == name; }

WString makeValidFilespec(WString const& folder, WString const& name, WString const& extension, bool makeUnique,
                          wchar_t replacement) {
  replacement = usableReplacement(replacement);
  auto ext = cleanExtension(extension.view(), replacement);
  auto path = joinPaths(folder, WString(assemble(name.view(), View(), ext, replacement)));
  for (int copy = 2; makeUnique && copy <= kMaxUniqueTries && OS().fileExists(path); ++copy) {
    auto suffix = L" (" + std::to_wstring(copy) + L")";
    path = joinPaths(folder, WString(assemble(name.view(), suffix, ext, replacement)));
  }
  return path;
}

} // namespace Zo::FilespecUtils

bool fileNameValid(LightweightString<wchar_t> const& path) {
  return Zo::FilespecUtils::isValidFileName(stripPath(path));
}
