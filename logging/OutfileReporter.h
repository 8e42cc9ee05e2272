#pragma once

#include <zowidgets/logging/OutfileCheck.h>

class Glob;

// Tells the user, in words, why a file cannot be written at a path, and
// offers to replace one that exists. The constructor does all of it; the
// object then only holds the result. One report shows at a time: a new one
// closes the windows of the last, which outlive their reporter.
class ZO_API outfile_reporter {
public:
  // Sent to the listener when the user chooses to replace the file, unless
  // the caller names another message.
  static constexpr char const* kReplaceFileMsg = "outfile_replace_file";

  // `code` kOutfileCheckIt runs outfile_check(path, overwriteAllowed) first;
  // any other code is reported as it is.
  outfile_reporter(LightweightString<wchar_t> const& path, bool overwriteAllowed, Glob* listener,
                   char const* replaceMessage = nullptr, outfile_check_code code = kOutfileCheckIt);
  ~outfile_reporter();
  outfile_reporter(outfile_reporter const&) = delete;
  outfile_reporter& operator=(outfile_reporter const&) = delete;

  // Keeps at most 31 characters; a null or empty text changes nothing.
  void set_replace_message(char const* message);
  char const* getReplaceMessage() const noexcept { return replaceMessage_; }
  outfile_check_code getCode() const noexcept { return code; }
  // The message window this report opened, if any.
  Glob* getMessage() const noexcept { return message_; }

  // The reporter now reporting (cleared when it goes), the open replace
  // warning and the open message.
  static outfile_reporter* anyone;
  static Glob* overwrite;
  static Glob* msg;

  outfile_check_code code = kOutfileUsable;

private:
  static void closeOpenReports();
  void show(LightweightString<wchar_t> const& path, Glob* listener);

  char replaceMessage_[32] = {};
  Glob* message_ = nullptr;
};

// Reports on `path` as a plain function: returns the code, and leaves no
// reporter in outfile_reporter::anyone.
ZO_API outfile_check_code outfile_uif_report(LightweightString<wchar_t> const& path, bool overwriteAllowed,
                                             Glob* listener, char const* replaceMessage = nullptr,
                                             outfile_check_code code = kOutfileCheckIt);
