#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <cstdint>

// A name for a new thing that nothing else has and nothing else will get:
// made by CookieJar, it carries a type (a character code, such as 'T' for a
// tutorial), a version and a flags word beside the unique part. Its text,
// asWString(), is plain ASCII letters, digits and '-', so it serves as a file
// name as it stands.
class ZO_API Cookie {
public:
  // The null cookie: type 0, no unique part, empty text.
  Cookie() noexcept = default;

  bool isNull() const noexcept { return time_ == 0 && serial_ == 0; }
  unsigned type() const noexcept { return type_; }
  int version() const noexcept { return version_; }
  int flags() const noexcept { return flags_; }

  // The type as its character when that is an ASCII letter or digit, else in
  // two hex digits; then the version in decimal; then '-', the time of making
  // in microseconds and '-', the making process and a count within it, in hex:
  // "T0-0005F3A2B1C4D5E6-00003A9F00000001". Empty for the null cookie.
  LightweightString<char> asString() const;
  LightweightString<wchar_t> asWString() const;

  friend bool operator==(Cookie const&, Cookie const&) = default;

private:
  friend class CookieJar;
  unsigned type_ = 0;
  int version_ = 0;
  int flags_ = 0;
  std::uint64_t time_ = 0;
  std::uint32_t process_ = 0;
  std::uint32_t serial_ = 0;
};

// Makes cookies. Unique within the process by a count, and across processes
// by the time and the process id. Safe from any thread.
class ZO_API CookieJar {
public:
  static CookieJar& instance();

  // A new cookie of `type` (a character code, 0 to 255 for a character type),
  // `version` and `flags`; the type, version and flags are carried, they do not
  // make it unique.
  Cookie makeCookie(unsigned type, int version, int flags);

private:
  CookieJar() = default;
};
