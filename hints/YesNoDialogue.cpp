#include <zowidgets/hints/YesNoDialogue.h>

#include <zowidgets/host/base/ResourceStrings.h>

namespace {

constexpr ResId kYesId = 10000;
constexpr ResId kNoId = 10001;

} // namespace

DialogueCtx<Loki::NullType>* makeYesNoDialogue(UIString const& title, UIString const& message,
                                               std::vector<Warn::Callback> const& callbacks, unsigned short x,
                                               unsigned short y) {
  // The words as plain text, so the buttons keep the language they were
  // made in.
  std::vector<UIString> const buttons{UIString(resourceStrW(kYesId)), UIString(resourceStrW(kNoId))};
  return DialogueCtx<Loki::NullType>::make(title, message, buttons, callbacks, x, y);
}

DialogueCtx<Loki::NullType>* makeYesNoDialogue(UIString const& message, std::vector<Warn::Callback> const& callbacks,
                                               unsigned short x, unsigned short y) {
  return makeYesNoDialogue(UIString(), message, callbacks, x, y);
}
