#include <zowidgets/forms/FoCycle.h>

#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>

fo_cycle::fo_cycle(unsigned short width, unsigned short height, int index, UIString const& prompt,
                   std::vector<UIString> const& choices, double fraction)
    : fo_choic(width, height, kFormCycle, index, prompt, choices, fraction) {}

void fo_cycle::m_post_init() {
  fo_eleme::m_post_init();
  if (button)
    return;
  std::vector<MenuItem> items;
  for (UIString const& choice : choices)
    items.emplace_back(UIString(choiceText(choice)));
  // Without a title the menu button still keeps a prompt gap before its
  // button, so it starts that much early to line up with the other kinds.
  XY<int> const size(fieldSize().x + promptGap(), fieldSize().y);
  button = createChild<TitleMenuButton>(
      TitleMenuButton::InitArgs(UIString(), std::move(items), static_cast<int>(chosen), size),
      TopLeft(promptWidth() - promptGap(), 0));
}

void fo_cycle::m_set_choice_state(unsigned int index, int notify) {
  fo_choic::m_set_choice_state(index, notify);
  if (button)
    button->setSelectedItem(static_cast<int>(chosen));
}

int fo_cycle::react(Event const& event) {
  if (event.isMessage() && button && event.message == DropDownMenuButton::dropDownMenuButtonMsg) {
    int const selected = button->getSelectedItem();
    if (selected < 0 || static_cast<std::size_t>(selected) >= choices.size())
      return 1;
    chosen = static_cast<unsigned>(selected);
    m_relay_msg_to_parent(msgFromUIText(choiceText(choices[chosen])));
    return 1;
  }
  return fo_choic::react(event);
}
