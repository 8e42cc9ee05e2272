#include <zowidgets/host/base/AtomicFile.h>
#include <zowidgets/host/base/TextFile.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <string>

TextFile::TextFile(LightweightString<wchar_t> const& path, bool readExisting) : path_(path) {
  if (!readExisting || path.empty())
    return;
  std::ifstream in(path.toUTF8().str(), std::ios::binary);
  if (!in)
    return;
  std::string const bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  std::string_view rest(bytes);
  while (!rest.empty()) {
    std::size_t end = rest.find_first_of("\r\n");
    if (end == std::string_view::npos) {
      lines_.emplace_back(rest);
      break;
    }
    lines_.emplace_back(rest.substr(0, end));
    std::size_t next = end + 1;
    if (rest[end] == '\r' && next < rest.size() && rest[next] == '\n')
      ++next;
    rest.remove_prefix(next);
  }
}

void TextFile::append(std::string_view utf8) {
  while (!utf8.empty()) {
    std::size_t end = utf8.find('\n');
    std::string_view line = utf8.substr(0, end);
    if (line.ends_with('\r'))
      line.remove_suffix(1);
    lines_.emplace_back(line);
    if (end == std::string_view::npos)
      break;
    utf8.remove_prefix(end + 1);
  }
}

std::string TextFile::text(int endOfLine) const {
  std::string_view const ending = endOfLine == kDosEndOfLine ? "\r\n" : "\n";
  std::string out;
  for (LightweightString<char> const& line : lines_) {
    out += line.view();
    out += ending;
  }
  return out;
}

bool TextFile::save(LightweightString<wchar_t> const& path, int endOfLine) const {
  LightweightString<wchar_t> const& target = path.empty() ? path_ : path;
  if (target.empty()) {
    errno = ENOENT;
    return false;
  }
  return Zo::writeFileAtomically(target.toUTF8().str(), text(endOfLine));
}
