#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/Ptr.h>

class Glob;

// What a text box reports to its listeners.
struct ZO_API TextBoxEvent : iObject {
  enum eKind : int {
    kTextChanged = 2,   // the user changed the text
    kReturnPressed = 4, // the user confirmed the entry
  };

  TextBoxEvent(int kind, Glob* source, LightweightString<wchar_t> const& text)
      : kind(kind), source(source), text(text) {}

  int kind;
  Glob* source;
  LightweightString<wchar_t> text;
};
