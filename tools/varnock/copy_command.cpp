// SPDX-License-Identifier: MIT
#include "copy_command.h"

#include <algorithm>
#include <string>

#include "dsn.h"
#include "varnock/register.h"

namespace varnock::cli {

namespace {

constexpr const char* kUsage = "usage: varnock copy FROM TO [--append]";
constexpr int kBarWidth = 30;

// "[##########--------------------]  33%  User 1500/4500", redrawn in place.
void drawBar(std::ostream& out, const CopyProgress& p) {
  const double share = p.totalRows == 0
                           ? 1.0
                           : static_cast<double>(p.totalCopied) / static_cast<double>(p.totalRows);
  const int filled = std::clamp(static_cast<int>(share * kBarWidth), 0, kBarWidth);
  const int percent = std::clamp(static_cast<int>(share * 100), 0, 100);
  out << "\r[" << std::string(filled, '#') << std::string(kBarWidth - filled, '-') << "] "
      << std::string(percent < 10    ? 2
                     : percent < 100 ? 1
                                     : 0,
                     ' ')
      << percent << "%  " << p.table << ' ' << p.copiedRows << '/' << p.tableRows << "\x1b[K"
      << std::flush;
}

}  // namespace

ExitStatus copyCommand(const Words& words, std::ostream& out, std::ostream& progress,
                       bool onTerminal) {
  Words places;
  CopyOptions options;
  for (const std::string& word : words) {
    if (word == "--append") {
      options.append = true;
    } else if (word.rfind("--", 0) == 0) {
      throw UsageError("unknown option " + word + "; " + kUsage);
    } else {
      places.push_back(word);
    }
  }
  if (places.size() != 2) throw UsageError(kUsage);
  if (onTerminal) options.progress = [&](const CopyProgress& p) { drawBar(progress, p); };
  std::vector<CopiedTable> copied;
  try {
    copied = copyRegister(connectionStringOf(places[0]), connectionStringOf(places[1]), options);
  } catch (...) {
    if (onTerminal) progress << '\n';
    throw;
  }
  if (onTerminal) progress << '\n';
  std::size_t width = 0;
  std::int64_t total = 0;
  for (const CopiedTable& t : copied) {
    width = std::max(width, t.table.size());
    total += t.rows;
  }
  for (const CopiedTable& t : copied)
    out << t.table << std::string(width + 2 - t.table.size(), ' ') << t.rows << '\n';
  out << total << (total == 1 ? " row" : " rows") << " copied; every table's count checked\n";
  return kSuccess;
}

}  // namespace varnock::cli
