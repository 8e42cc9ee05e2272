#pragma once

#include <zowidgets/builder/UIBuilderParams.h>
#include <zowidgets/host/base/JSONBuilder.h>

// The built tree and the rows' values of a panel, written as JSON.
namespace PanelDump {

// Every widget under `root`: its class, name, box (bottom-up, in its
// parent), whether it is visible and active, and its children.
void writeTree(JSON::Builder& out, Glob const& root);

// One entry per named row of the panel `root`, in the order the rows were
// made: its id, the kind of row, and the value it shows.
void writeValues(JSON::Builder& out, Glob& root, UIBuilder::Params const& built);

} // namespace PanelDump
