#pragma once

#include <zowidgets/host/base/UIString.h>

// The text a box's ghost label shows, as every text-entry widget resolves
// it: a label with a resource id and no literal text is looked up in the
// string tables (the tables' placeholder when none has the id); otherwise
// the literal text stands, even beside an id. A box is given the resolved
// text, so that what it shows is fixed when the label is set.
ZO_API LightweightString<wchar_t> resolveGhostLabel(UIString const& label);
