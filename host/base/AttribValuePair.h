#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <vector>

namespace Zo {

// "attribute=value" text, as in "enabled=true,mode=1|2". Splitting happens at
// the first separator, so the value may contain more of them; white space
// around either part is dropped. A pair is valid when it has an attribute:
// text without a separator, or with nothing before it, gives an invalid pair.
class ZO_API AttribValuePair {
public:
  AttribValuePair() = default;
  AttribValuePair(LightweightString<char> const& text, char separator);
  // Taken as given, without trimming.
  AttribValuePair(LightweightString<char> const& attrib, LightweightString<char> const& value)
      : attrib_(attrib), value_(value) {}

  bool valid() const noexcept { return !attrib_.empty(); }
  LightweightString<char> const& attrib() const noexcept { return attrib_; }
  LightweightString<char> const& value() const noexcept { return value_; }

  LightweightString<char> asString(char separator) const;

  // Splits `text` at each list separator into pairs, keeping only the valid
  // ones; there is no escape, so values cannot contain the list separator.
  static std::vector<AttribValuePair> vecFromString(LightweightString<char> const& text, char separator,
                                                    char listSeparator);

  friend bool operator==(AttribValuePair const&, AttribValuePair const&) = default;

private:
  LightweightString<char> attrib_;
  LightweightString<char> value_;
};

} // namespace Zo
