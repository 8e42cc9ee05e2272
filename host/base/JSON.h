#pragma once

#include <zowidgets/host/base/JSONBuilder.h>
#include <zowidgets/host/base/JSONElement.h>
#include <zowidgets/host/base/JSONPersistable.h>
#include <zowidgets/host/base/LightweightString.h>

#include <cstddef>
#include <string>
#include <string_view>

// Reading and writing JSON. parse() and parseFile() give the root element of
// a document, or null for text that is not exactly one JSON value (RFC 8259,
// nothing before or after but white space). They never throw; nesting deeper
// than ElementAssembler::kMaxDepth is refused like any other bad input, and so
// is a number too large for a double. A number too small for one reads as a
// zero of its sign; every other number reads as the nearest double.
// docs/host-text-forms.md describes the model and the written form.
namespace JSON {

// The text must hold Unicode scalar values: a surrogate or a value beyond
// U+10FFFF inside a string makes it malformed.
ZO_API Zo::Ptr<Element> parse(LightweightString<wchar_t> const& text) noexcept;

// Why a text did not parse: where (line and column from 1, counting
// characters; 0 when the problem has no one place) and what.
struct ZO_API ParseError {
  int line = 0;
  int column = 0;
  std::string message;

  // "line 3, column 7: " and the message; the message alone without a place.
  std::string describe() const;
  // Where line and column point, counted in characters of `text`; 0 without
  // a place.
  std::size_t offsetIn(std::wstring_view text) const;
};
// The same, saying what is wrong when the result is null.
ZO_API Zo::Ptr<Element> parse(LightweightString<wchar_t> const& text, ParseError& error) noexcept;

// Reads the file's bytes as UTF-8, skipping a leading byte-order mark; each
// malformed sequence reads as U+FFFD, so a stray Latin-1 byte inside a string
// does not lose the whole file. Null when the file cannot be read.
ZO_API Zo::Ptr<Element> parseFile(LightweightString<wchar_t> const& path) noexcept;

} // namespace JSON
