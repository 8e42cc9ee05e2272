#pragma once

#include <zowidgets/forms/FoEntry.h>

// A text element for a path. It keeps the last path that passed validation
// and goes back to it when a collected entry fails. Any path passes here; a
// subclass may be stricter by overriding m_validate_entry.
class ZO_API fo_path : public fo_entry {
public:
  // The longest path the box takes, whatever the caller asked for.
  static constexpr int kMaxPathChars = 128;

  fo_path(unsigned short width, unsigned short height, int index, LightweightString<wchar_t> const& prompt,
          int maxChars, double fraction);
  char const* idstring() const override { return "fo_path"; }

  // Collects and validates; a failure brings back the last good path.
  int m_collect_entry() override;
  int m_validate_entry(LightweightString<wchar_t> text) override;
  // Stores and shows the text, leaving the last good path as it was.
  void m_set_entry(LightweightString<wchar_t> const& text) override;

  LightweightString<wchar_t> const& getLastGoodPath() const noexcept { return lastGoodPath; }

private:
  LightweightString<wchar_t> lastGoodPath;
};
