#pragma once

#include <zowidgets/hints/DialogueCtx.h>

// Asks `message` with the buttons "Yes" and "No", in the user's language;
// callbacks[0] runs on Yes, callbacks[1] on No. Returns the open dialogue.
ZO_API DialogueCtx<Loki::NullType>* makeYesNoDialogue(UIString const& title, UIString const& message,
                                                      std::vector<Warn::Callback> const& callbacks,
                                                      unsigned short x = DialogueCtx<Loki::NullType>::kDefaultPosition,
                                                      unsigned short y = DialogueCtx<Loki::NullType>::kDefaultPosition);
// The same with the standard title.
ZO_API DialogueCtx<Loki::NullType>* makeYesNoDialogue(UIString const& message,
                                                      std::vector<Warn::Callback> const& callbacks,
                                                      unsigned short x = DialogueCtx<Loki::NullType>::kDefaultPosition,
                                                      unsigned short y = DialogueCtx<Loki::NullType>::kDefaultPosition);
