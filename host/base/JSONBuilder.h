#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

namespace JSON {

// Writes one JSON document as UTF-8, value by value. The first value started
// at the top is the document; anything added at the top after it has ended
// is ignored. Inside an object each value needs a key (a null key writes "");
// inside an array keys are ignored. Text is escaped as JSON requires, and
// characters that UTF-8 cannot carry (invalid UTF-8 in narrow text, surrogates
// or values beyond U+10FFFF in wide text) are written as U+FFFD, so the output
// is always valid UTF-8. Numbers are written in the shortest form that reads
// back to the same value; infinities and NaN, which JSON cannot hold, are
// written as null.
class ZO_API Builder {
public:
  enum eStyle {
    kCompact = 1, // no white space at all
    kPretty = 2,  // one member per line, indented two spaces per level
  };

  explicit Builder(eStyle style = kPretty);

  void startChild(char const* key = nullptr); // an object
  void startArray(char const* key = nullptr);
  // Ends the innermost open object or array; does nothing when none is open.
  void end();

  void add(char const* key, bool value);
  void add(char const* key, double value);
  // Written with float's shortest form, so 0.1f is written as 0.1.
  void add(char const* key, float value);
  template <std::integral Number>
  requires(!std::same_as<Number, bool>) void add(char const* key, Number value) {
    addInteger(key, static_cast<long long>(value), std::is_unsigned_v<Number>);
  }
  void add(char const* key, char const* utf8);
  void add(char const* key, wchar_t const* text);
  void add(char const* key, LightweightString<char> const& utf8);
  void add(char const* key, LightweightString<wchar_t> const& text);
  void addNull(char const* key);

  // The document so far, with every open object and array closed; empty when
  // nothing has been added.
  LightweightString<char> getText() const;
  // Writes getText(), with a final newline, atomically (a crash leaves any
  // old file whole), making missing folders; false if it cannot be written.
  bool saveToFile(LightweightString<wchar_t> const& path) const;

private:
  struct Level {
    bool isArray;
    bool isEmpty;
  };

  void addInteger(char const* key, long long value, bool isUnsigned);
  void addUTF8(char const* key, std::string_view utf8);
  bool beginValue(char const* key);
  void start(char const* key, bool isArray);
  void newLine(std::string& out, std::size_t depth) const;

  eStyle style_;
  std::string text_;
  std::vector<Level> open_;
  bool rootWritten_ = false;
};

} // namespace JSON
