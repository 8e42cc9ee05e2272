#pragma once

#include <zowidgets/forms/FoEleme.h>

#include <string>

class TitleTextBox;

// A text element shown as a text box. Return in the box confirms the entry:
// the element takes the focus and reports its text. The text box's string
// reaches `entry` when collected: on Return, when the focus leaves the
// element, and when the owner reads it.
class ZO_API fo_entry : public fo_eleme {
public:
  // What the text box sends this element when Return is pressed.
  static constexpr char const* kReturnPressedMsg = "ReturnPressed";

  fo_entry(unsigned short width, unsigned short height, int index, LightweightString<wchar_t> const& prompt,
           int maxChars, double fraction);
  char const* idstring() const override { return "fo_entry"; }

  // The entry, collected from the box first.
  LightweightString<wchar_t> m_get_entry() override;
  // Stores the text and shows it in the box.
  void m_set_entry(LightweightString<wchar_t> const& text) override;
  // Collects the entry, so that the box's text is committed.
  int m_validate_state() override { return m_collect_entry(); }
  // True until the user first confirms the entry with Return.
  bool m_is_unread() const override { return unread; }
  void m_post_init() override;
  int react(Event const& event) override;

  // Copies the box's text to `entry`; 0 when it was accepted as it is.
  virtual int m_collect_entry();
  // 0 when `text` is acceptable as it stands.
  virtual int m_validate_entry(LightweightString<wchar_t> text);
  // Makes the printf format the element writes its value with, if it has one.
  virtual void m_init_format() {}

  TitleTextBox* getTextBox() const noexcept { return box; }
  int getMaxChars() const noexcept { return maxChars; }

protected:
  fo_entry(unsigned short width, unsigned short height, form_element_type type, int index,
           LightweightString<wchar_t> const& prompt, int maxChars, double fraction);
  // Shows `entry` in the box.
  void m_reset_entry();

  LightweightString<wchar_t> entry;
  std::string format;
  bool unread = true;

private:
  int maxChars;
  TitleTextBox* box = nullptr;
};
