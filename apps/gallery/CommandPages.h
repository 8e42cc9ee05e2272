#pragma once

#include "GalleryPage.h"

#include <string>
#include <string_view>
#include <vector>

// The list of registered commands, then a page per command. A command's page
// shows a card describing it and runs the command, so that any window it
// opens is part of the page.
std::vector<GalleryPage> commandPages();

// A command name made safe as a file name: letters, digits, '-', '_' and '.'
// stay, anything else becomes '_'.
std::string fileSafeName(std::string_view name);
