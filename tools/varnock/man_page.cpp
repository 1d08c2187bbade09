// SPDX-License-Identifier: MIT
#include "man_page.h"

#include <cctype>
#include <sstream>
#include <vector>

namespace varnock::cli {

namespace {

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    lines.push_back(text.substr(0, end));
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  }
  return lines;
}

// Text as roff shows it literally: backslashes and hyphens escaped (a plain
// "-" may print as a typographic hyphen, which a shell does not take), and a
// line that starts with a control character kept as text.
std::string escaped(std::string_view text) {
  std::string out;
  if (!text.empty() && (text.front() == '.' || text.front() == '\'')) out += "\\&";
  for (const char c : text) {
    if (c == '\\') {
      out += "\\e";
    } else if (c == '-') {
      out += "\\-";
    } else {
      out += c;
    }
  }
  return out;
}

std::size_t indentOf(std::string_view line) {
  const std::size_t first = line.find_first_not_of(' ');
  return first == std::string_view::npos ? line.size() : first;
}

std::string upper(std::string_view text) {
  std::string out(text);
  for (char& c : out)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return out;
}

}  // namespace

std::string manPage(std::string_view helpText, std::string_view version) {
  const std::vector<std::string_view> lines = linesOf(helpText);
  std::ostringstream out;
  out << ".TH VARNOCK 1 \"\" \"varnock " << escaped(version) << "\" \"User Commands\"\n"
      << ".\\\" Made from the text of varnock --help; change that, not this file.\n"
      << ".nh\n.ad l\n";

  std::size_t i = 0;
  // "usage: varnock COMMAND [ARGUMENTS]"
  constexpr std::string_view kUsage = "usage: ";
  std::string synopsis;
  if (i < lines.size() && lines[i].substr(0, kUsage.size()) == kUsage) {
    synopsis = std::string(lines[i].substr(kUsage.size()));
    ++i;
  }
  while (i < lines.size() && lines[i].empty())
    ++i;
  std::vector<std::string_view> description;
  while (i < lines.size() && !lines[i].empty())
    description.push_back(lines[i++]);

  // The name line: the description's first sentence, without its full stop.
  std::string summary;
  for (const std::string_view l : description)
    summary += (summary.empty() ? "" : " ") + std::string(l);
  std::string_view name = summary;
  if (const std::size_t stop = name.find(". "); stop != std::string_view::npos) {
    name = name.substr(0, stop);
  } else if (!name.empty() && name.back() == '.') {
    name.remove_suffix(1);
  }
  if (!name.empty()) {
    std::string lowered(name);
    lowered[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(lowered[0])));
    out << ".SH NAME\nvarnock \\- " << escaped(lowered) << "\n";
  }
  if (!synopsis.empty()) out << ".SH SYNOPSIS\n" << escaped(synopsis) << "\n";
  if (!description.empty()) {
    out << ".SH DESCRIPTION\n";
    for (const std::string_view l : description)
      out << escaped(l) << "\n";
  }

  // Sections: a heading at the margin, then entries indented under it. An
  // entry's lines keep their breaks and alignment (no filling), less the
  // entry's own indentation.
  bool inBlock = false;
  const auto endBlock = [&] {
    if (inBlock) out << ".fi\n";
    inBlock = false;
  };
  std::size_t sectionIndent = 0;
  for (; i < lines.size(); ++i) {
    const std::string_view line = lines[i];
    if (line.empty()) {
      if (inBlock) out << ".sp\n";
      continue;
    }
    const std::size_t indent = indentOf(line);
    if (indent == 0) {
      endBlock();
      out << ".SH " << escaped(upper(line)) << "\n";
      sectionIndent = i + 1 < lines.size() ? indentOf(lines[i + 1]) : 0;
      continue;
    }
    if (!inBlock) {
      out << ".PP\n.nf\n";
      inBlock = true;
    }
    const std::size_t cut = indent < sectionIndent ? indent : sectionIndent;
    out << escaped(line.substr(cut)) << "\n";
  }
  endBlock();
  return out.str();
}

}  // namespace varnock::cli
