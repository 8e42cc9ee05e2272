#include <zowidgets/forms/FoBool.h>

#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>

#include <algorithm>
#include <cwctype>

namespace {

bool equalIgnoringCase(LightweightString<wchar_t> const& a, LightweightString<wchar_t> const& b) {
  return std::ranges::equal(a.view(), b.view(),
                            [](wchar_t x, wchar_t y) { return std::towlower(x) == std::towlower(y); });
}

} // namespace

fo_bool::fo_bool(unsigned short width, unsigned short height, int index, LightweightString<wchar_t> const& prompt,
                 bool value, double promptFraction)
    : fo_eleme(width, height, kFormBool, index, prompt, promptFraction, nullptr), value(value) {}

void fo_bool::m_post_init() {
  fo_eleme::m_post_init();
  if (checkbox)
    return;
  checkbox = createChild<Checkbox>(Checkbox::InitArgs(UIString(), fieldSize(), value), fieldPosition());
  checkbox->setCallback(Broadcaster<CheckboxEvent>::makeCallback([this](CheckboxEvent const& event) {
    if (event.kind != CheckboxEvent::kToggled)
      return;
    value = event.checked;
    m_relay_msg_to_parent(value ? "Yes" : "No");
  }));
}

void fo_bool::m_set_entry(LightweightString<wchar_t> const& text) {
  value = equalIgnoringCase(text, resourceStrW(kYesResource));
  showValue();
}

void fo_bool::showValue() {
  if (!checkbox)
    return;
  bool shown = value;
  checkbox->setNewWidgetValue(shown, kRedrawNow);
}
