// SPDX-License-Identifier: MIT
#include "commands.h"

#include <algorithm>
#include <filesystem>

#include "call_command.h"
#include "error_report.h"
#include "help.h"
#include "json_output.h"
#include "text_output.h"
#include "text_util.h"
#include "varnock/host.h"
#include "varnock/register.h"
#include "varnock/type_library.h"

namespace varnock::cli {

namespace {

void expectCount(const Words& words, std::size_t count, const char* usage) {
  if (words.size() != count) throw UsageError(std::string("usage: ") + usage);
}

// Rows of words, each column as wide as its widest word.
void writeColumns(std::ostream& out, const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i)
      widths[i] = std::max(widths[i], row[i].size());
  }
  for (const auto& row : rows) {
    std::string text;
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (row[i].empty()) continue;
      if (i > 0) text += std::string(widths[i - 1] + 2 - row[i - 1].size(), ' ');
      text += row[i];
    }
    out << text << '\n';
  }
}

}  // namespace

ExitStatus initCommand(const Words& words, std::ostream& out, std::ostream& err) {
  expectCount(words, 1, "varnock init PATH | varnock init CONNECTION-STRING");
  const std::string& path = words[0];
  // As with --dsn: a connection string names a database that exists already.
  if (path.find('=') != std::string::npos) {
    createRegisterIn(path);
    out << path << '\n';
    return kSuccess;
  }
  std::error_code ignored;
  // A dangling link counts as existing too: the register would land behind it.
  if (std::filesystem::exists(std::filesystem::symlink_status(path, ignored))) {
    err << "varnock: " << path << " already exists; init never overwrites a file\n";
    return kReportedFailure;
  }
  out << createRegister(path) << '\n';
  return kSuccess;
}

ExitStatus callCommand(const Words& words, std::istream& in, std::ostream& out, std::ostream& err) {
  const CallRequest request = parseCallLine(words);
  if (request.help) {
    out << helpText();
    return kSuccess;
  }
  try {
    const CallOutcome outcome = runCall(request, in);
    if (request.json) {
      writeJson(out, outcome);
    } else {
      writeText(out, outcome);
    }
    return statusOf(outcome);
  } catch (const AutomationError& e) {
    // With --json the error belongs in the answer a script reads.
    if (request.json) writeJsonError(out, e);
    err << "varnock: " << describe(e) << '\n';
    return kAutomationError;
  }
}

ExitStatus membersCommand(const Words& words, std::ostream& out) {
  if (words.size() > 1) throw UsageError("usage: varnock members [CLASS]");
  if (words.empty()) {
    std::vector<std::vector<std::string>> rows{{"CLASS", "PROGID", "CLSID"}};
    for (const ClassDescription& c : classes())
      rows.push_back({c.name, c.progId, c.classId});
    writeColumns(out, rows);
    return kSuccess;
  }
  std::vector<MemberDescription> described;
  try {
    described = members(words[0]);
  } catch (const AutomationError& e) {
    if (e.number() != kCannotCreateObject) throw;
    throw UsageError("there is no class named " + inQuotes(words[0]));
  }
  std::vector<std::vector<std::string>> rows{{"NAME", "DISPID", "KIND", "ARGUMENTS"}};
  for (const MemberDescription& m : described) {
    std::string arguments;
    for (const ArgumentDescription& a : m.arguments)
      arguments += (arguments.empty() ? "" : ", ") + a.name;
    rows.push_back({m.name, hexNumber(m.dispatchId), std::string(kindName(m.kind)), arguments});
  }
  writeColumns(out, rows);
  return kSuccess;
}

ExitStatus idlCommand(const Words& words, std::ostream& out) {
  expectCount(words, 0, "varnock idl");
  out << typeLibraryText();
  return kSuccess;
}

}  // namespace varnock::cli
