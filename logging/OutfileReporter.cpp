#include <zowidgets/logging/OutfileReporter.h>

#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/shell/FilePaths.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/panels/Message.h>

#include <cstring>

namespace {

using WString = LightweightString<wchar_t>;

constexpr ResId kNoPermissionId = 10739;
constexpr ResId kReplaceId = 10806;
constexpr ResId kInvalidNameId = 10807;
constexpr ResId kNoFolderId = 11293;
constexpr ResId kYesId = 10000;
constexpr ResId kNoId = 10001;
constexpr std::wstring_view kFilePlaceholder = L"$FILE$";

WString withFile(ResId id, WString const& file) {
  WString text = resourceStrW(id);
  text.substitute(kFilePlaceholder, file.view());
  return text;
}

void closeIfOpen(Glob*& window) {
  if (window && is_good_glob_ptr(window, "warn"))
    static_cast<Message*>(window)->close();
  window = nullptr;
}

} // namespace

outfile_reporter* outfile_reporter::anyone = nullptr;
Glob* outfile_reporter::overwrite = nullptr;
Glob* outfile_reporter::msg = nullptr;

outfile_reporter::outfile_reporter(WString const& path, bool overwriteAllowed, Glob* listener,
                                   char const* replaceMessage, outfile_check_code checkCode) {
  anyone = this;
  closeOpenReports();
  set_replace_message(replaceMessage && *replaceMessage ? replaceMessage : kReplaceFileMsg);
  code = checkCode == kOutfileCheckIt ? outfile_check(path, overwriteAllowed) : checkCode;
  show(path, listener);
}

outfile_reporter::~outfile_reporter() {
  if (anyone == this)
    anyone = nullptr;
}

void outfile_reporter::closeOpenReports() {
  closeIfOpen(overwrite);
  closeIfOpen(msg);
}

void outfile_reporter::set_replace_message(char const* message) {
  if (!message || !*message)
    return;
  std::strncpy(replaceMessage_, message, sizeof replaceMessage_ - 1);
  replaceMessage_[sizeof replaceMessage_ - 1] = '\0';
}

void outfile_reporter::show(WString const& path, Glob* listener) {
  switch (code) {
  case kOutfileNoFolder: {
    WString text = resourceStrW(kNoFolderId);
    text += L" (";
    text += getPath(path);
    text += L")";
    msg = message_ = makeMessage(UIString(text));
    break;
  }
  case kOutfileExists:
    overwrite = message_ =
        make_warn(UIString(withFile(kReplaceId, path)), {UIString(resourceStrW(kYesId)), UIString(resourceStrW(kNoId))},
                  {Button::makeMessageCallback(LightweightString<char>(replaceMessage_), listener), {}});
    break;
  case kOutfileInvalidName:
    msg = message_ = makeMessage(UIString(withFile(kInvalidNameId, stripExtension(stripPath(path)))));
    break;
  case kOutfileNoPermissionFloppy:
  case kOutfileNoPermission:
    msg = message_ = makeMessage(UIString(resourceStrW(kNoPermissionId)));
    break;
  default:
    break;
  }
}

outfile_check_code outfile_uif_report(WString const& path, bool overwriteAllowed, Glob* listener,
                                      char const* replaceMessage, outfile_check_code code) {
  // The reporter goes at the end of the statement, and with it `anyone`.
  return outfile_reporter(path, overwriteAllowed, listener, replaceMessage, code).code;
}
