#include <zowidgets/host/base/TextSearch.h>

#include <string_view>
#include <vector>

namespace {

struct Token {
  enum Kind { kLiteral, kAnyOne, kAnyRun };
  Kind kind;
  wchar_t ch;
};

using Tokens = std::vector<Token>;

// Lower case for the letters of the Latin, Greek and Cyrillic scripts; other
// characters are their own fold.
wchar_t foldCase(wchar_t c) {
  // Most text is ASCII: one test, not the whole table.
  if (c < 0xC0)
    return c >= L'A' && c <= L'Z' ? c + 32 : c;
  auto between = [c](wchar_t first, wchar_t last) { return c >= first && c <= last; };
  bool even = c % 2 == 0;
  if (between(L'A', L'Z') || (between(0xC0, 0xDE) && c != 0xD7))
    return c + 32;
  if ((between(0x100, 0x12F) || between(0x132, 0x137) || between(0x14A, 0x177)) && even)
    return c + 1;
  if ((between(0x139, 0x148) || between(0x179, 0x17E)) && !even)
    return c + 1;
  if (c == 0x178)
    return 0xFF;
  if (between(0x391, 0x3AB) && c != 0x3A2)
    return c + 32;
  if (c == 0x3C2) // final sigma
    return 0x3C3;
  if (c == 0x386)
    return 0x3AC;
  if (between(0x388, 0x38A))
    return c + 37;
  if (c == 0x38C)
    return 0x3CC;
  if (between(0x38E, 0x38F))
    return c + 63;
  if (between(0x410, 0x42F))
    return c + 32;
  if (between(0x400, 0x40F))
    return c + 80;
  return c;
}

// Glob match of `pattern` against `text`. Unanchored, the pattern may start
// and end anywhere in the text. Backtracks only to the latest '*', which is
// enough for '*' and '?' patterns.
bool globMatch(Tokens const& pattern, std::wstring_view text, bool fold, bool anchored) {
  std::size_t p = 0;
  std::size_t t = 0;
  bool haveStar = !anchored;
  std::size_t afterStar = 0;
  std::size_t starText = 0;
  auto same = [&](Token const& token, wchar_t c) {
    return token.kind == Token::kAnyOne || token.ch == (fold ? foldCase(c) : c);
  };
  while (true) {
    if (p == pattern.size() && (!anchored || t == text.size()))
      return true;
    if (p < pattern.size() && pattern[p].kind == Token::kAnyRun) {
      haveStar = true;
      afterStar = ++p;
      starText = t;
    } else if (p < pattern.size() && t < text.size() && same(pattern[p], text[t])) {
      ++p;
      ++t;
    } else if (haveStar && starText < text.size()) {
      p = afterStar;
      t = ++starText;
    } else {
      return false;
    }
  }
}

bool isSpaceLiteral(Token const& token, bool escaped) {
  return token.kind == Token::kLiteral && token.ch == L' ' && !escaped;
}

} // namespace

namespace TextSearch {

struct Criteria::Compiled {
  struct Alternative {
    Tokens exact;
    Tokens folded;
  };
  bool negated = false;
  std::vector<Alternative> alternatives;

  explicit Compiled(std::wstring_view pattern);
  void addAlternative(Tokens tokens, std::vector<bool> const& escaped);
};

Criteria::Compiled::Compiled(std::wstring_view pattern) {
  if (pattern.starts_with(L'!')) {
    negated = true;
    pattern.remove_prefix(1);
  }
  Tokens tokens;
  std::vector<bool> escaped; // per token, so that "\ " survives trimming
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    wchar_t c = pattern[i];
    if (c == L'\\' && i + 1 < pattern.size()) {
      tokens.push_back({Token::kLiteral, pattern[++i]});
      escaped.push_back(true);
    } else if (c == L'|') {
      addAlternative(std::move(tokens), escaped);
      tokens.clear();
      escaped.clear();
    } else if (c == L'*') {
      if (tokens.empty() || tokens.back().kind != Token::kAnyRun) {
        tokens.push_back({Token::kAnyRun, 0});
        escaped.push_back(false);
      }
    } else {
      tokens.push_back({c == L'?' ? Token::kAnyOne : Token::kLiteral, c});
      escaped.push_back(false);
    }
  }
  addAlternative(std::move(tokens), escaped);
}

void Criteria::Compiled::addAlternative(Tokens tokens, std::vector<bool> const& escaped) {
  std::size_t first = 0;
  std::size_t last = tokens.size();
  while (first < last && isSpaceLiteral(tokens[first], escaped[first]))
    ++first;
  while (last > first && isSpaceLiteral(tokens[last - 1], escaped[last - 1]))
    --last;
  if (first == last)
    return;
  Tokens exact(tokens.begin() + static_cast<std::ptrdiff_t>(first), tokens.begin() + static_cast<std::ptrdiff_t>(last));
  Tokens folded = exact;
  for (Token& token : folded)
    token.ch = foldCase(token.ch);
  alternatives.push_back({std::move(exact), std::move(folded)});
}

Criteria::Criteria() = default;

Criteria::Criteria(wchar_t const* pattern)
    : Criteria(pattern ? LightweightString<wchar_t>(pattern) : LightweightString<wchar_t>()) {}

Criteria::Criteria(LightweightString<wchar_t> const& pattern)
    : pattern_(pattern), compiled_(std::make_shared<Compiled const>(pattern.view())) {}

bool Criteria::empty() const noexcept { return !compiled_ || compiled_->alternatives.empty(); }

bool Criteria::matches(LightweightString<wchar_t> const& text, int flags) const {
  if (empty())
    return true;
  bool fold = (flags & kCaseSensitive) == 0;
  bool anchored = (flags & kSubstring) == 0;
  bool found = false;
  for (auto const& alternative : compiled_->alternatives) {
    if (globMatch(fold ? alternative.folded : alternative.exact, text.view(), fold, anchored)) {
      found = true;
      break;
    }
  }
  return found != compiled_->negated;
}

bool match(LightweightString<wchar_t> const& text, Criteria const& criteria, int flags) {
  return criteria.matches(text, flags);
}

} // namespace TextSearch
