#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <memory>

// Matching text against a pattern as typed into a filter box or written in a
// panel description. docs/host-text-forms.md gives the pattern language; in
// short: '*' and '?' are wildcards, '|' separates alternatives, a leading '!'
// negates the whole pattern, '\' takes the next character literally, and
// letters match without regard to case.
namespace TextSearch {

// Flags for match(). With neither, a pattern must match the whole text,
// ignoring case: a plain word matches only a text equal to it.
inline constexpr int kSubstring = 1;     // match anywhere in the text
inline constexpr int kCaseSensitive = 2; // letters must agree in case

// A pattern, compiled once when constructed. Copies share the compiled form.
class ZO_API Criteria {
public:
  Criteria();
  Criteria(wchar_t const* pattern);
  Criteria(LightweightString<wchar_t> const& pattern);

  // True when the pattern has no alternatives (blank, or only separators);
  // empty criteria match everything.
  bool empty() const noexcept;
  LightweightString<wchar_t> const& pattern() const noexcept { return pattern_; }

  bool matches(LightweightString<wchar_t> const& text, int flags) const;

private:
  struct Compiled;
  LightweightString<wchar_t> pattern_;
  std::shared_ptr<Compiled const> compiled_;
};

ZO_API bool match(LightweightString<wchar_t> const& text, Criteria const& criteria, int flags);

} // namespace TextSearch
