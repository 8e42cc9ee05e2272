#include <zowidgets/forms/Form.h>

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

StandardPanel::InitArgs panelArgs(unsigned short width, unsigned short height, int flags, Palette const& palette,
                                  LightweightString<wchar_t> const& title) {
  StandardPanel::InitArgs args(width, height);
  args.setPalette(palette);
  args.title = title;
  args.standardWidgets = static_cast<unsigned>(flags);
  return args;
}

// The text after a message's first seven characters: its name and a space.
char const* afterName(LightweightString<char> const& message) { return message.size() > 7 ? message.c_str() + 7 : ""; }

} // namespace

form::form() : form(0, 0, nullptr, 0, UifStd::getColourScheme(), {}, fo_eleme::kDefaultPromptFraction) {}

form::form(unsigned short width, unsigned short height, Glob* owner, int flags, Palette const& palette,
           LightweightString<wchar_t> title, double promptFraction)
    : StandardPanel(panelArgs(width, height, flags, palette, title)), owner(owner), promptFraction(promptFraction),
      sheetCol(palette.window()), elemeCol(palette.window()), textCol(palette.text()) {}

XY<int> form::calcSizeFor(int count, XY<int> elementSize, int flags, LightweightString<wchar_t> const& title) {
  int const margin = getDefaultBorder().left();
  // Each element after the first stands a row gap below, with a row
  // separator above it.
  int const between = UifStd::getRowGap() + UifStd::getRowSeparator(kRelativeAbove).top;
  int const rows = std::max(count, 1);
  XY<int> const userArea(elementSize.x + 2 * margin, rows * elementSize.y + (rows - 1) * between + 2 * margin);
  unsigned const widgets = static_cast<unsigned>(flags) | (title.empty() ? 0u : unsigned(kTitle));
  return calcPanelSize(userArea, widgets, getDefaultBorder());
}

void form::m_add_element(fo_eleme* element, int) {
  if (!element)
    return;
  if (elements.empty()) {
    int const margin = parent() ? UifStd::getWidgetGap() : getDefaultBorder().left();
    addChild(element, UserTopLeft(margin, margin));
  } else {
    addChild(element, Below(UifStd::getRowGap(), elements.back()), UifStd::getRowSeparator(kRelativeAbove));
  }
  elements.push_back(element);
  applyElementColours(*element);
  element->m_post_init();
}

void form::m_add_elements(fo_eleme** list, int flag) {
  for (; list && *list; ++list)
    m_add_element(*list, flag);
}

fo_eleme* form::getElement(int index) const {
  return index >= 0 && index < getElementCount() ? elements[static_cast<std::size_t>(index)] : nullptr;
}

form_element_type form::m_get_element_type(int index) const {
  fo_eleme const* element = getElement(index);
  return element ? element->getType() : kFormNoElement;
}

int form::m_get_element_choice_state(int index) const {
  fo_eleme const* element = getElement(index);
  return element ? element->m_get_choice_state() : -1;
}

void form::m_set_element_choice_state(int index, int state, int notify) {
  if (fo_eleme* element = getElement(index))
    element->m_set_choice_state(static_cast<unsigned>(state), notify);
}

LightweightString<wchar_t> form::m_get_element_entry(int index) const {
  fo_eleme* element = getElement(index);
  return element ? element->m_get_entry() : LightweightString<wchar_t>();
}

void form::m_set_element_entry(int index, LightweightString<wchar_t> const& text) {
  if (fo_eleme* element = getElement(index))
    element->m_set_entry(text);
}

char const* form::m_get_element_action(int index) const {
  fo_eleme const* element = getElement(index);
  return element ? element->m_get_action() : nullptr;
}

void form::m_set_element_action(int index, char const* action) {
  if (fo_eleme* element = getElement(index))
    element->m_set_action(action);
}

void form::m_request_focus(int index) {
  fo_eleme* next = getElement(index);
  if (!next)
    return;
  if (fo_eleme* previous = getElement(current)) {
    previous->m_validate_state();
    previous->focused = false;
  }
  current = index;
  next->focused = true;
}

bool form::m_update_others(form_update_table* table, form* source, int element,
                           LightweightString<wchar_t> const& text) {
  bool hit = false;
  for (form_update_table* row = table; row && row->sourceElement != form_update_table::kEndOfTable; ++row) {
    if (!source || row->source != source || row->sourceElement != element)
      continue;
    if (row->target)
      row->target->m_set_element_entry(row->targetElement, text);
    hit = true;
  }
  return hit;
}

int form::react(Event const& event) {
  if (!event.isMessage())
    return StandardPanel::react(event);
  if (std::strncmp(event.message.c_str(), fo_eleme::kElementUpMsg, 6) == 0) {
    if (owner) {
      char message[128];
      std::snprintf(message, sizeof message, "%s %s", kFormUpMsg, afterName(event.message));
      sendMsg(owner, message, this);
    }
    return 1;
  }
  if (std::strncmp(event.message.c_str(), kFocusRequestMsg, 6) == 0) {
    int index = 0;
    if (std::sscanf(afterName(event.message), "%d", &index) == 1 && index != current)
      m_request_focus(index);
    return 1;
  }
  return StandardPanel::react(event);
}

void form::setColours(Colour const& sheet, Colour const& element, Colour const& text) {
  sheetCol = sheet;
  elemeCol = element;
  textCol = text;
  applyColours();
}

void form::m_set_sheet_col(Colour const& colour) { setColours(colour, elemeCol, textCol); }
void form::m_set_eleme_col(Colour const& colour) { setColours(sheetCol, colour, textCol); }
void form::m_set_text_col(Colour const& colour) { setColours(sheetCol, elemeCol, colour); }

void form::applyColours() {
  Palette palette = getPalette();
  palette.setWindow(sheetCol);
  palette.setText(textCol);
  setPalette(palette);
  for (fo_eleme* element : elements)
    applyElementColours(*element);
  invalidate();
}

void form::applyElementColours(fo_eleme& element) const {
  Palette palette = getPalette();
  palette.setWindow(elemeCol);
  palette.setText(textCol);
  element.setPalette(palette);
}
