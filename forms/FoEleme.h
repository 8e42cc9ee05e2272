#pragma once

#include <zowidgets/forms/FormElementType.h>
#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/toolkit/Glob.h>

class Canvas;

// One labelled field of a form: a prompt on the left and the element's own
// widget on the right. Elements report upward only as text ("FoElUp"), and
// the form's owner reads and writes them through the operations below, all of
// which do nothing useful here and are overridden by the element kinds.
//
// Construction is two-stage: the constructor keeps the element's settings,
// and m_post_init, which the form calls once the element has its parent,
// makes the child widgets.
class ZO_API fo_eleme : public Glob {
public:
  static constexpr double kDefaultPromptFraction = 0.7;
  // What the prompt sends its element when clicked.
  static constexpr char const* kPromptMsg = "Fo_eleme_prompt";
  // What an element sends its form; the index and the payload follow.
  static constexpr char const* kElementUpMsg = "FoElUp";

  fo_eleme(unsigned short width, unsigned short height, form_element_type type, int index,
           LightweightString<wchar_t> const& prompt, double promptFraction, Canvas* canvas);
  char const* idstring() const override { return "fo_eleme"; }

  virtual int m_get_choice_state() const { return -1; }
  virtual LightweightString<wchar_t> m_get_choice_state_label() { return {}; }
  virtual void m_set_choice_state(unsigned int, int) {}
  virtual LightweightString<wchar_t> m_get_entry() { return {}; }
  virtual void m_set_entry(LightweightString<wchar_t> const&) {}
  virtual char const* m_get_action() const { return nullptr; }
  virtual void m_set_action(char const*) {}
  // 0 when the element's state is acceptable; may correct the state.
  virtual int m_validate_state() { return 0; }
  virtual bool m_is_unread() const { return false; }

  // Makes the prompt and the child widget; the form calls it when adding.
  virtual void m_post_init();
  // Asks the form this element lives in to move the focus here.
  void m_request_focus();
  // Sends "FoElUp <index> <text>" to the parent, cut to 127 characters.
  void m_relay_msg_to_parent(LightweightString<char> const& text);

  // Message payloads are UTF-8; these convert to and from the UI's text.
  static LightweightString<char> msgFromUIText(LightweightString<wchar_t> const& text);
  static LightweightString<wchar_t> msgToUIText(LightweightString<char> const& text);

  bool isFocused() const noexcept { return focused; }
  int getIndex() const noexcept { return index; }
  form_element_type getType() const noexcept { return type; }
  double getPromptFraction() const noexcept { return promptFraction; }
  LightweightString<wchar_t> const& getPrompt() const noexcept { return prompt; }
  // The prompt widget, once m_post_init has made it.
  Glob* getPromptWidget() const noexcept { return promptWidget; }

  int react(Event const& event) override;

protected:
  // The width left of the child widget: the prompt, then promptGap().
  int promptWidth() const;
  // The space between the prompt and the child widget; it belongs to the
  // element, so a press there asks for the focus.
  static int promptGap();
  // Where the child widget goes and how big it is: the rest of the row.
  WidgetPosition fieldPosition() const;
  XY<int> fieldSize() const;

private:
  friend class form;

  bool focused = false;
  int index;
  form_element_type type;
  double promptFraction;
  LightweightString<wchar_t> prompt;
  Glob* promptWidget = nullptr;
};
