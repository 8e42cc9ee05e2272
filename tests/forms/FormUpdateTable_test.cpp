#include "FormTestSupport.h"

#include <zowidgets/forms/FoBool.h>
#include <zowidgets/forms/FoEntry.h>
#include <zowidgets/forms/FoVInt.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>

#include <cstdio>

namespace {

using FormUpdateTable = FormTest;

// The owner of a dialogue: every report of its source form is copied on
// through the table, as the older dialogues do.
class CopyingOwner : public Glob {
public:
  explicit CopyingOwner(form_update_table* table) : Glob(GlobCreationInfo(XY<int>(10, 10))), table(table) {}
  int react(Event const& event) override {
    if (!event.isMessage())
      return 0;
    int element = -1;
    int consumed = 0;
    if (std::sscanf(event.message.c_str(), "FormUp %d %n", &element, &consumed) != 1 || consumed == 0)
      return 0;
    auto* source = static_cast<form*>(event.sourceWidget);
    copied = form::m_update_others(table, source, element, fo_eleme::msgToUIText(event.message.c_str() + consumed));
    return 1;
  }
  form_update_table* table;
  bool copied = false;
};

TEST_F(FormUpdateTable, ATableOfOnlyTheEndRowFindsNothing) {
  form* sheet = openForm({new fo_entry(width(), height(), 0, L"Name", 40, 0.5)});
  form_update_table table[] = {{sheet, form_update_table::kEndOfTable, sheet, 0}};
  EXPECT_FALSE(form::m_update_others(table, sheet, 0, L"x"));
  EXPECT_FALSE(form::m_update_others(table, sheet, -1, L"x"));
}

TEST_F(FormUpdateTable, ValuesTypedIntoOneFormAreCopiedIntoAnother) {
  auto* name = new fo_entry(width(), height(), 0, L"Name", 40, 0.5);
  auto* loop = new fo_bool(width(), height(), 1, L"Loop", false);
  auto* count = new fo_v_int(width(), height(), 2, L"Count", 1, 100, 0.5);
  form* source = openForm({name, loop, count}, XY<int>(40, 40));
  auto* copyName = new fo_entry(width(), height(), 0, L"Name", 40, 0.5);
  auto* copyLoop = new fo_bool(width(), height(), 1, L"Loop", false);
  auto* copyCount = new fo_v_int(width(), height(), 2, L"Count", 1, 10, 0.5);
  form* target = openForm({copyName, copyLoop, copyCount}, XY<int>(40, 400));

  form_update_table table[] = {{source, 0, target, 0},
                               {source, 1, target, 1},
                               {source, 2, target, 2},
                               {source, 2, target, 0},
                               {nullptr, form_update_table::kEndOfTable, nullptr, 0}};
  CopyingOwner copier(table);
  source->setOwner(&copier);

  typeInto(*name, "Opening titles");
  EXPECT_TRUE(copier.copied);
  EXPECT_EQ(copyName->getTextBox()->getString(), LightweightString<wchar_t>(L"Opening titles"));

  HeadlessInput::clickOn(*loop->getCheckbox());
  pump();
  EXPECT_TRUE(copyLoop->getValue());

  typeInto(*count, "42");
  EXPECT_EQ(copyCount->getTextBox()->getString(), LightweightString<wchar_t>(L"10")) << "clamped by the target";
  EXPECT_EQ(copyName->getTextBox()->getString(), LightweightString<wchar_t>(L"42")) << "a second row for the source";
  EXPECT_EQ(target->getOwner(), owner.get());
  EXPECT_TRUE(received().empty()) << "the target form reports nothing when set";
}

TEST_F(FormUpdateTable, ARowWithoutATargetStillCountsAndOtherFormsAreSkipped) {
  auto* entry = new fo_entry(width(), height(), 0, L"Name", 40, 0.5);
  form* sheet = openForm({entry});
  auto* otherEntry = new fo_entry(width(), height(), 0, L"Name", 40, 0.5);
  form* other = openForm({otherEntry}, XY<int>(40, 400));
  form_update_table table[] = {{other, 0, sheet, 0},
                               {sheet, 0, nullptr, 0},
                               {sheet, form_update_table::kEndOfTable, other, 0},
                               {sheet, 0, other, 0}};
  EXPECT_TRUE(form::m_update_others(table, sheet, 0, L"copied"));
  EXPECT_EQ(otherEntry->m_get_entry(), LightweightString<wchar_t>()) << "the row after the end is never read";
  EXPECT_EQ(entry->m_get_entry(), LightweightString<wchar_t>());
  EXPECT_FALSE(form::m_update_others(table, sheet, 1, L"copied"));
  EXPECT_FALSE(form::m_update_others(table, nullptr, 0, L"copied"));
}

} // namespace
