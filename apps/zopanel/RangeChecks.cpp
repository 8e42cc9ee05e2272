#include "RangeChecks.h"

#include <sstream>

namespace {

std::string text(double value) {
  std::ostringstream out;
  out << value;
  return out.str();
}

std::string rowName(JSON::Element const& row) {
  std::string const name = "row \"" + std::string(row.getString("name").view()) + "\"";
  std::string const legend(row.getString("legend").view());
  return legend.empty() ? name : name + " (" + legend + ")";
}

// A number row as the builder reads it: "int" without choices, or "float";
// its numbers found without regard to case, -1 where one is missing.
bool isNumberRow(JSON::Element const& row) {
  LightweightString<char> const type = row.getString("type");
  Zo::Ptr<JSON::Element> const choices = row.getChild("values");
  return type == "float" || (type == "int" && !(choices && !choices->isArray()));
}

} // namespace

std::vector<std::string> rangeWarnings(Zo::Ptr<JSON::Element> const& description) {
  std::vector<std::string> warnings;
  if (!description || description->getNumChildren() != 1)
    return warnings;
  Zo::Ptr<JSON::Element> const rows = description->getChild(0);
  for (unsigned short i = 0; rows && i < rows->getNumChildren(); ++i) {
    Zo::Ptr<JSON::Element> const row = rows->getChild(i);
    if (!row || !isNumberRow(*row))
      continue;
    double const min = row->getNumber("min", -1);
    double const max = row->getNumber("max", -1);
    double const value = row->getNumber("default", -1);
    if (min == max)
      continue; // no range
    if (min > max)
      warnings.push_back(rowName(*row) + ": its range runs backwards, from " + text(min) + " down to " + text(max));
    else if (value < min || value > max)
      warnings.push_back(rowName(*row) + ": its default, " + text(value) + ", lies outside its range, " + text(min) +
                         " to " + text(max) + "; the slider stops at the nearer end");
  }
  return warnings;
}
