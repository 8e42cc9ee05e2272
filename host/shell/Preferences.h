#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <memory>
#include <string>

// The user's settings: typed values under text keys, kept in one file that
// survives restarts. Safe from any thread.
//
// Each change is written at once (write-through): the whole store goes to a
// temporary file in the same folder, which is flushed to disk and renamed
// over the old file, so a crash leaves either the old file or the new one,
// never half of one. Setting a key to the value it already has writes
// nothing. A file that cannot be read as a store (corrupt or truncated) is
// renamed with the suffix ".corrupt", a warning goes to standard error, and
// the defaults are used. A failed write keeps the value in memory, warns,
// and is tried again by the next change or by flush().
//
// Values are stored as text in their DataConvert forms, so a value set as one
// type reads back as another where the forms agree (an int set is a double
// got). The file is configb's text form with one child, "preferences",
// holding the entries; docs/host-services.md gives the details.
class ZO_API EditorPreferences {
public:
  // Uses the store in `filePath`, reading it at once if it exists. An empty
  // path keeps the store in memory only.
  explicit EditorPreferences(std::string filePath);
  ~EditorPreferences();
  EditorPreferences(EditorPreferences const&) = delete;
  EditorPreferences& operator=(EditorPreferences const&) = delete;

  // Where prefs() keeps its store: "preferences.conf" in $ZOWIDGETS_CONFIG_DIR
  // if that is set, otherwise in the "zowidgets" folder of $XDG_CONFIG_HOME
  // (when absolute) or of ~/.config. Empty if there is no home folder.
  static std::string defaultFilePath();
  std::string const& filePath() const noexcept;

  bool getPreference(LightweightString<char> const& key, bool def) const;
  int getPreference(LightweightString<char> const& key, int def) const;
  double getPreference(LightweightString<char> const& key, double def) const;
  LightweightString<wchar_t> getPreference(LightweightString<char> const& key,
                                           LightweightString<wchar_t> const& def) const;
  LightweightString<wchar_t> getPreference(LightweightString<char> const& key, wchar_t const* def) const;
  // Narrow text would otherwise quietly read as a bool.
  void getPreference(LightweightString<char> const& key, char const* def) const = delete;

  void setPreference(LightweightString<char> const& key, bool value);
  void setPreference(LightweightString<char> const& key, int value);
  void setPreference(LightweightString<char> const& key, double value);
  void setPreference(LightweightString<char> const& key, LightweightString<wchar_t> const& value);
  void setPreference(LightweightString<char> const& key, wchar_t const* value);
  void setPreference(LightweightString<char> const& key, char const* value) = delete;

  bool hasPreference(LightweightString<char> const& key) const;
  // Forgets `key`, so its readers get their defaults again; written at once
  // like a change. Forgetting a key that is not set writes nothing.
  void removePreference(LightweightString<char> const& key);
  // Forgets every key, written at once (nothing is written when the store is
  // already empty).
  void clear();

  // Writes the store if an earlier write failed. True when the file holds
  // every change (or the store lives in memory only).
  bool flush();
  // Reads the file again, taking changes another process has made. A change
  // whose write failed, and was not flushed since, is dropped.
  void reload();

private:
  struct Store;
  void setText(LightweightString<char> const& key, LightweightString<wchar_t> const& text);

  std::unique_ptr<Store> store_;
};

// The process-wide store, at EditorPreferences::defaultFilePath(), read on
// first use.
ZO_API EditorPreferences& prefs();

// An int setting from prefs(), or `def` when it is not set, clamped to
// [min, max].
ZO_API int config_int(LightweightString<char> const& key, int def, int min, int max);
