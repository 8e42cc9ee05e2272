#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/events/TypeAhead.h>

#include <gtest/gtest.h>

namespace {

TEST(TypeAhead, LettersTypedTogetherFindTheStartOfANameWhateverItsCase) {
  TestClock clock(1000.0);
  TypeAhead typed;
  EXPECT_TRUE(typed.matches(L"Anything")) << "nothing typed is the start of any name";
  typed.add(L"W");
  clock.advance(300.0);
  typed.add(L"i");
  EXPECT_TRUE(typed.matches(L"wizard"));
  EXPECT_TRUE(typed.matches(L"WIDE"));
  EXPECT_FALSE(typed.matches(L"Wand"));
  EXPECT_FALSE(typed.matches(L"W")) << "shorter than what was typed";
}

TEST(TypeAhead, APauseOfMoreThanASecondStartsAfreshAndClearForgets) {
  TestClock clock(1000.0);
  TypeAhead typed;
  typed.add(L"f");
  clock.advance(TypeAhead::kPauseMs);
  typed.add(L"o");
  EXPECT_TRUE(typed.matches(L"Folder")) << "a second exactly is no pause";
  clock.advance(TypeAhead::kPauseMs + 1.0);
  typed.add(L"t");
  EXPECT_TRUE(typed.matches(L"Tabs"));
  EXPECT_FALSE(typed.matches(L"Folder"));
  typed.clear();
  EXPECT_TRUE(typed.matches(L"Folder"));
}

} // namespace
