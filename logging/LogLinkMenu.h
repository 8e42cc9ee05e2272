#pragma once

#include <zowidgets/host/base/LoggerBase.h>
#include <zowidgets/host/widgets/popups/Menu.h>

#include <vector>

// The menu over a link row: copy its targets, open the first, show them in
// their folders. Each entry carries the targets joined with ','.
namespace LogLinkMenu {

ZO_API std::vector<MenuItem> entriesFor(LoggerBase::HyperLink const& link);

// What the entries do with their joined targets; an empty list does nothing.
ZO_API void copyToClipboard(LightweightString<wchar_t> const& joined);
ZO_API void openFile(LightweightString<wchar_t> const& joined);
ZO_API void revealInOS(LightweightString<wchar_t> const& joined);

} // namespace LogLinkMenu
