#include <zowidgets/fonts/FontItem.h>
#include <zowidgets/fonts/FontLegend.h>

#include <gtest/gtest.h>

namespace {

using WString = LightweightString<wchar_t>;

TEST(FontItem, TheIdIsAJSONTextOfFamilyAndCategory) {
  EXPECT_EQ(FontItem::makeID("Liberation Sans", kRecentFont), WString(L"{\"name\":\"Liberation Sans\",\"cat\":1}"));
  FontItem const item("Liberation Sans", kOrdinaryFont);
  EXPECT_EQ(item.getID(), WString(L"{\"name\":\"Liberation Sans\",\"cat\":0}"));
  EXPECT_EQ(item.getName().getString(), WString(L"Liberation Sans"));
  EXPECT_EQ(item.font(), Glib::FontDesc("Liberation Sans", 0, 0));
}

TEST(FontItem, AFamilyThatCannotSpellItsNameIsShownInTheInterfaceFont) {
  FontItem const dingbats("D050000L", kOrdinaryFont);
  EXPECT_EQ(dingbats.font(), Glib::FontDesc());
  EXPECT_EQ(dingbats.getName().getString(), WString(L"D050000L"));
  FontDefinition font;
  font.name = L"D050000L";
  font.style = Glib::FontDesc::kBold;
  EXPECT_NE(legendFontFor(font).family(), LightweightString<char>("D050000L"));
  EXPECT_EQ(legendFontFor(font).style(), unsigned(Glib::FontDesc::kBold));
}

TEST(FontItem, RecentAndOrdinaryRowsOfOneFamilyDiffer) {
  EXPECT_NE(FontItem::makeID("Noto Mono", kRecentFont), FontItem::makeID("Noto Mono", kOrdinaryFont));
}

TEST(FontItem, AnIdReadsBackEvenWithQuotesAndAccents) {
  LightweightString<char> const name = WString(L"Fa\u00e7ade \"Display\"").toUTF8();
  FontItem const back = FontItem::fromID(FontItem::makeID(name, kRecentFont));
  EXPECT_EQ(back.name(), name);
  EXPECT_EQ(back.category(), kRecentFont);
  FontDefinition font;
  font.name = L"DejaVu Serif";
  EXPECT_EQ(FontItem::fromID(FontItem::makeID(font, kOrdinaryFont)).wideName(), font.name);
}

TEST(FontItem, OtherTextGivesAnEmptyName) {
  for (wchar_t const* text : {L"", L"Liberation Sans", L"[1,2]", L"{\"cat\":1}", L"{\"name\":"}) {
    FontItem const item = FontItem::fromID(text);
    EXPECT_TRUE(item.name().empty()) << WString(text).toUTF8().c_str();
    EXPECT_EQ(item.category(), kOrdinaryFont);
  }
}

} // namespace
