#pragma once

#include <zowidgets/host/LightweightString.h>

// What the host delivers to an EventHandler. Message events carry a name and
// an optional data object.
struct ZO_API Event {
  static constexpr int kMessageEvent = 16385;

  int type = 0;
  LightweightString<char> message;
  Zo::Ptr<iObject> data;
  iObject* sender = nullptr;

  bool isMessage() const noexcept { return type == kMessageEvent; }
};
