// SPDX-License-Identifier: MIT
// The manual page varnock(1), written in roff from the text of
// "varnock --help", so that the two never disagree.
#pragma once

#include <string>
#include <string_view>

namespace varnock::cli {

// helpText turned into a man page: its usage line is the synopsis, its first
// paragraph the description, and each unindented heading a section whose
// indented entries keep their lines as written.
std::string manPage(std::string_view helpText, std::string_view version);

}  // namespace varnock::cli
