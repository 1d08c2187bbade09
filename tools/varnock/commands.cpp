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

ExitStatus callCommand(const Words& words, std::ostream& out, std::ostream& err) {
  const CallRequest request = parseCallLine(words);
  if (request.help) {
    out << helpText();
    return kSuccess;
  }
  try {
    const CallOutcome outcome = runCall(request);
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
  expectCount(words, 1, "varnock members CLASS");
  std::vector<MemberDescription> described;
  try {
    described = members(words[0]);
  } catch (const AutomationError& e) {
    if (e.number() != kCannotCreateObject) throw;
    throw UsageError("there is no class named " + inQuotes(words[0]));
  }
  struct Line {
    std::string name, id, kind, arguments;
  };
  std::vector<Line> lines{{"NAME", "DISPID", "KIND", "ARGUMENTS"}};
  for (const MemberDescription& m : described) {
    std::string arguments;
    for (const std::string& a : m.argumentNames)
      arguments += (arguments.empty() ? "" : ", ") + a;
    lines.push_back({m.name, hexNumber(m.dispatchId), std::string(kindName(m.kind)), arguments});
  }
  std::size_t nameWidth = 0, kindWidth = 0, idWidth = 0;
  for (const Line& l : lines) {
    nameWidth = std::max(nameWidth, l.name.size());
    idWidth = std::max(idWidth, l.id.size());
    kindWidth = std::max(kindWidth, l.kind.size());
  }
  for (const Line& l : lines) {
    std::string text = l.name + std::string(nameWidth + 2 - l.name.size(), ' ') + l.id +
                       std::string(idWidth + 2 - l.id.size(), ' ') + l.kind;
    if (!l.arguments.empty()) {
      text += std::string(kindWidth + 2 - l.kind.size(), ' ') + l.arguments;
    }
    out << text << '\n';
  }
  return kSuccess;
}

ExitStatus idlCommand(const Words& words, std::ostream& out) {
  expectCount(words, 0, "varnock idl");
  out << typeLibraryText();
  return kSuccess;
}

}  // namespace varnock::cli
