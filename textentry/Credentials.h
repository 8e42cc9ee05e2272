#pragma once

#include <zowidgets/host/base/LightweightString.h>

// A user name and a password, as a sign-in widget takes and gives them.
struct ZO_API Credentials {
  LightweightString<wchar_t> userName;
  LightweightString<wchar_t> password;

  friend bool operator==(Credentials const&, Credentials const&) = default;
};
