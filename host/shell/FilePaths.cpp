#include <zowidgets/host/shell/FilePaths.h>

namespace {

using WString = LightweightString<wchar_t>;
using View = std::wstring_view;

constexpr wchar_t kSeparator = L'/';

// Where the file name starts: just after the last separator.
std::size_t fileNameStart(View path) {
  auto last = path.rfind(kSeparator);
  return last == View::npos ? 0 : last + 1;
}

// Position of the dot that begins the extension, or npos.
std::size_t extensionDot(View path) {
  auto start = fileNameStart(path);
  auto name = path.substr(start);
  auto firstNonDot = name.find_first_not_of(L'.');
  if (firstNonDot == View::npos)
    return View::npos;
  auto dot = name.rfind(L'.');
  if (dot == View::npos || dot < firstNonDot)
    return View::npos;
  return start + dot;
}

} // namespace

WString joinPaths(WString const& folder, WString const& name) {
  if (folder.empty())
    return name;
  if (name.empty())
    return folder;
  View head = folder.view();
  while (!head.empty() && head.back() == kSeparator)
    head.remove_suffix(1);
  View tail = name.view();
  while (!tail.empty() && tail.front() == kSeparator)
    tail.remove_prefix(1);
  WString joined(head);
  joined += kSeparator;
  joined += tail;
  return joined;
}

WString stripPath(WString const& path) { return path.substr(fileNameStart(path.view())); }

WString getPath(WString const& path) { return path.substr(0, fileNameStart(path.view())); }

WString stripExtension(WString const& path) {
  auto dot = extensionDot(path.view());
  return dot == View::npos ? path : path.substr(0, dot);
}

WString getExtension(WString const& path) {
  auto dot = extensionDot(path.view());
  return dot == View::npos ? WString() : path.substr(dot + 1);
}

bool matchesWildcard(WString const& name, WString const& pattern) {
  View text = name.view();
  View wild = pattern.view();
  std::size_t t = 0;
  std::size_t w = 0;
  // The last '*' seen and the text position it was tried against: on a
  // mismatch the star swallows one more character and matching resumes.
  std::size_t starAt = View::npos;
  std::size_t resumeAt = 0;
  while (t < text.size()) {
    if (w < wild.size() && wild[w] == L'*') {
      starAt = w++;
      resumeAt = t;
    } else if (w < wild.size() && (wild[w] == L'?' || wild[w] == text[t])) {
      ++t;
      ++w;
    } else if (starAt != View::npos) {
      w = starAt + 1;
      t = ++resumeAt;
    } else {
      return false;
    }
  }
  while (w < wild.size() && wild[w] == L'*')
    ++w;
  return w == wild.size();
}
