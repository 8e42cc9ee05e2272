#include <zowidgets/host/events/Event.h>
#include <zowidgets/host/widgets/text/TextEditCore.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TextEditCore editorWith(std::wstring_view text, std::size_t caret) {
  TextEditCore editor;
  editor.setText(text);
  editor.setCaret(caret);
  return editor;
}

TEST(TextEditCore, SetTextPutsTheCaretAtTheEndWithNothingSelected) {
  TextEditCore editor;
  editor.setText(L"clip one");
  EXPECT_EQ(editor.caret(), 8u);
  EXPECT_FALSE(editor.hasSelection());
}

TEST(TextEditCore, WordRightStopsAtTheStartOfTheNextWord) {
  TextEditCore editor = editorWith(L"red  green, blue", 0);
  editor.moveWordRight(false);
  EXPECT_EQ(editor.caret(), 5u);
  editor.moveWordRight(false);
  EXPECT_EQ(editor.caret(), 12u);
  editor.moveWordRight(false);
  EXPECT_EQ(editor.caret(), 16u);
  editor.moveWordRight(false);
  EXPECT_EQ(editor.caret(), 16u);
}

TEST(TextEditCore, WordLeftStopsAtTheStartOfTheWordBefore) {
  TextEditCore editor = editorWith(L"red  green, blue", 16);
  editor.moveWordLeft(false);
  EXPECT_EQ(editor.caret(), 12u);
  editor.moveWordLeft(false);
  EXPECT_EQ(editor.caret(), 5u);
  editor.setCaret(7);
  editor.moveWordLeft(false);
  EXPECT_EQ(editor.caret(), 5u);
  editor.moveWordLeft(false);
  EXPECT_EQ(editor.caret(), 0u);
  editor.moveWordLeft(false);
  EXPECT_EQ(editor.caret(), 0u);
}

TEST(TextEditCore, ExtendingMovesKeepTheAnchor) {
  TextEditCore editor = editorWith(L"take_2 final", 0);
  editor.moveWordRight(true);
  EXPECT_EQ(editor.selectedText(), L"take_2 ");
  editor.moveLeft(true);
  EXPECT_EQ(editor.selectedText(), L"take_2");
  editor.moveEnd(true);
  EXPECT_EQ(editor.selectedText(), L"take_2 final");
  EXPECT_EQ(editor.anchor(), 0u);
}

TEST(TextEditCore, PlainArrowsCollapseASelectionToItsNearEnd) {
  TextEditCore editor = editorWith(L"abcdef", 1);
  editor.setCaret(4, true);
  editor.moveLeft(false);
  EXPECT_EQ(editor.caret(), 1u);
  EXPECT_FALSE(editor.hasSelection());
  editor.setCaret(4, true);
  editor.moveRight(false);
  EXPECT_EQ(editor.caret(), 4u);
  EXPECT_FALSE(editor.hasSelection());
}

TEST(TextEditCore, SelectWordTakesTheWordOrTheRunOfSpaces) {
  TextEditCore editor = editorWith(L"scene 12   cut", 0);
  editor.selectWordAt(2);
  EXPECT_EQ(editor.selectedText(), L"scene");
  editor.selectWordAt(7);
  EXPECT_EQ(editor.selectedText(), L"12");
  editor.selectWordAt(9);
  EXPECT_EQ(editor.selectedText(), L"   ");
  editor.selectWordAt(99);
  EXPECT_EQ(editor.selectedText(), L"cut");
}

TEST(TextEditCore, WordsHoldLettersOfEveryScriptWhateverTheLocale) {
  TextEditCore editor = editorWith(L"Gr\u00fc\u00dfe Stra\u00dfe caf\u0065\u0301 \u65e5\u672c\u8a9e", 0);
  editor.selectWordAt(1);
  EXPECT_EQ(editor.selectedText(), L"Gr\u00fc\u00dfe");
  editor.selectWordAt(8);
  EXPECT_EQ(editor.selectedText(), L"Stra\u00dfe");
  editor.selectWordAt(13);
  EXPECT_EQ(editor.selectedText(), L"caf\u0065\u0301") << "a combining accent is part of its word";
  editor.selectWordAt(20);
  EXPECT_EQ(editor.selectedText(), L"\u65e5\u672c\u8a9e");
  editor.setCaret(editor.text().size());
  editor.moveWordLeft(true);
  editor.moveWordLeft(true);
  EXPECT_EQ(editor.selectedText(), L"caf\u0065\u0301 \u65e5\u672c\u8a9e");
}

TEST(TextEditCore, TypingReplacesTheSelection) {
  TextEditCore editor = editorWith(L"old name", 0);
  editor.setCaret(3, true);
  EXPECT_TRUE(editor.insert(L"new"));
  EXPECT_EQ(editor.text(), L"new name");
  EXPECT_EQ(editor.caret(), 3u);
}

TEST(TextEditCore, BackspaceAndDeleteRemoveOneCharacterOrTheSelection) {
  TextEditCore editor = editorWith(L"abcd", 2);
  EXPECT_TRUE(editor.deleteBackward());
  EXPECT_EQ(editor.text(), L"acd");
  EXPECT_TRUE(editor.deleteForward());
  EXPECT_EQ(editor.text(), L"ad");
  editor.setCaret(0);
  EXPECT_FALSE(editor.deleteBackward());
  editor.selectAll();
  EXPECT_TRUE(editor.deleteForward());
  EXPECT_EQ(editor.text(), L"");
}

TEST(TextEditCore, OnlyAllowedCharactersEnter) {
  TextEditCore editor;
  editor.setCharacters(L"0123456789", TextEditCore::kOnlyAllowed);
  EXPECT_TRUE(editor.insert(L"a1b2"));
  EXPECT_EQ(editor.text(), L"12");
  EXPECT_FALSE(editor.insert(L"xyz"));
}

TEST(TextEditCore, RefusedCharactersStayOut) {
  TextEditCore editor;
  editor.setCharacters(L"/\\:", TextEditCore::kNotAllowed);
  editor.insert(L"a/b:c");
  EXPECT_EQ(editor.text(), L"abc");
}

TEST(TextEditCore, ControlCharactersNeverEnter) {
  TextEditCore editor;
  editor.insert(L"one\ntwo\t");
  EXPECT_EQ(editor.text(), L"onetwo");
}

TEST(TextEditCore, LineBreaksEnterOnlyWhereAllowedAndOtherControlsNever) {
  TextEditCore editor;
  editor.setLineBreaksAllowed(true);
  editor.insert(L"one\ntwo\t\r");
  EXPECT_EQ(editor.text(), L"one\ntwo");
  editor.setLineBreaksAllowed(false);
  editor.insert(L"\nthree");
  EXPECT_EQ(editor.text(), L"one\ntwothree");
}

TEST(TextEditCore, TheSizeLimitCutsWhatIsTyped) {
  TextEditCore editor;
  editor.setSizeLimit(4);
  editor.insert(L"abcdef");
  EXPECT_EQ(editor.text(), L"abcd");
  EXPECT_FALSE(editor.insert(L"x"));
  // Replacing a selection frees its room first.
  editor.setCaret(1);
  editor.setCaret(3, true);
  EXPECT_TRUE(editor.insert(L"XYZ"));
  EXPECT_EQ(editor.text(), L"aXYd");
}

} // namespace

namespace {

struct CommonKeys : ::testing::Test {
  TextEditCore editor;
  std::vector<std::string> done;
  TextEditCore::KeyActions actions{[this] { done.push_back("caret"); }, [this] { done.push_back("edited"); },
                                   [this] { done.push_back("copy"); }, [this] { done.push_back("paste"); }, true};
  void SetUp() override { editor.setText(L"one two"); }
};

TEST_F(CommonKeys, ArrowsMoveByCharacterOrWordAndSayTheCaretMoved) {
  EXPECT_EQ(editor.applyCommonKey(kKeyLeft, true, actions), 1);
  EXPECT_EQ(editor.caret(), 6u);
  EXPECT_EQ(editor.applyCommonKey(int(kKeyLeft) | kKeyCtrl | kKeyShift, true, actions), 1);
  EXPECT_EQ(editor.caret(), 4u);
  EXPECT_EQ(editor.anchor(), 6u);
  EXPECT_EQ(done, (std::vector<std::string>{"caret", "caret"}));
}

TEST_F(CommonKeys, DeletionNeedsAnEditableBoxAndAChange) {
  EXPECT_EQ(editor.applyCommonKey(kKeyBackspace, false, actions), 1);
  EXPECT_EQ(editor.text(), L"one two");
  EXPECT_EQ(editor.applyCommonKey(kKeyBackspace, true, actions), 1);
  EXPECT_EQ(editor.text(), L"one tw");
  EXPECT_EQ(editor.applyCommonKey(kKeyDelete, true, actions), 1); // at the end: nothing to delete
  EXPECT_EQ(done, std::vector<std::string>{"edited"});
}

TEST_F(CommonKeys, ControlBackspaceAndControlDeleteTakeAWord) {
  editor.setText(L"take three shots");
  editor.setCaret(10); // after "three"
  EXPECT_EQ(editor.applyCommonKey(int(kKeyBackspace) | kKeyCtrl, true, actions), 1);
  EXPECT_EQ(editor.text(), L"take  shots");
  EXPECT_EQ(editor.caret(), 5u);
  // Up to the start of the next word, as Control-Right moves.
  EXPECT_EQ(editor.applyCommonKey(int(kKeyDelete) | kKeyCtrl, true, actions), 1);
  EXPECT_EQ(editor.text(), L"take shots");
  EXPECT_EQ(editor.applyCommonKey(int(kKeyDelete) | kKeyCtrl, true, actions), 1);
  EXPECT_EQ(editor.text(), L"take ");
  EXPECT_EQ(editor.applyCommonKey(int(kKeyBackspace) | kKeyCtrl, false, actions), 1);
  EXPECT_EQ(editor.text(), L"take ") << "nothing in a box that is not editable";
  EXPECT_EQ(editor.caret(), 5u);
}

TEST_F(CommonKeys, ClipboardKeysAskTheEditorAndCutOnlyWhereAllowed) {
  EXPECT_EQ(editor.applyCommonKey('a' | kKeyCtrl, true, actions), 1);
  EXPECT_EQ(editor.selectedText(), L"one two");
  EXPECT_EQ(editor.applyCommonKey('C' | kKeyCmd, true, actions), 1);
  actions.mayCut = false;
  EXPECT_EQ(editor.applyCommonKey('x' | kKeyCtrl, true, actions), 1);
  EXPECT_EQ(editor.text(), L"one two");
  actions.mayCut = true;
  EXPECT_EQ(editor.applyCommonKey('x' | kKeyCtrl, true, actions), 1);
  EXPECT_EQ(editor.text(), L"");
  EXPECT_EQ(editor.applyCommonKey('v' | kKeyCtrl, false, actions), 1);
  EXPECT_EQ(editor.applyCommonKey('v' | kKeyCtrl, true, actions), 1);
  EXPECT_EQ(done, (std::vector<std::string>{"caret", "copy", "copy", "copy", "edited", "paste"}));
}

TEST_F(CommonKeys, OtherKeysAreTheEditorsOwn) {
  EXPECT_EQ(editor.applyCommonKey('q' | kKeyCtrl, true, actions), 0);
  EXPECT_EQ(editor.applyCommonKey('q', true, actions), -1);
  EXPECT_EQ(editor.applyCommonKey(kKeyHome, true, actions), -1);
  EXPECT_EQ(editor.applyCommonKey(kKeyReturn, true, actions), -1);
  EXPECT_TRUE(done.empty());
}

} // namespace

namespace {

TEST(TextEditCorePress, ASinglePressPlacesTheCaretAndMayDrag) {
  TextEditCore editor;
  editor.setText(L"one two");
  EXPECT_TRUE(editor.pressAt(5, 1, false));
  EXPECT_EQ(editor.caret(), 5u);
  EXPECT_FALSE(editor.hasSelection());
  EXPECT_TRUE(editor.pressAt(1, 1, true));
  EXPECT_EQ(editor.selectedText(), L"ne t");
}

TEST(TextEditCorePress, ADoubleClickSelectsTheWordAndStartsNoDrag) {
  TextEditCore editor;
  editor.setText(L"one two");
  EXPECT_FALSE(editor.pressAt(5, 2, false));
  EXPECT_EQ(editor.selectedText(), L"two");
}

} // namespace

namespace {

void typeKeys(TextEditCore& editor, std::wstring_view keys) {
  for (wchar_t key : keys)
    editor.insert(std::wstring_view(&key, 1));
}

TEST(TextEditCoreUndo, ARunOfTypingIsOneStepAndRedoTakesItAgain) {
  TextEditCore editor = editorWith(L"clip", 4);
  typeKeys(editor, L" two");
  EXPECT_EQ(editor.text(), L"clip two");
  ASSERT_TRUE(editor.undo());
  EXPECT_EQ(editor.text(), L"clip");
  EXPECT_EQ(editor.caret(), 4u);
  EXPECT_FALSE(editor.undo()) << "set by the program: nothing before it";
  ASSERT_TRUE(editor.redo());
  EXPECT_EQ(editor.text(), L"clip two");
  EXPECT_EQ(editor.caret(), 8u);
  EXPECT_FALSE(editor.redo());
}

TEST(TextEditCoreUndo, ACaretMoveAPasteAndDeletingEachMakeSteps) {
  TextEditCore editor = editorWith(L"", 0);
  typeKeys(editor, L"ab");
  editor.setCaret(0);
  typeKeys(editor, L"X");
  editor.setCaret(3);
  editor.insert(L"pasted"); // more than a keystroke
  editor.deleteBackward();
  editor.deleteBackward();
  EXPECT_EQ(editor.text(), L"Xabpast");
  std::vector<std::wstring> seen;
  while (editor.undo())
    seen.push_back(editor.text());
  EXPECT_EQ(seen, (std::vector<std::wstring>{L"Xabpasted", L"Xab", L"ab", L""}));
}

TEST(TextEditCoreUndo, TypingOverASelectionAndWhatFollowsIsOneStep) {
  TextEditCore editor = editorWith(L"take 1", 6);
  editor.setCaret(5, true);
  typeKeys(editor, L"12");
  EXPECT_EQ(editor.text(), L"take 12");
  ASSERT_TRUE(editor.undo());
  EXPECT_EQ(editor.text(), L"take 1");
  EXPECT_EQ(editor.selectedText(), L"1") << "the selection comes back with the text";
}

TEST(TextEditCoreUndo, ANewEditAfterUndoDropsWhatCouldBeRedone) {
  TextEditCore editor = editorWith(L"", 0);
  typeKeys(editor, L"abc");
  editor.undo();
  typeKeys(editor, L"x");
  EXPECT_FALSE(editor.redo());
  editor.setText(L"from the data");
  EXPECT_FALSE(editor.undo());
}

TEST_F(CommonKeys, CtrlZUndoesAndCtrlShiftZOrCtrlYRedoInAnEditableBoxOnly) {
  editor.insert(L" three");
  EXPECT_EQ(editor.applyCommonKey('z' | kKeyCtrl, false, actions), 1);
  EXPECT_EQ(editor.text(), L"one two three");
  EXPECT_EQ(editor.applyCommonKey('z' | kKeyCtrl, true, actions), 1);
  EXPECT_EQ(editor.text(), L"one two");
  EXPECT_EQ(editor.applyCommonKey(int('z') | kKeyCtrl | kKeyShift, true, actions), 1);
  EXPECT_EQ(editor.text(), L"one two three");
  editor.undo();
  EXPECT_EQ(editor.applyCommonKey('y' | kKeyCmd, true, actions), 1);
  EXPECT_EQ(editor.text(), L"one two three");
  EXPECT_EQ(editor.applyCommonKey('z' | kKeyCtrl, true, actions), 1);
  EXPECT_EQ(editor.applyCommonKey('z' | kKeyCtrl, true, actions), 1); // nothing left: no edit told
  EXPECT_EQ(done, (std::vector<std::string>{"edited", "edited", "edited", "edited"}));
}

} // namespace
