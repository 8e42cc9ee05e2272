#pragma once

#include <zowidgets/forms/FoChoic.h>

class TitleMenuButton;

// A choice element shown as a drop-down menu button. Choosing a row reports
// the chosen choice's text.
class ZO_API fo_cycle : public fo_choic {
public:
  fo_cycle(unsigned short width, unsigned short height, int index, UIString const& prompt,
           std::vector<UIString> const& choices, double fraction);
  char const* idstring() const override { return "fo_cycle"; }

  // As fo_choic, and the button shows the choice.
  void m_set_choice_state(unsigned int index, int notify) override;
  void m_post_init() override;
  int react(Event const& event) override;

  TitleMenuButton* getMenuButton() const noexcept { return button; }

private:
  TitleMenuButton* button = nullptr;
};
