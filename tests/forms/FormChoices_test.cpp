#include "FormTestSupport.h"

#include <zowidgets/forms/FoChoic.h>
#include <zowidgets/forms/FoCycle.h>

namespace {

using FormChoices = FormTest;
using Messages = std::vector<std::string>;

constexpr ResId kDissolveResource = 48001;

// A choice element that keeps the messages it is sent, as a dialogue's own
// choice element would act on them.
class ListeningChoice : public fo_choic {
public:
  using fo_choic::fo_choic;
  int react(Event const& event) override {
    if (event.isMessage())
      heard.push_back(event.message.str());
    return fo_choic::react(event);
  }
  Messages heard;
};

TEST_F(FormChoices, SettingWithNotifySendsTheElementItsChoicesText) {
  auto* choice = new ListeningChoice(width(), height(), 0, UIString(L"Wipe"), {L"Left", L"Right"}, 0.5);
  form* sheet = openForm({choice});
  EXPECT_EQ(sheet->m_get_element_type(0), kFormChoice);
  sheet->m_set_element_choice_state(0, 1, 0);
  EXPECT_TRUE(choice->heard.empty());
  sheet->m_set_element_choice_state(0, 0, 1);
  EXPECT_EQ(choice->heard, (Messages{"Left"}));
  EXPECT_EQ(choice->m_get_choice_state(), 0);
  // An index beyond the choices keeps the old one, and notifies it.
  sheet->m_set_element_choice_state(0, 5, 1);
  EXPECT_EQ(choice->m_get_choice_state(), 0);
  EXPECT_EQ(choice->heard, (Messages{"Left", "Left"}));
  EXPECT_TRUE(received().empty());
}

TEST_F(FormChoices, AChoiceWithoutTextTakesItsResourcesText) {
  setResourceString(kDissolveResource, L"Dissolve");
  auto* choice = new ListeningChoice(width(), height(), 0, UIString(L"Transition"),
                                     {UIString(L"Cut"), UIString(kDissolveResource, L"")}, 0.5);
  openForm({choice});
  choice->m_set_choice_state(1, 1);
  EXPECT_EQ(choice->m_get_choice_state_label(), LightweightString<wchar_t>(L"Dissolve"));
  // Host strings carry no flags, so no choice is marked as opening a
  // dialogue and none gets ".." added (docs/forms.md).
  EXPECT_EQ(choice->heard, (Messages{"Dissolve"}));
}

TEST_F(FormChoices, TheVoidChoiceIsReportedByItsName) {
  auto* cycle = new fo_cycle(width(), height(), 2, UIString(L"Track"), {fo_choic::kVoidChoice, L"V1"}, 0.5);
  openForm({cycle});
  DropDownMenuButton& button = cycle->getMenuButton()->getBtn();
  button.setSelectedItem(1);
  chooseRow(*cycle, 0);
  EXPECT_EQ(received(), (Messages{"FormUp 002 __void"}));
  EXPECT_EQ(cycle->m_get_choice_state(), 0);
}

TEST_F(FormChoices, FormColoursReachTheSheetAndItsElements) {
  auto* choice = new fo_cycle(width(), height(), 0, UIString(L"Rate"), {L"24", L"25"}, 0.5);
  form* sheet = openForm({choice});
  EXPECT_EQ(sheet->m_get_sheet_col(), UifStd::getColourScheme().window());
  Colour const sheetColour(0.1, 0.2, 0.3);
  Colour const elementColour(0.4, 0.5, 0.6);
  Colour const textColour(0.9, 0.8, 0.7);
  sheet->setColours(sheetColour, elementColour, textColour);
  EXPECT_EQ(sheet->getPalette().window(), sheetColour);
  EXPECT_EQ(choice->getPalette().window(), elementColour);
  EXPECT_EQ(choice->getPalette().text(), textColour);
  sheet->m_set_eleme_col(textColour);
  EXPECT_EQ(sheet->m_get_eleme_col(), textColour);
  EXPECT_EQ(sheet->m_get_sheet_col(), sheetColour);
  EXPECT_EQ(choice->getPalette().window(), textColour);
  sheet->m_set_sheet_col(elementColour);
  sheet->m_set_text_col(sheetColour);
  EXPECT_EQ(sheet->m_get_sheet_col(), elementColour);
  EXPECT_EQ(sheet->m_get_text_col(), sheetColour);
  pump();
  int const margin = StandardPanel::getDefaultBorder().left();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*sheet, XY<int>(margin / 2, margin / 2))), rgbOf(elementColour), 2));
  Glob const* prompt = choice->getPromptWidget();
  XY<int> const inGap(prompt->getX() + prompt->width() + 1, 1);
  EXPECT_TRUE(near(rgbOf(widgetPixel(*choice, inGap)), rgbOf(textColour), 2));
}

} // namespace
