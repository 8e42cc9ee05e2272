#include "FormTestSupport.h"

#include <zowidgets/forms/FoBool.h>
#include <zowidgets/forms/FoCycle.h>
#include <zowidgets/forms/FoEntry.h>
#include <zowidgets/forms/FoVInt.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>

#include <string>

namespace {

using FormMessages = FormTest;
using Messages = std::vector<std::string>;

TEST_F(FormMessages, ElementSevenReportingAbcReachesTheOwnerWithItsIndexInThreeDigits) {
  auto* entry = new fo_entry(width(), height(), 7, L"Name", 40, 0.5);
  openForm({entry});
  typeInto(*entry, "abc");
  EXPECT_EQ(received(), (Messages{"FormUp 007 abc"}));
}

TEST_F(FormMessages, AnElementsReportIsFoElUpWithItsIndexAndPayload) {
  auto* entry = new fo_entry(width(), height(), 12, L"Name", 40, 0.5);
  MessageLog parent(XY<int>(10, 10));
  parent.addChild(entry, Glob::TopLeft(0, 0));
  entry->m_relay_msg_to_parent("two words");
  EXPECT_EQ(parent.messages, (Messages{"FoElUp 012 two words"}));
  EXPECT_EQ(parent.senders, (std::vector<Glob*>{entry}));
}

TEST_F(FormMessages, AnElementWithoutAParentSendsNothing) {
  fo_entry entry(width(), height(), 1, L"Name", 40, 0.5);
  entry.m_relay_msg_to_parent("lost");
  EXPECT_TRUE(received().empty());
}

TEST_F(FormMessages, ALongReportIsCutTo127Characters) {
  auto* entry = new fo_entry(width(), height(), 3, L"Name", 200, 0.5);
  openForm({entry});
  entry->m_relay_msg_to_parent(LightweightString<char>(std::string(200, 'x')));
  ASSERT_EQ(received().size(), 1u);
  // The element's buffer keeps "FoElUp 003 " and 116 payload characters; the
  // form passes on what follows the first seven.
  EXPECT_EQ(received()[0], "FormUp 003 " + std::string(127 - 11, 'x'));
}

TEST_F(FormMessages, TheFormTakesEveryFoElUpEvenWithoutAnOwner) {
  auto* entry = new fo_entry(width(), height(), 0, L"Name", 40, 0.5);
  form* sheet = openForm({entry});
  sheet->setOwner(nullptr);
  EXPECT_EQ(Glob::sendMsg(sheet, "FoElUp 000 alone", entry), 1);
  EXPECT_TRUE(received().empty());
}

TEST_F(FormMessages, OnlySixCharactersOfTheNameAreCompared) {
  form* sheet = openForm({new fo_entry(width(), height(), 0, L"Name", 40, 0.5)});
  EXPECT_EQ(Glob::sendMsg(sheet, "FoElUpX 001 odd"), 1);
  // What follows the seventh character is passed on as it stands.
  EXPECT_EQ(received(), (Messages{"FormUp  001 odd"}));
}

TEST_F(FormMessages, TickingABoolReportsYesAndUntickingNo) {
  auto* tick = new fo_bool(width(), height(), 0, L"Loop", false);
  openForm({tick});
  HeadlessInput::clickOn(*tick->getCheckbox());
  HeadlessInput::clickOn(*tick->getCheckbox());
  pump();
  EXPECT_EQ(received(), (Messages{"FormUp 000 Yes", "FormUp 000 No"}));
  EXPECT_FALSE(tick->getValue());
}

TEST_F(FormMessages, ReturnInAnEntryReportsItsTextAsUtf8) {
  auto* entry = new fo_entry(width(), height(), 4, L"Title", 40, 0.5);
  openForm({entry});
  typeInto(*entry, "Caf\xC3\xA9 sc\xC3\xA8ne");
  EXPECT_EQ(received(), (Messages{"FormUp 004 Caf\xC3\xA9 sc\xC3\xA8ne"}));
  EXPECT_EQ(entry->m_get_entry(), LightweightString<wchar_t>(L"Caf\u00e9 sc\u00e8ne"));
}

TEST_F(FormMessages, UiTextAndMessageTextConvertBothWays) {
  LightweightString<wchar_t> const text(L"\u00c5ngstr\u00f6m \u2192 \U0001F3AC");
  LightweightString<char> const message = fo_eleme::msgFromUIText(text);
  EXPECT_EQ(message, LightweightString<char>("\xC3\x85ngstr\xC3\xB6m \xE2\x86\x92 \xF0\x9F\x8E\xAC"));
  EXPECT_EQ(fo_eleme::msgToUIText(message), text);
}

TEST_F(FormMessages, FocusRequestByMessageMovesTheFocusOnlyWhenItDiffers) {
  auto* first = new fo_v_int(width(), height(), 0, L"First", 1, 10, 0.5);
  auto* second = new fo_v_int(width(), height(), 1, L"Second", 1, 10, 0.5);
  form* sheet = openForm({first, second});
  EXPECT_EQ(Glob::sendMsg(sheet, "FoElFR 1"), 1);
  EXPECT_EQ(sheet->getCurrent(), 1);
  EXPECT_TRUE(second->isFocused());
  // Asking for the current element again changes nothing; unreadable and
  // out-of-range numbers are taken and ignored.
  EXPECT_EQ(Glob::sendMsg(sheet, "FoElFR 1"), 1);
  EXPECT_EQ(Glob::sendMsg(sheet, "FoElFR x"), 1);
  EXPECT_EQ(Glob::sendMsg(sheet, "FoElFR 9"), 1);
  EXPECT_EQ(sheet->getCurrent(), 1);
  EXPECT_FALSE(first->isFocused());
  EXPECT_TRUE(received().empty());
}

TEST_F(FormMessages, OtherMessagesGoToThePanel) {
  form* sheet = openForm({new fo_entry(width(), height(), 0, L"Name", 40, 0.5)});
  EXPECT_EQ(Glob::sendMsg(sheet, "SomethingElse"), 0);
  EXPECT_TRUE(received().empty());
}

} // namespace
