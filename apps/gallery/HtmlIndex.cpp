#include "HtmlIndex.h"

#include <fstream>

std::string escapeHtml(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (char c : text) {
    switch (c) {
    case '&':
      escaped += "&amp;";
      break;
    case '<':
      escaped += "&lt;";
      break;
    case '>':
      escaped += "&gt;";
      break;
    case '"':
      escaped += "&quot;";
      break;
    case '\'':
      escaped += "&#39;";
      break;
    default:
      escaped += c;
    }
  }
  return escaped;
}

namespace {

constexpr char const* kStyle = R"(body { background: #1b1d21; color: #d8dadf; font-family: sans-serif; margin: 2em; }
h1 { font-weight: 500; }
nav a { color: #7fb2ff; margin-right: 1em; }
section { margin: 2em 0; padding-top: 1em; border-top: 1px solid #33363c; }
h2 { font-weight: 500; margin: 0 0 0.3em 0; }
p { color: #a9adb5; margin: 0 0 1em 0; }
code { color: #a9adb5; }
img { display: block; box-shadow: 0 4px 16px #0008; }
.failed { color: #ff7b72; })";

void writeEntry(std::ofstream& out, IndexEntry const& entry) {
  std::string const name = escapeHtml(entry.name);
  out << "<section id=\"" << name << "\">\n<h2>" << escapeHtml(entry.title) << " <code>" << name << "</code></h2>\n"
      << "<p>" << escapeHtml(entry.description) << "</p>\n";
  if (entry.written)
    out << "<img src=\"" << name << ".png\" alt=\"" << escapeHtml(entry.title) << "\">\n";
  else
    out << "<p class=\"failed\">This page failed to render.</p>\n";
  out << "</section>\n";
}

} // namespace

bool writeHtmlIndex(std::filesystem::path const& path, std::vector<IndexEntry> const& entries) {
  std::ofstream out(path);
  out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>zowidgets gallery</title>\n"
      << "<style>\n"
      << kStyle << "\n</style>\n</head>\n<body>\n<h1>zowidgets gallery</h1>\n<nav>\n";
  for (IndexEntry const& entry : entries)
    out << "<a href=\"#" << escapeHtml(entry.name) << "\">" << escapeHtml(entry.title) << "</a>\n";
  out << "</nav>\n";
  for (IndexEntry const& entry : entries)
    writeEntry(out, entry);
  out << "</body>\n</html>\n";
  return static_cast<bool>(out.flush());
}
