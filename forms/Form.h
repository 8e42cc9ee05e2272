#pragma once

#include <zowidgets/forms/FoEleme.h>
#include <zowidgets/forms/FormUpdateTable.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

#include <vector>

class Palette;

// The older message-driven dialogue engine: a panel holding a vertical run of
// elements, each one labelled field. Elements report to the form as text
// ("FoElUp"); the form passes their reports on to its owner as "FormUp <index>
// <payload>", and the owner reads and writes elements by index. Indexes out of
// range are harmless everywhere.
//
// Other widgets find a form by its idstring, so it stays "form" in
// subclasses too.
class ZO_API form : public StandardPanel {
public:
  // What the form sends its owner, and what asks it to move the focus.
  static constexpr char const* kFormUpMsg = "FormUp";
  static constexpr char const* kFocusRequestMsg = "FoElFR";

  form();
  // `flags` are the panel's standard widgets (StandardPanel::eStandardWidget).
  form(unsigned short width, unsigned short height, Glob* owner, int flags, Palette const& palette,
       LightweightString<wchar_t> title, double promptFraction);
  char const* idstring() const final { return "form"; }

  // The size of a top-level form that holds `count` elements of
  // `elementSize` one below the other, with these flags and title.
  static XY<int> calcSizeFor(int count, XY<int> elementSize, int flags, LightweightString<wchar_t> const& title);

  // Appends an element below the last one and makes its widgets. The form
  // owns it. The flag is accepted for the older dialogues and not used.
  void m_add_element(fo_eleme* element, int flag);
  // Appends each element of a null-terminated array.
  void m_add_elements(fo_eleme** elements, int flag);

  form_element_type m_get_element_type(int index) const;
  int m_get_element_choice_state(int index) const;
  void m_set_element_choice_state(int index, int state, int notify);
  LightweightString<wchar_t> m_get_element_entry(int index) const;
  void m_set_element_entry(int index, LightweightString<wchar_t> const& text);
  char const* m_get_element_action(int index) const;
  void m_set_element_action(int index, char const* action);
  // Validates the focused element, so that it commits its text, then moves
  // the focus to `index`.
  void m_request_focus(int index);

  // Copies `text`, the new value of `element` of `source`, to every target
  // the table names for it. True when some row was for it.
  static bool m_update_others(form_update_table* table, form* source, int element,
                              LightweightString<wchar_t> const& text);

  void setColours(Colour const& sheet, Colour const& element, Colour const& text);
  void m_set_sheet_col(Colour const& colour);
  void m_set_eleme_col(Colour const& colour);
  void m_set_text_col(Colour const& colour);
  Colour m_get_sheet_col() const { return sheetCol; }
  Colour m_get_eleme_col() const { return elemeCol; }
  Colour m_get_text_col() const { return textCol; }

  Glob* getOwner() const noexcept { return owner; }
  void setOwner(Glob* newOwner) noexcept { owner = newOwner; }
  int getCurrent() const noexcept { return current; }
  int getElementCount() const noexcept { return static_cast<int>(elements.size()); }
  fo_eleme* getElement(int index) const;
  double getPromptFraction() const noexcept { return promptFraction; }

  int react(Event const& event) override;

private:
  // The sheet colour under the form, the element colour under each element,
  // the text colour for both, through their palettes.
  void applyColours();
  void applyElementColours(fo_eleme& element) const;

  Glob* owner = nullptr;
  std::vector<fo_eleme*> elements;
  int current = 0;
  double promptFraction = fo_eleme::kDefaultPromptFraction;
  Colour sheetCol;
  Colour elemeCol;
  Colour textCol;
};
