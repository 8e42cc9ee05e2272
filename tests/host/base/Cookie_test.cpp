#include <zowidgets/host/base/Cookie.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

TEST(Cookie, TheNullCookieHasNoText) {
  Cookie const none;
  EXPECT_TRUE(none.isNull());
  EXPECT_TRUE(none.asString().empty());
  EXPECT_TRUE(none.asWString().empty());
}

TEST(Cookie, ItCarriesItsTypeVersionAndFlags) {
  Cookie const cookie = CookieJar::instance().makeCookie('T', 3, 7);
  EXPECT_FALSE(cookie.isNull());
  EXPECT_EQ(cookie.type(), 84u);
  EXPECT_EQ(cookie.version(), 3);
  EXPECT_EQ(cookie.flags(), 7);
  EXPECT_TRUE(cookie.asString().startsWith("T3-")) << cookie.asString().str();
  EXPECT_TRUE(CookieJar::instance().makeCookie(7, 0, 0).asString().startsWith("070-")) << "a type that is no letter";
}

TEST(Cookie, EachIsNewAndItsTextIsAFileName) {
  std::set<std::string> seen;
  for (int i = 0; i < 10000; ++i) {
    Cookie const cookie = CookieJar::instance().makeCookie(84, 0, 0);
    std::string const text = cookie.asString().str();
    ASSERT_TRUE(seen.insert(text).second) << "made twice: " << text;
    ASSERT_EQ(text.find_first_not_of("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz-"),
              std::string::npos)
        << text;
    ASSERT_EQ(cookie.asWString(), LightweightString<wchar_t>::fromUTF8(text));
  }
  Cookie const a = CookieJar::instance().makeCookie(84, 0, 0);
  EXPECT_EQ(a, a);
  EXPECT_FALSE(a == CookieJar::instance().makeCookie(84, 0, 0));
}

} // namespace
