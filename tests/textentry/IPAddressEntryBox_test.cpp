#include "support/MessageLog.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/textentry/CustomTextBox.h>
#include <zowidgets/textentry/IPAddressEntryBox.h>

#include <cmath>
#include <cwchar>
#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

struct IPAddressEntryBoxTest : HeadlessScreenTest {
  StandardPanel* window = nullptr;
  MessageLog* owner = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    int const row = UifStd::getRowHeight();
    window = openPanel(XY<int>(IPAddressEntryBox::calcWidth(true) + 2 * row, 3 * row), XY<int>(200, 300));
    owner = new MessageLog(XY<int>(IPAddressEntryBox::calcWidth(true) + row, 2 * row));
    window->addChild(owner, Glob::UserBottomLeft(0, 0));
    OS().setClipboardText(WString());
  }

  IPAddressEntryBox* addEntry(bool showPort, WString const& uri = {}) {
    auto* entry =
        owner->createChild<IPAddressEntryBox>(IPAddressEntryBox::InitArgs(showPort, uri), Glob::BottomLeft(0, 0));
    pump();
    return entry;
  }

  static CustomTextBox* box(IPAddressEntryBox const& entry, std::size_t index) { return entry.getBoxes().at(index); }

  static std::vector<std::wstring> texts(IPAddressEntryBox const& entry) {
    std::vector<std::wstring> all;
    for (CustomTextBox const* part : entry.getBoxes())
      all.push_back(part->getString().str());
    return all;
  }

  // Which box has the keyboard focus: its index, or -1 for none of them.
  static int focusedBox(IPAddressEntryBox const& entry) {
    std::vector<CustomTextBox*> const& boxes = entry.getBoxes();
    for (std::size_t index = 0; index < boxes.size(); ++index)
      if (boxes[index]->hasKbdFocus())
        return static_cast<int>(index);
    return -1;
  }

  static void clickBox(IPAddressEntryBox const& entry, std::size_t index) {
    HeadlessInput::clickOn(*box(entry, index));
  }

  static void paste(std::wstring const& clipboard) {
    OS().setClipboardText(WString(clipboard));
    HeadlessInput::key('v', kKeyCtrl);
  }
};

// --- Make-up ------------------------------------------------------------

TEST_F(IPAddressEntryBoxTest, HasFourDigitBoxesOfThreeAndAPortBoxOfFive) {
  IPAddressEntryBox* plain = addEntry(false);
  EXPECT_STREQ(plain->idstring(), "IPAddressEntryBox");
  ASSERT_EQ(plain->getBoxes().size(), 4u);
  EXPECT_FALSE(plain->hasPort());
  IPAddressEntryBox* withPort = addEntry(true);
  ASSERT_EQ(withPort->getBoxes().size(), 5u);
  EXPECT_TRUE(withPort->hasPort());
  for (std::size_t index = 0; index < 5; ++index) {
    CustomTextBox const* part = box(*withPort, index);
    EXPECT_STREQ(part->idstring(), "CustomTextBox");
    EXPECT_EQ(part->editor().sizeLimit(), index < 4 ? 3u : 5u);
    EXPECT_TRUE(part->editor().accepts(L'0'));
    EXPECT_TRUE(part->editor().accepts(L'9'));
    EXPECT_FALSE(part->editor().accepts(L'.'));
    EXPECT_FALSE(part->editor().accepts(L'a'));
    EXPECT_TRUE(part->isEditable());
  }
}

TEST_F(IPAddressEntryBoxTest, IsAsWideAsItsBoxesAndTheirGaps) {
  IPAddressEntryBox* plain = addEntry(false);
  IPAddressEntryBox* withPort = addEntry(true);
  EXPECT_EQ(plain->width(), IPAddressEntryBox::calcWidth(false));
  EXPECT_EQ(withPort->width(), IPAddressEntryBox::calcWidth(true));
  EXPECT_EQ(plain->height(), UifStd::getRowHeight());
  EXPECT_EQ(IPAddressEntryBox::gap(), UifStd::getIndentWidth());
  EXPECT_EQ(IPAddressEntryBox::calcWidth(true) - IPAddressEntryBox::calcWidth(false),
            IPAddressEntryBox::gap() + IPAddressEntryBox::calcBoxWidth(L"12345"));
  // Left to right, a gap apart, the first a widget gap in, all the row high.
  EXPECT_EQ(box(*withPort, 0)->getX(), UifStd::getWidgetGap());
  for (std::size_t index = 0; index < 5; ++index) {
    CustomTextBox const* part = box(*withPort, index);
    EXPECT_EQ(part->width(), IPAddressEntryBox::calcBoxWidth(index < 4 ? L"999" : L"12345"));
    EXPECT_EQ(part->height(), withPort->height());
    if (index > 0) {
      EXPECT_EQ(part->getX(),
                box(*withPort, index - 1)->getX() + box(*withPort, index - 1)->width() + IPAddressEntryBox::gap());
    }
  }
  EXPECT_LE(box(*withPort, 4)->getX() + box(*withPort, 4)->width(), withPort->width());
}

TEST_F(IPAddressEntryBoxTest, ABoxHoldsItsWidestTextAndTheCaretWithoutScrolling) {
  // A text box keeps a widget gap clear each side of its text and scrolls
  // when the caret after the text would not fit: the first digit would be cut.
  for (double scale : {1.0, 1.5, 2.0}) {
    UifStd::setScale(scale);
    int const caret = std::max(1, static_cast<int>(std::lround(scale)));
    for (wchar_t const* widest : {L"888", L"000", L"88888"}) {
      int const needed = UifStd::measure(UIString(widest)).x + 2 * UifStd::getWidgetGap() + caret;
      EXPECT_LE(needed, IPAddressEntryBox::calcBoxWidth(std::wcslen(widest) == 3 ? L"999" : L"12345"))
          << "scale " << scale << ", " << WString(widest).toUTF8().c_str();
    }
  }
}

TEST_F(IPAddressEntryBoxTest, AStartValueIsShownAndABadOneLeavesTheBoxesEmpty) {
  EXPECT_EQ(addEntry(true, L"10.1.2.3:554")->getURI().str(), L"10.1.2.3:554");
  EXPECT_EQ(addEntry(false, L"10.1.2.300")->getURI().str(), L"...");
}

// --- Typing -------------------------------------------------------------

TEST_F(IPAddressEntryBoxTest, AnAddressTypedWithDotsMovesOnAtEachDot) {
  IPAddressEntryBox* entry = addEntry(false);
  clickBox(*entry, 0);
  HeadlessInput::typeText("1.");
  EXPECT_EQ(focusedBox(*entry), 1);
  HeadlessInput::typeText("22.");
  EXPECT_EQ(focusedBox(*entry), 2);
  HeadlessInput::typeText("3.44");
  EXPECT_EQ(focusedBox(*entry), 3);
  EXPECT_EQ(entry->getURI().str(), L"1.22.3.44");
}

TEST_F(IPAddressEntryBoxTest, ADotAfterAFilledBoxIsItsSeparatorNotAnotherMove) {
  IPAddressEntryBox* entry = addEntry(true);
  clickBox(*entry, 0);
  HeadlessInput::typeText("192");
  EXPECT_EQ(focusedBox(*entry), 1);
  EXPECT_TRUE(box(*entry, 1)->isSeparatorPending());
  HeadlessInput::typeText(".168.0.10");
  EXPECT_EQ(entry->getURI().str(), L"192.168.0.10:");
  EXPECT_EQ(focusedBox(*entry), 3);
  HeadlessInput::typeText("0.8080");
  EXPECT_EQ(entry->getURI().str(), L"192.168.0.100:8080");
}

TEST_F(IPAddressEntryBoxTest, AnAddressTypedWithoutDotsMovesOnOnlyAfterThreeDigits) {
  IPAddressEntryBox* entry = addEntry(false);
  clickBox(*entry, 0);
  HeadlessInput::typeText("19");
  EXPECT_EQ(focusedBox(*entry), 0);
  HeadlessInput::typeText("2");
  EXPECT_EQ(focusedBox(*entry), 1);
  EXPECT_EQ(box(*entry, 1)->editor().caret(), 0u);
  HeadlessInput::typeText("168001");
  EXPECT_EQ(focusedBox(*entry), 3);
  HeadlessInput::typeText("01");
  EXPECT_EQ(entry->getURI().str(), L"192.168.001.01");
}

TEST_F(IPAddressEntryBoxTest, ADotInAnEmptyBoxMovesOnAndLeavesItEmpty) {
  IPAddressEntryBox* entry = addEntry(false);
  clickBox(*entry, 1);
  HeadlessInput::typeText(".");
  EXPECT_EQ(focusedBox(*entry), 2);
  EXPECT_EQ(box(*entry, 1)->getString().str(), L"");
  HeadlessInput::typeText(".");
  EXPECT_EQ(focusedBox(*entry), 3);
  EXPECT_EQ(entry->getURI().str(), L"...");
}

TEST_F(IPAddressEntryBoxTest, ADotInsideABoxIsRefusedAndStays) {
  IPAddressEntryBox* entry = addEntry(false, L"123.4.5.6");
  clickBox(*entry, 0);
  HeadlessInput::key(kKeyHome);
  HeadlessInput::key(kKeyRight);
  HeadlessInput::typeText(".");
  EXPECT_EQ(focusedBox(*entry), 0);
  EXPECT_EQ(box(*entry, 0)->getString().str(), L"123");
}

TEST_F(IPAddressEntryBoxTest, TheThirdDigitOfTheLastOctetWithoutAPortMovesNothing) {
  IPAddressEntryBox* entry = addEntry(false);
  clickBox(*entry, 3);
  HeadlessInput::typeText("255");
  EXPECT_EQ(focusedBox(*entry), 3);
  HeadlessInput::typeText("7.");
  EXPECT_EQ(focusedBox(*entry), 3);
  EXPECT_EQ(entry->getURI().str(), L"...255");
}

TEST_F(IPAddressEntryBoxTest, TheThirdDigitOfTheLastOctetMovesToThePortBox) {
  IPAddressEntryBox* entry = addEntry(true);
  clickBox(*entry, 3);
  HeadlessInput::typeText("255");
  EXPECT_EQ(focusedBox(*entry), 4);
  HeadlessInput::typeText("65535");
  EXPECT_EQ(focusedBox(*entry), 4); // the last box: nowhere further
  EXPECT_EQ(entry->getURI().str(), L"...255:65535");
}

TEST_F(IPAddressEntryBoxTest, AFullBoxWithItsCaretElsewhereStays) {
  IPAddressEntryBox* entry = addEntry(false, L"123.4.5.6");
  clickBox(*entry, 0);
  HeadlessInput::key(kKeyHome);
  EXPECT_EQ(focusedBox(*entry), 0);
  HeadlessInput::typeText("9");
  EXPECT_EQ(focusedBox(*entry), 0);
  EXPECT_EQ(box(*entry, 0)->getString().str(), L"123");
  // End is any other key: it leaves the full box with the caret at its end.
  HeadlessInput::key(kKeyEnd);
  EXPECT_EQ(focusedBox(*entry), 1);
  EXPECT_EQ(box(*entry, 1)->editor().caret(), 0u);
}

TEST_F(IPAddressEntryBoxTest, ADigitTypedAtTheEndOfAFullBoxIsRefusedThenMovesOn) {
  IPAddressEntryBox* entry = addEntry(false, L"123.4.5.6");
  clickBox(*entry, 0);
  HeadlessInput::key(kKeyEnd); // already at the end: moves on
  EXPECT_EQ(focusedBox(*entry), 1);
  HeadlessInput::key(kKeyLeft); // back, caret at the end of the full box
  EXPECT_EQ(focusedBox(*entry), 0);
  HeadlessInput::typeText("7");
  EXPECT_EQ(box(*entry, 0)->getString().str(), L"123");
  EXPECT_EQ(focusedBox(*entry), 1);
}

TEST_F(IPAddressEntryBoxTest, BackspaceEmptiesABoxFirstAndThenMovesBack) {
  IPAddressEntryBox* entry = addEntry(false, L"192.16.0.1");
  clickBox(*entry, 1);
  HeadlessInput::key(kKeyEnd);
  HeadlessInput::key(kKeyBackspace);
  HeadlessInput::key(kKeyBackspace);
  EXPECT_EQ(focusedBox(*entry), 1);
  EXPECT_EQ(box(*entry, 1)->getString().str(), L"");
  HeadlessInput::key(kKeyBackspace);
  EXPECT_EQ(focusedBox(*entry), 0);
  EXPECT_EQ(box(*entry, 0)->editor().caret(), 3u);
  EXPECT_EQ(box(*entry, 0)->getString().str(), L"192"); // moving back deletes nothing
  HeadlessInput::key(kKeyBackspace);
  EXPECT_EQ(box(*entry, 0)->getString().str(), L"19");
}

TEST_F(IPAddressEntryBoxTest, LeftAtAStartMovesBackAndRightAtAnEndMovesOn) {
  IPAddressEntryBox* entry = addEntry(true, L"1.23.4.5:80");
  clickBox(*entry, 2);
  HeadlessInput::key(kKeyHome);
  HeadlessInput::key(kKeyLeft);
  EXPECT_EQ(focusedBox(*entry), 1);
  EXPECT_EQ(box(*entry, 1)->editor().caret(), 2u);
  HeadlessInput::key(kKeyLeft); // inside the box: an ordinary move
  EXPECT_EQ(focusedBox(*entry), 1);
  EXPECT_EQ(box(*entry, 1)->editor().caret(), 1u);
  HeadlessInput::key(kKeyRight);
  HeadlessInput::key(kKeyRight);
  EXPECT_EQ(focusedBox(*entry), 2);
  EXPECT_EQ(box(*entry, 2)->editor().caret(), 0u);
  HeadlessInput::key(kKeyRight); // past the "4"
  HeadlessInput::key(kKeyRight); // on from its end
  HeadlessInput::key(kKeyRight); // past the "5"
  HeadlessInput::key(kKeyRight); // on to the port
  EXPECT_EQ(focusedBox(*entry), 4);
  EXPECT_EQ(box(*entry, 4)->editor().caret(), 0u);
}

TEST_F(IPAddressEntryBoxTest, NothingMovesPastEitherEnd) {
  IPAddressEntryBox* entry = addEntry(false, L"1.2.3.4");
  clickBox(*entry, 0);
  HeadlessInput::key(kKeyHome);
  HeadlessInput::key(kKeyLeft);
  HeadlessInput::key(kKeyBackspace);
  EXPECT_EQ(focusedBox(*entry), 0);
  EXPECT_EQ(entry->getURI().str(), L"1.2.3.4");
  clickBox(*entry, 3);
  HeadlessInput::key(kKeyEnd);
  HeadlessInput::key(kKeyRight);
  HeadlessInput::typeText(".");
  EXPECT_EQ(focusedBox(*entry), 3);
}

TEST_F(IPAddressEntryBoxTest, ShiftedArrowsSelectInsteadOfMoving) {
  IPAddressEntryBox* entry = addEntry(false, L"1.23.4.5");
  clickBox(*entry, 1);
  HeadlessInput::key(kKeyEnd);
  HeadlessInput::key(kKeyLeft, kKeyShift);
  HeadlessInput::key(kKeyLeft, kKeyShift);
  HeadlessInput::key(kKeyLeft, kKeyShift);
  EXPECT_EQ(focusedBox(*entry), 1);
  EXPECT_EQ(box(*entry, 1)->editor().selectedText(), L"23");
}

TEST_F(IPAddressEntryBoxTest, TabIsLeftToTheTabOrder) {
  IPAddressEntryBox* entry = addEntry(false, L"1.2.3.4");
  clickBox(*entry, 0);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(focusedBox(*entry), 1);
  HeadlessInput::key(kKeyTab, kKeyShift);
  EXPECT_EQ(focusedBox(*entry), 0);
  EXPECT_EQ(entry->getURI().str(), L"1.2.3.4");
}

TEST_F(IPAddressEntryBoxTest, OutOfRangeOctetsAreKeptAsTyped) {
  IPAddressEntryBox* entry = addEntry(false);
  clickBox(*entry, 0);
  HeadlessInput::typeText("999.999.999.999");
  EXPECT_EQ(entry->getURI().str(), L"999.999.999.999");
}

TEST_F(IPAddressEntryBoxTest, LettersAndSignsNeverEnterABox) {
  IPAddressEntryBox* entry = addEntry(true);
  clickBox(*entry, 0);
  HeadlessInput::typeText("a-1+b2 c:");
  EXPECT_EQ(entry->getURI().str(), L"12...:");
  EXPECT_EQ(focusedBox(*entry), 0);
}

// --- Pasting ------------------------------------------------------------

TEST_F(IPAddressEntryBoxTest, PastingAnAddressFillsEveryBoxWhicheverHasTheFocus) {
  for (std::size_t index = 0; index < 4; ++index) {
    IPAddressEntryBox* entry = addEntry(false, L"9.9.9.9");
    clickBox(*entry, index);
    paste(L"10.0.0.254");
    EXPECT_EQ(entry->getURI().str(), L"10.0.0.254") << "focus in box " << index;
    EXPECT_EQ(focusedBox(*entry), static_cast<int>(index));
    GlobManager::requestDeletion(entry);
    pump();
  }
}

TEST_F(IPAddressEntryBoxTest, PastingAnAddressWithAPortFillsThePortBox) {
  IPAddressEntryBox* entry = addEntry(true, L"1.1.1.1:21");
  clickBox(*entry, 4);
  paste(L"  172.16.0.3:8554\n");
  EXPECT_EQ(entry->getURI().str(), L"172.16.0.3:8554");
  // An address without one empties it: the port was not given.
  paste(L"172.16.0.4");
  EXPECT_EQ(entry->getURI().str(), L"172.16.0.4:");
}

TEST_F(IPAddressEntryBoxTest, APastedPortIsDroppedWithoutAPortBox) {
  IPAddressEntryBox* entry = addEntry(false);
  clickBox(*entry, 2);
  paste(L"127.0.0.1:8080");
  EXPECT_EQ(entry->getURI().str(), L"127.0.0.1");
}

TEST_F(IPAddressEntryBoxTest, PastingDigitsWithoutADotFillsOnlyTheOneBoxCutToItsLimit) {
  IPAddressEntryBox* entry = addEntry(true, L"1.2.3.4:5");
  clickBox(*entry, 1);
  HeadlessInput::key(kKeyEnd);
  HeadlessInput::key(kKeyBackspace);
  paste(L"123456");
  EXPECT_EQ(texts(*entry), (std::vector<std::wstring>{L"1", L"123", L"3", L"4", L"5"}));
  EXPECT_EQ(focusedBox(*entry), 1); // a paste moves nowhere
  clickBox(*entry, 4);
  HeadlessInput::key(kKeyEnd);
  HeadlessInput::key(kKeyBackspace);
  paste(L"9876543210");
  EXPECT_EQ(texts(*entry), (std::vector<std::wstring>{L"1", L"123", L"3", L"4", L"98765"}));
}

TEST_F(IPAddressEntryBoxTest, PastedJunkWithoutADotLeavesOnlyItsDigitsUpToTheLimit) {
  IPAddressEntryBox* entry = addEntry(false);
  clickBox(*entry, 2);
  paste(L"ab1-2 x34:5");
  EXPECT_EQ(texts(*entry), (std::vector<std::wstring>{L"", L"", L"123", L""}));
}

TEST_F(IPAddressEntryBoxTest, PastedTextWithADotThatIsNoAddressIsIgnored) {
  IPAddressEntryBox* entry = addEntry(true, L"10.20.30.40:50");
  clickBox(*entry, 1);
  for (wchar_t const* junk : {L"hello.world", L"300.1.1.1", L"1.2.3", L"1.2.3.4.5", L"1.2.3.4:70000", L"1.2.3.4:", L".",
                              L"1.2.3.4 and more", L"1.2.3.4\n5.6.7.8"}) {
    paste(junk);
    EXPECT_EQ(entry->getURI().str(), L"10.20.30.40:50") << WString(junk).toUTF8().c_str();
  }
}

TEST_F(IPAddressEntryBoxTest, NoPasteLeavesABoxPastItsLimitOrWithAnythingButDigits) {
  IPAddressEntryBox* entry = addEntry(true);
  std::vector<std::wstring> const clipboards = {L"255.255.255.255:65535",
                                                L"000.000.000.000:00000",
                                                L"99999999999999999999",
                                                L"1.2.3.4:99999999999999",
                                                L"\u0661\u0662\u0663\u0664",
                                                L"12\t34 56",
                                                L"4294967296.1.1.1",
                                                std::wstring(L"\0"
                                                             L"123",
                                                             4)};
  for (std::size_t index = 0; index < 5; ++index)
    for (std::wstring const& clipboard : clipboards) {
      clickBox(*entry, index);
      paste(clipboard);
      for (std::size_t part = 0; part < 5; ++part) {
        std::wstring const text = box(*entry, part)->getString().str();
        EXPECT_LE(text.size(), part < 4 ? 3u : 5u) << "box " << part;
        EXPECT_EQ(text.find_first_not_of(L"0123456789"), std::wstring::npos) << "box " << part;
      }
    }
}

TEST_F(IPAddressEntryBoxTest, AReadOnlyBoxTakesNoPaste) {
  IPAddressEntryBox* entry = addEntry(false, L"1.2.3.4");
  box(*entry, 0)->setEditable(false);
  clickBox(*entry, 0);
  paste(L"5.6.7.8");
  paste(L"99");
  EXPECT_EQ(entry->getURI().str(), L"1.2.3.4");
}

// --- Reading and writing the address ------------------------------------

TEST_F(IPAddressEntryBoxTest, TheURIPutsTheColonAndPortAfterTheFourthOctet) {
  IPAddressEntryBox* entry = addEntry(true);
  clickBox(*entry, 0);
  HeadlessInput::typeText("10.0.0.1");
  EXPECT_EQ(entry->getURI().str(), L"10.0.0.1:");
  clickBox(*entry, 4);
  HeadlessInput::typeText("554");
  EXPECT_EQ(entry->getURI().str(), L"10.0.0.1:554");
  EXPECT_EQ(addEntry(true)->getURI().str(), L"...:");
  EXPECT_EQ(addEntry(false)->getURI().str(), L"...");
}

TEST_F(IPAddressEntryBoxTest, SetURIFromTextShowsAnAddressAndRefusesAnythingElse) {
  IPAddressEntryBox* entry = addEntry(true);
  EXPECT_TRUE(entry->setURI(WString(L"192.168.1.20:8000")));
  EXPECT_EQ(entry->getURI().str(), L"192.168.1.20:8000");
  for (wchar_t const* bad : {L"", L"1.2.3", L"256.1.1.1", L"1.2.3.4:70000", L"x1.2.3.4", L"1.2.3.4.5"}) {
    EXPECT_FALSE(entry->setURI(WString(bad))) << WString(bad).toUTF8().c_str();
    EXPECT_EQ(entry->getURI().str(), L"192.168.1.20:8000");
  }
}

TEST_F(IPAddressEntryBoxTest, SetURIFromAnAddressShowsEachPart) {
  IPAddressEntryBox* entry = addEntry(true);
  entry->setURI(IPAddress({8, 8, 4, 4}, 53));
  EXPECT_EQ(texts(*entry), (std::vector<std::wstring>{L"8", L"8", L"4", L"4", L"53"}));
  entry->setURI(IPAddress({0, 0, 0, 0}));
  EXPECT_EQ(texts(*entry), (std::vector<std::wstring>{L"0", L"0", L"0", L"0", L""}));
}

// --- Messages and focus -------------------------------------------------

TEST_F(IPAddressEntryBoxTest, ReturnInAnyBoxTellsTheOwnerWithTheEntryAsSender) {
  IPAddressEntryBox* entry = addEntry(true, L"1.2.3.4:5");
  for (std::size_t index : {0u, 3u, 4u}) {
    clickBox(*entry, index);
    HeadlessInput::key(kKeyReturn);
    EXPECT_EQ(focusedBox(*entry), static_cast<int>(index)); // Return stays
  }
  EXPECT_EQ(owner->messages, (std::vector<std::string>(3, IPAddressEntryBox::kReturnPressedMsg)));
  EXPECT_EQ(owner->senders, (std::vector<Glob*>(3, entry)));
  EXPECT_STREQ(IPAddressEntryBox::kReturnPressedMsg, "IPReturnPressed");
}

TEST_F(IPAddressEntryBoxTest, ItsMovesAreHandledAndOtherMessagesAreNot) {
  IPAddressEntryBox* entry = addEntry(false, L"1.2.3.4");
  for (char const* message : {"next", "prev", "hnext", "hprev", "paste"})
    EXPECT_EQ(Glob::sendMsg(entry, message, nullptr), 1) << message;
  EXPECT_EQ(Glob::sendMsg(entry, "somethingElse", box(*entry, 0)), 0);
  // Return from a widget that is not one of its boxes is not its business.
  EXPECT_EQ(Glob::sendMsg(entry, IPAddressEntryBox::kReturnPressedMsg, entry), 0);
  EXPECT_TRUE(owner->messages.empty());
  EXPECT_EQ(focusedBox(*entry), -1); // a move from no box moves nothing
  EXPECT_EQ(entry->getURI().str(), L"1.2.3.4");
}

TEST_F(IPAddressEntryBoxTest, HnextAndHprevStepTheTabOrder) {
  IPAddressEntryBox* entry = addEntry(false);
  clickBox(*entry, 1);
  Glob::sendMsg(entry, IPAddressEntryBox::kTabNextMsg, box(*entry, 1));
  EXPECT_EQ(focusedBox(*entry), 2);
  Glob::sendMsg(entry, IPAddressEntryBox::kTabPrevMsg, box(*entry, 2));
  Glob::sendMsg(entry, IPAddressEntryBox::kTabPrevMsg, box(*entry, 1));
  EXPECT_EQ(focusedBox(*entry), 0);
}

TEST_F(IPAddressEntryBoxTest, ItsBoxesJoinAPanelsTabOrderInOrder) {
  IPAddressEntryBox* entry = addEntry(true);
  std::vector<TabOrderable*> list;
  entry->getTabOrderables(list);
  EXPECT_EQ(list, std::vector<TabOrderable*>(entry->getBoxes().begin(), entry->getBoxes().end()));
  // A panel's own order: the port first, then the address backwards.
  window->tabOrder().addTabStop(*box(*entry, 4), 0);
  for (int index = 3; index >= 0; --index)
    window->tabOrder().addTabStop(*box(*entry, static_cast<std::size_t>(index)), 1);
  clickBox(*entry, 4);
  std::vector<int> visited;
  for (int step = 0; step < 5; ++step) {
    HeadlessInput::key(kKeyTab);
    visited.push_back(focusedBox(*entry));
  }
  EXPECT_EQ(visited, (std::vector<int>{3, 2, 1, 0, 4}));
  window->tabOrder().clear();
  window->tabOrder().addTabStops(*entry, 0);
  for (CustomTextBox* part : entry->getBoxes())
    EXPECT_TRUE(window->tabOrder().contains(part));
  clickBox(*entry, 4);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(focusedBox(*entry), 0);
}

TEST_F(IPAddressEntryBoxTest, MovingIntoABoxNeverSelectsItsText) {
  IPAddressEntryBox* entry = addEntry(false, L"1.2.3.4");
  box(*entry, 1)->highlightAllText();
  EXPECT_FALSE(box(*entry, 1)->editor().hasSelection());
  EXPECT_FALSE(box(*entry, 1)->isHighlightAllowed());
  // A box of its own honours the call, as any text box does.
  auto* alone = window->createWidget<CustomTextBox>(CustomTextBox::InitArgs(GlobCreationInfo(XY<int>(60, 20))),
                                                    Glob::UserTopLeft(0, 0));
  alone->setString(L"abc");
  static_cast<TextBox*>(alone)->highlightAllText();
  EXPECT_EQ(alone->editor().selectedText(), L"abc");
}

TEST_F(IPAddressEntryBoxTest, AnInactiveEntryTakesNoFocusAndNoTyping) {
  IPAddressEntryBox* entry = addEntry(false, L"1.2.3.4");
  entry->setActive(false, kRedrawNow);
  EXPECT_FALSE(entry->isActive());
  for (CustomTextBox const* part : entry->getBoxes())
    EXPECT_FALSE(part->isActive());
  clickBox(*entry, 0);
  HeadlessInput::typeText("9");
  EXPECT_EQ(focusedBox(*entry), -1);
  EXPECT_EQ(entry->getURI().str(), L"1.2.3.4");
  entry->setActive(true, kRedrawNow);
  clickBox(*entry, 0);
  EXPECT_EQ(focusedBox(*entry), 0);
}

// --- Pixels -------------------------------------------------------------

struct IPAddressEntryBoxPixels : IPAddressEntryBoxTest {
  // The colour at the middle of each painted square: the dots after the
  // first three boxes, and the colon's two squares before the port box.
  static XY<int> dotCentre(IPAddressEntryBox const& entry, std::size_t after, int y) {
    CustomTextBox const* part = entry.getBoxes()[after];
    return XY<int>(part->getX() + part->width() + IPAddressEntryBox::gap() / 2, y);
  }

  // The row in which the dot's square lies: found by scanning the gap.
  std::vector<int> paintedRows(IPAddressEntryBox const& entry, std::size_t after) {
    std::vector<int> rows;
    Rgb const background = rgbOf(entry.getPalette().window());
    for (int y = 0; y < entry.height(); ++y)
      if (!near(rgbOf(widgetPixel(entry, dotCentre(entry, after, y))), background, 8))
        rows.push_back(y);
    return rows;
  }
};

TEST_F(IPAddressEntryBoxPixels, ADotOfTheGapsSideSitsInEachGapOnTheBaseline) {
  IPAddressEntryBox* entry = addEntry(false, L"192.168.0.10");
  pump();
  int const side = IPAddressEntryBox::gap();
  for (std::size_t after = 0; after < 3; ++after) {
    std::vector<int> const rows = paintedRows(*entry, after);
    ASSERT_EQ(rows.size(), static_cast<std::size_t>(side)) << "gap " << after;
    // Low in the row, where the digits stand.
    EXPECT_LT(rows.front(), entry->height() / 2) << "gap " << after;
    EXPECT_EQ(rgbOf(widgetPixel(*entry, dotCentre(*entry, after, rows.front()))), rgbOf(entry->getPalette().text()));
  }
}

TEST_F(IPAddressEntryBoxPixels, TheColonIsTwoSquaresEitherSideOfTheMiddle) {
  IPAddressEntryBox* entry = addEntry(true, L"192.168.0.10:8080");
  pump();
  std::vector<int> const rows = paintedRows(*entry, 3);
  int const side = IPAddressEntryBox::gap();
  ASSERT_EQ(rows.size(), static_cast<std::size_t>(2 * side));
  int const middle = entry->height() / 2;
  EXPECT_LT(rows[side - 1], middle);
  EXPECT_GE(rows[side], middle);
}

TEST_F(IPAddressEntryBoxPixels, AnInactiveEntryDimsItsDots) {
  IPAddressEntryBox* entry = addEntry(false, L"1.2.3.4");
  entry->setActive(false, kRedrawNow);
  pump();
  std::vector<int> const rows = paintedRows(*entry, 0);
  ASSERT_FALSE(rows.empty());
  EXPECT_EQ(rgbOf(widgetPixel(*entry, dotCentre(*entry, 0, rows.front()))), rgbOf(entry->getPalette().text(-10)));
}

struct IPAddressEntryBoxGolden : IPAddressEntryBoxTest {
  // The entry alone in a window of its own, with one box being typed into.
  Zo::Image::Surface shot() {
    int const gap = UifStd::getWidgetGap();
    XY<int> const userArea(IPAddressEntryBox::calcWidth(true), 2 * UifStd::getRowHeight() + 3 * gap);
    StandardPanel* frame =
        openPanel(StandardPanel::calcPanelSize(userArea, 0, StandardPanel::getDefaultBorder()), XY<int>(100, 600));
    auto* withPort = frame->createWidget<IPAddressEntryBox>(IPAddressEntryBox::InitArgs(true, L"192.168.0.10:8080"),
                                                            Glob::UserTopLeft(0, gap));
    auto* plain = frame->createWidget<IPAddressEntryBox>(IPAddressEntryBox::InitArgs(false, L"10.0.0.1"),
                                                         Glob::Below(gap, withPort));
    clickBox(*plain, 3);
    HeadlessInput::typeText("0");
    pump();
    return HeadlessScreen::windowShot(*frame);
  }
};

TEST_F(IPAddressEntryBoxGolden, AtScaleOne) {
  EXPECT_TRUE(matchesGolden(shot(), ZO_GOLDEN_DIR "/ip_address_entry_scale1.png"));
}

TEST_F(IPAddressEntryBoxGolden, AtScaleTwo) {
  UifStd::setScale(2.0);
  EXPECT_TRUE(matchesGolden(shot(), ZO_GOLDEN_DIR "/ip_address_entry_scale2.png"));
}

} // namespace
