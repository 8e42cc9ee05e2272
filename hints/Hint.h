#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/UIString.h>

// A one-off piece of advice about a control: its text, an identity, and an
// optional link to read more. Whether the user has acknowledged it is kept in
// the preferences under "UI : Hinted <id>", so that it survives restarts.
//
// The caller's sequence: if !hasBeenIssued(), show it with HintWindow::make.
// Only the window's OK button marks it issued; a hint that goes away for any
// other reason comes back next time.
class ZO_API Hint {
public:
  // A hint with no persistent identity: it always counts as already given.
  static constexpr unsigned kNoPersistentId = 0xFFFFFFFF;
  // What every hint's preference key begins with.
  static constexpr char const* kKeyPrefix = "UI : Hinted ";

  Hint() = default;
  Hint(UIString const& text, unsigned id, LightweightString<wchar_t> const& link = {});

  // True for a non-empty key that begins with kKeyPrefix, whatever follows.
  static bool isHintID(LightweightString<char> const& key);
  // The preference key of a hint: kKeyPrefix and the decimal id.
  static LightweightString<char> makePersistableID(unsigned id);

  // Stores whether the user has acknowledged the hint; nothing for a hint
  // without a persistent identity.
  void setIssued(bool issued) const;
  bool hasBeenIssued() const;

  UIString const& getText() const noexcept { return text_; }
  unsigned getId() const noexcept { return id_; }
  LightweightString<wchar_t> const& getLink() const noexcept { return link_; }

private:
  UIString text_;
  unsigned id_ = kNoPersistentId;
  LightweightString<wchar_t> link_;
};
