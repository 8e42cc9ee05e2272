#pragma once

#include "EmojiTestParser.h"

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace EmojiTest {

// Text as the body of a C++ string literal: printable ASCII as it is, every
// other byte (and '"', '\\', '?') escaped, so any bytes come out as valid
// source with the same value.
std::string escapedForLiteral(std::string_view bytes);

// Writes the C++ source that defines the tables declared in
// host/base/detail/EmojiTable.h: the groups in order, each naming its
// Emoji::eCategory enumerator, and every emoji as its UTF-8 sequence and
// name. `source` names the file read, for the heading comment.
void writeTable(std::ostream& out, std::vector<Group> const& groups, std::string_view source);

} // namespace EmojiTest
