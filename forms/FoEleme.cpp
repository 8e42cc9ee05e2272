#include <zowidgets/forms/FoEleme.h>

#include <zowidgets/forms/Form.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <cmath>
#include <cstdio>

namespace {

// The prompt text; a click on it sends its element kPromptMsg, so that the
// element takes the focus even when its own widget would not.
class fo_prompt : public TextLabel {
public:
  using TextLabel::TextLabel;
  char const* idstring() const override { return "fo_prompt"; }
  int react(Event const& event) override {
    if (mouse_down_event(event) && mouse_left_event(event)) {
      sendMsg(fo_eleme::kPromptMsg);
      return 1;
    }
    return TextLabel::react(event);
  }
};

} // namespace

fo_eleme::fo_eleme(unsigned short width, unsigned short height, form_element_type type, int index,
                   LightweightString<wchar_t> const& prompt, double promptFraction, Canvas*)
    : Glob(GlobCreationInfo(width, height)), index(index), type(type), promptFraction(promptFraction), prompt(prompt) {}

void fo_eleme::m_post_init() {
  if (promptWidget)
    return;
  TextLabel::InitArgs args(XY<int>(std::max(0, promptWidth() - promptGap()), height()));
  args.text = prompt;
  promptWidget = createChild<fo_prompt>(args, TopLeft(0, 0));
}

int fo_eleme::promptGap() { return 2 * UifStd::getWidgetGap(); }

int fo_eleme::promptWidth() const { return static_cast<int>(std::lround(promptFraction * width())); }

WidgetPosition fo_eleme::fieldPosition() const { return TopLeft(promptWidth(), 0); }

XY<int> fo_eleme::fieldSize() const { return XY<int>(std::max(0, width() - promptWidth()), height()); }

void fo_eleme::m_request_focus() {
  Glob* owner = parent();
  if (is_good_glob_ptr(owner, "form"))
    static_cast<form*>(owner)->m_request_focus(index);
}

void fo_eleme::m_relay_msg_to_parent(LightweightString<char> const& text) {
  if (!parent())
    return;
  char message[128];
  std::snprintf(message, sizeof message, "%s %03d %s", kElementUpMsg, index, text.c_str());
  sendMsg(parent(), message, this);
}

LightweightString<char> fo_eleme::msgFromUIText(LightweightString<wchar_t> const& text) { return text.toUTF8(); }

LightweightString<wchar_t> fo_eleme::msgToUIText(LightweightString<char> const& text) {
  return LightweightString<wchar_t>::fromUTF8(text.view());
}

int fo_eleme::react(Event const& event) {
  if (event.isMessage() && event.message == kPromptMsg) {
    if (!focused)
      m_request_focus();
    return 1;
  }
  if (mouse_down_event(event) && mouse_left_event(event) && !focused)
    m_request_focus();
  return Glob::react(event);
}
