#pragma once

#include <zowidgets/host/base/JSONElement.h>

#include <string>
#include <vector>

// What a description asks of a number row that the row cannot show as one
// value: a default outside its range (the slider stops at the nearer end
// while the box shows the default) or a range that runs backwards. The
// builder keeps such rows as they are written; zopanel tells of them, one
// line each, naming the row as the description does.
std::vector<std::string> rangeWarnings(Zo::Ptr<JSON::Element> const& description);
