#include "FormTestSupport.h"

#include <zowidgets/forms/FoBool.h>
#include <zowidgets/forms/FoEntry.h>
#include <zowidgets/forms/FoVInt.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>

namespace {

using FormFocus = FormTest;

TEST_F(FormFocus, TheFirstElementIsCurrentButNotFocusedUntilAChange) {
  auto* first = new fo_entry(width(), height(), 0, L"First", 40, 0.5);
  auto* second = new fo_entry(width(), height(), 1, L"Second", 40, 0.5);
  form* sheet = openForm({first, second});
  EXPECT_EQ(sheet->getCurrent(), 0);
  EXPECT_FALSE(first->isFocused());
  EXPECT_FALSE(second->isFocused());
  // Asking for the current element still sets its flag.
  sheet->m_request_focus(0);
  EXPECT_TRUE(first->isFocused());
}

TEST_F(FormFocus, AClickOnAPromptMovesTheFocusThere) {
  auto* first = new fo_entry(width(), height(), 0, L"First", 40, 0.5);
  auto* second = new fo_bool(width(), height(), 1, L"Second", false);
  form* sheet = openForm({first, second});
  ASSERT_NE(second->getPromptWidget(), nullptr);
  HeadlessInput::clickOn(*second->getPromptWidget());
  pump();
  EXPECT_EQ(sheet->getCurrent(), 1);
  EXPECT_TRUE(second->isFocused());
  EXPECT_FALSE(second->getValue()) << "the prompt is not the checkbox";
  HeadlessInput::clickOn(*first->getPromptWidget());
  pump();
  EXPECT_EQ(sheet->getCurrent(), 0);
  EXPECT_TRUE(first->isFocused());
  EXPECT_FALSE(second->isFocused());
  EXPECT_TRUE(received().empty());
}

TEST_F(FormFocus, APressOnTheElementBetweenItsWidgetsMovesTheFocus) {
  auto* first = new fo_entry(width(), height(), 0, L"First", 40, 0.5);
  auto* second = new fo_entry(width(), height(), 1, L"Second", 40, 0.5);
  form* sheet = openForm({first, second});
  // The widget gap between the prompt and the box belongs to the element.
  Glob const* prompt = second->getPromptWidget();
  XY<int> const gap(prompt->getX() + prompt->width() + 1, second->height() / 2);
  ASSERT_EQ(second->pick(gap), second);
  HeadlessInput::clickOn(*second, gap);
  pump();
  EXPECT_EQ(sheet->getCurrent(), 1);
  EXPECT_TRUE(second->isFocused());
}

TEST_F(FormFocus, LeavingAFieldCommitsItsTextFirst) {
  auto* number = new fo_v_int(width(), height(), 0, L"Count", 1, 10, 0.5);
  auto* other = new fo_entry(width(), height(), 1, L"Other", 40, 0.5);
  form* sheet = openForm({number, other});
  sheet->m_request_focus(0);
  HeadlessInput::clickOn(*number->getTextBox());
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::typeText("0");
  HeadlessInput::clickOn(*other->getPromptWidget());
  pump();
  EXPECT_EQ(number->getTextBox()->getString(), LightweightString<wchar_t>(L"1"));
  EXPECT_EQ(number->m_get_value(), 1);
  EXPECT_TRUE(received().empty()) << "validation reports nothing";
}

TEST_F(FormFocus, ReturnInAnUnfocusedEntryTakesTheFocus) {
  auto* first = new fo_bool(width(), height(), 0, L"First", false);
  auto* second = new fo_entry(width(), height(), 1, L"Second", 40, 0.5);
  form* sheet = openForm({first, second});
  typeInto(*second, "x");
  EXPECT_EQ(sheet->getCurrent(), 1);
  EXPECT_TRUE(second->isFocused());
  EXPECT_EQ(received(), (std::vector<std::string>{"FormUp 001 x"}));
}

TEST_F(FormFocus, AnElementOutsideAFormCannotAskForFocus) {
  auto* entry = new fo_entry(width(), height(), 0, L"Loose", 40, 0.5);
  StandardPanel* panel = openPanel(XY<int>(elementWidth() + 20, 3 * elementHeight()));
  panel->addChild(entry, Glob::UserTopLeft(0, 0));
  entry->m_post_init();
  entry->m_request_focus();
  HeadlessInput::clickOn(*entry->getPromptWidget());
  pump();
  EXPECT_FALSE(entry->isFocused());
}

TEST_F(FormFocus, IndexesOutOfRangeAreHarmless) {
  auto* entry = new fo_entry(width(), height(), 0, L"Name", 40, 0.5);
  form* sheet = openForm({entry});
  sheet->m_set_element_entry(0, L"kept");
  for (int index : {-1, 1, 1000}) {
    EXPECT_EQ(sheet->m_get_element_type(index), kFormNoElement);
    EXPECT_EQ(sheet->m_get_element_choice_state(index), -1);
    sheet->m_set_element_choice_state(index, 1, 1);
    EXPECT_EQ(sheet->m_get_element_entry(index), LightweightString<wchar_t>());
    sheet->m_set_element_entry(index, L"lost");
    EXPECT_EQ(sheet->m_get_element_action(index), nullptr);
    sheet->m_set_element_action(index, "act");
    sheet->m_request_focus(index);
    EXPECT_EQ(sheet->getCurrent(), 0);
  }
  EXPECT_EQ(sheet->m_get_element_entry(0), LightweightString<wchar_t>(L"kept"));
  EXPECT_TRUE(received().empty());
}

// Virtual calls made by a constructor reach only the class being built, so
// an element's widgets come with m_post_init, which the form calls on adding
// it; there is no separate m_init stage.
TEST_F(FormFocus, AnElementsWidgetsComeWhenTheFormAddsIt) {
  auto* entry = new fo_entry(width(), height(), 0, L"Name", 40, 0.5);
  EXPECT_EQ(entry->getTextBox(), nullptr);
  EXPECT_EQ(entry->getPromptWidget(), nullptr);
  form* sheet = openForm({entry});
  ASSERT_NE(entry->getTextBox(), nullptr);
  EXPECT_EQ(entry->getTextBox()->parent(), entry);
  EXPECT_EQ(entry->parent(), sheet);
  EXPECT_EQ(sheet->getElement(0), entry);
}

TEST_F(FormFocus, TheBaseElementsOperationsDoNothing) {
  fo_eleme element(width(), height(), kFormNoElement, 0, L"Plain", fo_eleme::kDefaultPromptFraction, nullptr);
  element.m_set_choice_state(2, 1);
  element.m_set_entry(L"text");
  element.m_set_action("act");
  EXPECT_EQ(element.m_get_choice_state(), -1);
  EXPECT_TRUE(element.m_get_choice_state_label().isNull());
  EXPECT_TRUE(element.m_get_entry().empty());
  EXPECT_EQ(element.m_get_action(), nullptr);
  EXPECT_EQ(element.m_validate_state(), 0);
  EXPECT_FALSE(element.m_is_unread());
  EXPECT_FALSE(element.isFocused());
  EXPECT_DOUBLE_EQ(element.getPromptFraction(), 0.7);
}

TEST_F(FormFocus, ElementsAddedInOneGoStandInOrderDownTheForm) {
  fo_eleme* list[] = {new fo_bool(width(), height(), 0, L"A", false), new fo_entry(width(), height(), 1, L"B", 9, 0.5),
                      new fo_v_int(width(), height(), 2, L"C", 0, 9, 0.5), nullptr};
  int const margin = StandardPanel::getDefaultBorder().left();
  Glob::setupRootPos(nullptr, XY<int>(60, 60));
  auto* sheet =
      new form(static_cast<unsigned short>(elementWidth() + 2 * margin),
               static_cast<unsigned short>(8 * elementHeight()), owner.get(), 0, UifStd::getColourScheme(), L"", 0.5);
  sheet->m_add_elements(list, 0);
  GlobManager::realize(sheet);
  ASSERT_EQ(sheet->getElementCount(), 3);
  EXPECT_DOUBLE_EQ(sheet->getPromptFraction(), 0.5);
  Zo::Box<int> const user = sheet->getUserArea();
  EXPECT_EQ(list[0]->getX(), user.x0 + margin);
  EXPECT_EQ(list[0]->getY() + list[0]->height(), user.y1 - margin);
  for (int i = 1; i < 3; ++i) {
    EXPECT_EQ(list[i]->getX(), list[0]->getX());
    EXPECT_LE(list[i]->getY() + list[i]->height() + UifStd::getRowGap(), list[i - 1]->getY()) << i;
  }
}

} // namespace
