// SPDX-License-Identifier: MIT
// The varnock tool's descriptive commands: members, idl and help.
#include <gtest/gtest.h>

#include <filesystem>

#include "tools/cli_fixture.h"
#include "varnock/host.h"
#include "varnock/type_library.h"

namespace varnock::testing {
namespace {

using Describing = VarnockCli;

// Splits a line at runs of two or more blanks.
std::vector<std::string> cellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::size_t at = 0;
  while (at < line.size()) {
    std::size_t end = line.find("  ", at);
    if (end == std::string::npos) end = line.size();
    cells.push_back(line.substr(at, end - at));
    at = line.find_first_not_of(' ', end);
    if (at == std::string::npos) break;
  }
  return cells;
}

TEST_F(Describing, MembersListsTheInterfaceInOrderWithHexIdentifiers) {
  for (const std::string className : {"Country", "Varnock.User", "zoneaddress"}) {
    const ProgramRun run = varnock({"members", className});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto lines = linesOf(run.out);
    const std::vector<MemberDescription> expected = members(className);
    ASSERT_EQ(lines.size(), expected.size() + 1) << run.out;
    EXPECT_EQ(cellsOf(lines[0]), (std::vector<std::string>{"NAME", "DISPID", "KIND", "ARGUMENTS"}));
    for (std::size_t i = 0; i < expected.size(); ++i) {
      const MemberDescription& m = expected[i];
      const auto cells = cellsOf(lines[i + 1]);
      ASSERT_GE(cells.size(), 3u) << lines[i + 1];
      EXPECT_EQ(cells[0], m.name);
      EXPECT_EQ(std::stoul(cells[1], nullptr, 16), static_cast<std::uint32_t>(m.dispatchId))
          << cells[1];
      EXPECT_EQ(cells[1].substr(0, 2), "0x");
      EXPECT_EQ(cells[2], kindName(m.kind));
      std::string arguments;
      for (const ArgumentDescription& a : m.arguments)
        arguments += (arguments.empty() ? "" : ", ") + a.name;
      EXPECT_EQ(cells.size() > 3 ? cells[3] : "", arguments) << lines[i + 1];
    }
  }
}

TEST_F(Describing, MembersWithoutAClassListsTheClasses) {
  const ProgramRun run = varnock({"members"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto lines = linesOf(run.out);
  const std::vector<ClassDescription> expected = classes();
  ASSERT_EQ(expected.size(), 11u);
  ASSERT_EQ(lines.size(), expected.size() + 1) << run.out;
  EXPECT_EQ(cellsOf(lines[0]), (std::vector<std::string>{"CLASS", "PROGID", "CLSID"}));
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(cellsOf(lines[i + 1]), (std::vector<std::string>{expected[i].name, expected[i].progId,
                                                               expected[i].classId}));
    // Each line names a class that can be made, by either name.
    EXPECT_NE(CreateObject(expected[i].classId), nullptr);
    EXPECT_EQ(CreateObject(expected[i].progId)->typeName(), expected[i].name);
  }
  EXPECT_EQ(varnock({"members", "User", "Zone"}).status, 2);
}

TEST_F(Describing, IdlPrintsTheTypeLibraryText) {
  const ProgramRun run = varnock({"idl"});
  EXPECT_EQ(run.status, 0);
  // Compared as a whole, but reported by size: the text runs to many pages.
  EXPECT_TRUE(run.out == typeLibraryText())
      << run.out.size() << " characters printed, " << typeLibraryText().size() << " expected";
}

TEST_F(Describing, HelpExplainsCommandsNotationEnvironmentAndStatuses) {
  const ProgramRun help = varnock({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.err, "");
  for (const char* topic :
       {"init PATH", "call CLASS METHOD", "members [CLASS]", "@FILE", "idl", "--dsn", "--set",
        "--json", "--trace", "str:", "null", "empty", "#5/4/2000", "VARNOCK_DSN",
        "VARNOCK_EVENT_LOG", "VARNOCK_SQL_TRACE", "Exit status"}) {
    EXPECT_NE(help.out.find(topic), std::string::npos) << topic;
  }
  EXPECT_EQ(varnock({"help"}).out, help.out);
  EXPECT_EQ(varnock({"call", "--help"}).out, help.out);
  EXPECT_EQ(varnock({"call", "User", "DSN", "--help"}).out, help.out);
  // Asking any command for help runs nothing: no register named "--help".
  for (const char* command : {"init", "copy", "members", "idl"}) {
    for (const char* asked : {"--help", "-h"}) {
      const ProgramRun asking = varnock({command, asked});
      EXPECT_EQ(asking.status, 0) << command << ' ' << asked;
      EXPECT_EQ(asking.out, help.out) << command << ' ' << asked;
      EXPECT_FALSE(std::filesystem::exists(asked)) << command << ' ' << asked;
    }
  }
}

TEST_F(Describing, VersionIsTheProjectsOwn) {
  for (const char* asked : {"--version", "version"}) {
    const ProgramRun version = varnock({asked});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "varnock 1.0\n");
    EXPECT_EQ(version.err, "");
  }
}

}  // namespace
}  // namespace varnock::testing
