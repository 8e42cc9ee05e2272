#include <zowidgets/diagnostics/GlobProbe.h>
#include <zowidgets/diagnostics/GlobTreePanel.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/GlobManager.h>

namespace {

CommandRegistrar const inspectorCommand(
    GlobInspector::kCommand, [](Cmd::Context const&) { GlobInspector::create(); }, UIString(L"Glob Inspector"),
    UIString(L"Opens the widget inspector at the pointer: drag its marked corner over a widget and press the left and "
             L"right buttons together on it"),
    kCmdScopeApplication, MapItem{});

CommandRegistrar const treeCommand(
    GlobTreePanel::kCommand,
    [](Cmd::Context const& context) { GlobManager::placeBeside(GlobTreePanel::create(), context.origin); },
    UIString(L"Glob Tree"),
    UIString(L"Opens the live tree of every window's widgets, with the details of the one selected"),
    kCmdScopeApplication, MapItem{});

} // namespace
