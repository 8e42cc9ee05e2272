#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/UIString.h>

#include <functional>

class Glob;

// Where a log asks the user for a place to save it: by default a
// SaveFileDialogue for a name (its folder chosen in the host's file browser)
// and the host's FileChooserWindow for a folder, both starting in
// defaultFolder(). An application may install its own choosers instead.
namespace LogSaveChooser {

using NameChosen =
    std::function<void(LightweightString<wchar_t> const& folder, LightweightString<wchar_t> const& name)>;
using FolderChosen = std::function<void(LightweightString<wchar_t> const& folder)>;
// Asks for a file name in a folder: `over` is the panel asking. A chooser
// calls back once, with an empty folder when the user cancels.
using NameChooser = std::function<void(Glob* over, UIString const& title, LightweightString<wchar_t> const& folder,
                                       LightweightString<wchar_t> const& suggestedName, NameChosen const& chosen)>;
// Asks for a folder.
using FolderChooser = std::function<void(Glob* over, UIString const& title, LightweightString<wchar_t> const& folder,
                                         FolderChosen const& chosen)>;

// An empty function puts the default back.
ZO_API void setNameChooser(NameChooser chooser);
ZO_API void setFolderChooser(FolderChooser chooser);
// The folder a save starts in: the one set, or else the user's documents.
ZO_API void setDefaultFolder(LightweightString<wchar_t> const& folder);
ZO_API LightweightString<wchar_t> defaultFolder();

ZO_API void chooseName(Glob* over, UIString const& title, LightweightString<wchar_t> const& suggestedName,
                       NameChosen const& chosen);
ZO_API void chooseFolder(Glob* over, UIString const& title, FolderChosen const& chosen);

} // namespace LogSaveChooser
