// SPDX-License-Identifier: MIT
#include "eventLog/event_log.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <regex>

#include "eventLog/backends.h"
#include "support/captured_events.h"
#include "varnock/automation_error.h"
#include "varnock/event_log.h"

namespace varnock::eventLog {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> linesOf(const fs::path& path) {
  std::ifstream in(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);)
    lines.push_back(line);
  return lines;
}

class TempDir {
 public:
  TempDir() {
    std::string pattern = (fs::temp_directory_path() / "varnock-events-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
  }
  ~TempDir() { fs::remove_all(path_); }
  fs::path operator/(const std::string& name) const { return path_ / name; }

 private:
  fs::path path_;
};

// Restores whatever back end the process had.
class EventLogTest : public ::testing::Test {
 protected:
  void TearDown() override { setBackend(saved_); }
  std::shared_ptr<Backend> saved_ = currentBackend();
  TempDir dir_;
};

std::int32_t writeFailureNumber(std::string_view setting) {
  setEventLog(setting);
  try {
    ReportDataError(13, "Country", "Cannot convert this value to nvarchar");
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.description(), "ReportEvent() failed");
    EXPECT_EQ(e.source(), "Event Log Component");
    return e.number();
  }
  return 0;
}

TEST_F(EventLogTest, FileBackendWritesOneJsonObjectPerEntry) {
  const fs::path file = dir_ / "events.jsonl";
  setEventLog("file:" + file.string());
  EXPECT_EQ(currentEventLog(), "file:" + file.string());
  ReportDataError(94, "UserName", "Property UserName cannot be set to NULL");
  WriteEventLog(4, 7, "Say \"hi\"\\", "");

  const auto lines = linesOf(file);
  ASSERT_EQ(lines.size(), 2u);
  const std::regex entry(
      R"(\{"time":"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z","type":1,"category":0,"id":94,)"
      R"("source":"UserName","message":"\\r\\nProperty UserName cannot be set to NULL"\})");
  EXPECT_TRUE(std::regex_match(lines[0], entry)) << lines[0];
  EXPECT_NE(lines[1].find(R"("type":4,"category":0,"id":7,"source":"Say \"hi\"\\","message":""})"),
            std::string::npos)
      << lines[1];
}

TEST_F(EventLogTest, AFailedWriteRaisesTheSystemCodeOverTheObjectErrorBase) {
  EXPECT_EQ(static_cast<std::uint32_t>(writeFailureNumber("file:/dev/full")), 0x8004001Cu);
  EXPECT_EQ(static_cast<std::uint32_t>(
                writeFailureNumber("file:" + (dir_ / "missing" / "events.jsonl").string())),
            0x80040002u);
  EXPECT_FALSE(fs::exists(dir_ / "missing"));
}

TEST_F(EventLogTest, UnknownBackEndsAreRefusedClearly) {
  for (const char* setting : {"", "syslog2", "file:", "FILE:/tmp/x"}) {
    try {
      setEventLog(setting);
      FAIL() << setting;
    } catch (const AutomationError& e) {
      EXPECT_EQ(e.number(), 5);
      EXPECT_NE(e.description().find("expected syslog, journal, file:PATH or stderr"),
                std::string::npos);
    }
  }
  setEventLog("syslog");
  EXPECT_EQ(currentEventLog(), "syslog");
}

TEST_F(EventLogTest, TheEnvironmentChoosesTheFirstBackEnd) {
  const fs::path file = dir_ / "from-env.jsonl";
  ::setenv("VARNOCK_EVENT_LOG", ("file:" + file.string()).c_str(), 1);
  setBackend(nullptr);
  ReportDataError(17, "", "Property [Colour]doesn't exist in this class");
  ::unsetenv("VARNOCK_EVENT_LOG");
  ASSERT_EQ(linesOf(file).size(), 1u);
  EXPECT_NE(linesOf(file)[0].find(R"("id":17,"source":"",)"), std::string::npos);
}

TEST_F(EventLogTest, ConcurrentProcessesNeverInterleaveEntries) {
  const fs::path file = dir_ / "shared.jsonl";
  constexpr int kProcesses = 4;
  constexpr int kEntries = 300;
  const std::string longMessage(3000, 'x');
  std::vector<pid_t> children;
  for (int p = 0; p < kProcesses; ++p) {
    const pid_t pid = ::fork();
    if (pid == 0) {
      setBackend(makeFileBackend(file.string()));
      for (int i = 0; i < kEntries; ++i)
        ReportDataError(p, "Writer", longMessage);
      ::_exit(0);
    }
    children.push_back(pid);
  }
  for (const pid_t pid : children) {
    int status = 0;
    ::waitpid(pid, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }
  const auto lines = linesOf(file);
  ASSERT_EQ(lines.size(), static_cast<std::size_t>(kProcesses * kEntries));
  const std::string ending = R"(,"source":"Writer","message":"\r\n)" + longMessage + "\"}";
  for (const std::string& line : lines)
    ASSERT_TRUE(line.ends_with(ending));
}

TEST_F(EventLogTest, JournalIsAvailableWhenBuiltWithIt) {
#ifdef VARNOCK_HAVE_JOURNAL
  EXPECT_NO_THROW(setEventLog("journal"));
  EXPECT_EQ(currentEventLog(), "journal");
#else
  EXPECT_THROW(setEventLog("journal"), AutomationError);
#endif
}

TEST(WriteEventLog, AnEmptyMessageIsWrittenAsIs) {
  testing::CapturedEvents events;
  WriteEventLog(1, 0, "", "");
  ASSERT_EQ(events.count(), 1u);
  EXPECT_EQ(events.last().message, "");
  EXPECT_EQ(events.last().category, 0);
}

TEST(ReportDataError, PrefixesALineBreakAndUsesTheNumberAsIdentifier) {
  testing::CapturedEvents events;
  ReportDataError(-2147217900, "GetCountry", "Syntax error\r\nSQL = SELECT");
  EXPECT_EQ(events.last().type, 1);
  EXPECT_EQ(events.last().id, -2147217900);
  EXPECT_EQ(events.last().source, "GetCountry");
  EXPECT_EQ(events.last().message, "\r\nSyntax error\r\nSQL = SELECT");
}

}  // namespace
}  // namespace varnock::eventLog
