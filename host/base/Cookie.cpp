#include <zowidgets/host/base/Cookie.h>

#include <atomic>
#include <chrono>
#include <cstdio>

#include <unistd.h>

namespace {

std::atomic<std::uint32_t> g_serial{0};

bool isPlainCharacter(unsigned code) {
  return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
}

} // namespace

CookieJar& CookieJar::instance() {
  static CookieJar jar;
  return jar;
}

Cookie CookieJar::makeCookie(unsigned type, int version, int flags) {
  Cookie cookie;
  cookie.type_ = type;
  cookie.version_ = version;
  cookie.flags_ = flags;
  auto const now = std::chrono::system_clock::now().time_since_epoch();
  cookie.time_ = static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::microseconds>(now).count());
  cookie.process_ = static_cast<std::uint32_t>(::getpid());
  // Counting from 1 keeps a made cookie from ever looking null.
  cookie.serial_ = g_serial.fetch_add(1, std::memory_order_relaxed) + 1;
  return cookie;
}

LightweightString<char> Cookie::asString() const {
  if (isNull())
    return {};
  char text[96];
  char typeText[8];
  if (isPlainCharacter(type_))
    std::snprintf(typeText, sizeof typeText, "%c", static_cast<char>(type_));
  else
    std::snprintf(typeText, sizeof typeText, "%02X", type_ & 0xFFu);
  std::snprintf(text, sizeof text, "%s%d-%016llX-%08X%08X", typeText, version_, static_cast<unsigned long long>(time_),
                static_cast<unsigned>(process_), static_cast<unsigned>(serial_));
  return LightweightString<char>(text);
}

LightweightString<wchar_t> Cookie::asWString() const { return LightweightString<wchar_t>::fromUTF8(asString().view()); }
