#pragma once

#include <zowidgets/host/base/LightweightString.h>

// A news item the program shows as it starts: a title, a text (a paragraph
// of HTML, or a link beginning with "http"), a picture, where it comes from
// and how often it comes back. Whether it was seen is kept in the user's
// preferences, so "once" holds across restarts.
class ZO_API StartupMessage {
public:
  using String = LightweightString<wchar_t>;

  StartupMessage() = default;
  StartupMessage(String title, String text, String imagePath, String id, String source, String recurrence);

  String title;
  String text;
  String imagePath;
  // Names the message in the read-state store.
  String id;
  // Where the message came from (a feed, a file, the program itself).
  String source;
  // "once" (or nothing): shown until it has been seen; anything else comes
  // back at each start until the user asks not to see it again.
  String recurrence;

  bool isRecurring() const;
  // Remembers that the message was read; it is not shown again.
  void markAsRead() const;
  bool isRead() const;
  // Whether the program should show it at this start.
  bool shouldShow() const { return !isRead(); }

  // The preference key its read state is kept under.
  LightweightString<char> readStateKey() const;
};
