#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <cstddef>
#include <string_view>
#include <vector>

// A text file as a list of lines, held in memory and written in one piece.
// Lines are UTF-8 without their ends; the end of each line is chosen when the
// file is saved. save() replaces the file atomically (Zo::writeFileAtomically):
// the text goes to a temporary file in the same folder, which is renamed over
// the old one, so a crash or a failed write leaves the old file whole.
class ZO_API TextFile {
public:
  // How save() ends each line.
  enum eEndOfLine : int {
    kNativeEndOfLine = 0, // the platform's: "\n" on Linux
    kUnixEndOfLine = 1,   // "\n"
    kDosEndOfLine = 2,    // "\r\n"
  };

  // A file at `path`. With `readExisting`, the lines the file holds now are
  // read (ends "\n", "\r\n" and "\r" all end a line; a missing file gives no
  // lines); without it the list starts empty and the file is left alone until
  // save().
  TextFile(LightweightString<wchar_t> const& path, bool readExisting);

  LightweightString<wchar_t> const& path() const noexcept { return path_; }

  std::size_t numLines() const noexcept { return lines_.size(); }
  LightweightString<char> const& line(std::size_t index) const { return lines_.at(index); }
  void clear() { lines_.clear(); }

  // One line; any line ends inside it are kept as they are.
  void appendLine(LightweightString<char> const& utf8) { lines_.push_back(utf8); }
  void appendLine(LightweightString<wchar_t> const& text) { lines_.push_back(text.toUTF8()); }
  // Text of any number of lines, split at each "\n" (a "\r" before it is
  // dropped). A final line end adds no empty line, so appending what save()
  // writes gives back the same lines.
  void append(std::string_view utf8);

  // The text save() writes: every line followed by the end of `endOfLine`
  // (an unknown style counts as native).
  std::string text(int endOfLine) const;

  // Writes the lines to `path`, or to the path given at construction when
  // `path` is empty, replacing the file atomically; the folder is made if it
  // is missing. False when the file could not be written: the file at the
  // path is then as it was, and errno says why.
  bool save(LightweightString<wchar_t> const& path = {}, int endOfLine = kNativeEndOfLine) const;

private:
  LightweightString<wchar_t> path_;
  std::vector<LightweightString<char>> lines_;
};
