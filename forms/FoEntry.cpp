#include <zowidgets/forms/FoEntry.h>

#include <zowidgets/host/widgets/text/TitleTextBox.h>

fo_entry::fo_entry(unsigned short width, unsigned short height, int index, LightweightString<wchar_t> const& prompt,
                   int maxChars, double fraction)
    : fo_entry(width, height, kFormEntry, index, prompt, maxChars, fraction) {}

fo_entry::fo_entry(unsigned short width, unsigned short height, form_element_type type, int index,
                   LightweightString<wchar_t> const& prompt, int maxChars, double fraction)
    : fo_eleme(width, height, type, index, prompt, fraction, nullptr), maxChars(maxChars) {}

void fo_entry::m_post_init() {
  fo_eleme::m_post_init();
  if (box)
    return;
  TitleTextBox::InitArgs args(fieldSize());
  // The element's prompt is the legend; the box's own title stays empty.
  args.titleWidth = 1;
  box = createChild<TitleTextBox>(args, fieldPosition());
  box->setSizeLimit(maxChars > 0 ? static_cast<std::size_t>(maxChars) : 0);
  box->requestCallback(kReturnPressedMsg, this, TextBoxEvent::kReturnPressed);
  m_reset_entry();
}

int fo_entry::react(Event const& event) {
  if (event.isMessage() && event.message == kReturnPressedMsg) {
    if (!isFocused())
      m_request_focus();
    unread = false;
    m_relay_msg_to_parent(msgFromUIText(m_get_entry()));
    return 1;
  }
  return fo_eleme::react(event);
}

LightweightString<wchar_t> fo_entry::m_get_entry() {
  m_collect_entry();
  return entry;
}

void fo_entry::m_set_entry(LightweightString<wchar_t> const& text) {
  entry = text;
  m_reset_entry();
}

int fo_entry::m_collect_entry() {
  if (box)
    entry = box->getString();
  return 0;
}

int fo_entry::m_validate_entry(LightweightString<wchar_t>) { return 0; }

void fo_entry::m_reset_entry() {
  if (box)
    box->setString(entry);
}
