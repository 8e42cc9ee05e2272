#include <zowidgets/forms/FoChoic.h>

fo_choic::fo_choic(unsigned short width, unsigned short height, int index, UIString const& prompt,
                   std::vector<UIString> const& choices, double fraction)
    : fo_choic(width, height, kFormChoice, index, prompt, choices, fraction) {}

fo_choic::fo_choic(unsigned short width, unsigned short height, form_element_type type, int index,
                   UIString const& prompt, std::vector<UIString> const& choices, double fraction)
    : fo_eleme(width, height, type, index, prompt.getString(), fraction, nullptr), choices(choices) {}

LightweightString<wchar_t> fo_choic::choiceText(UIString const& choice) {
  return choice.text().empty() ? resourceStrW(choice.resId()) : choice.text();
}

LightweightString<wchar_t> fo_choic::m_get_choice_state_label() {
  return chosen < choices.size() ? choiceText(choices[chosen]) : LightweightString<wchar_t>();
}

void fo_choic::m_set_choice_state(unsigned int index, int notify) {
  if (index < choices.size())
    chosen = index;
  if (notify && chosen < choices.size())
    sendMsg(this, msgFromUIText(choiceText(choices[chosen])), this);
}
