#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// What the index says of one page.
struct IndexEntry {
  std::string name; // the picture is <name>.png beside the index
  std::string title;
  std::string description;
  bool written = false;
};

// Text made safe to place in HTML, in element content and quoted attributes.
std::string escapeHtml(std::string_view text);
// Writes an HTML page showing every entry's title, description and picture.
// False when the file could not be written.
bool writeHtmlIndex(std::filesystem::path const& path, std::vector<IndexEntry> const& entries);
