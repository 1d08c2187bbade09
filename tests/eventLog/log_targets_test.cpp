// SPDX-License-Identifier: MIT
// Where entries and traces go: every entry is delivered or its write fails,
// no target can hold a call, and what is written is readable by its owner
// only, since it quotes statements with passwords in them.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "eventLog/backends.h"
#include "support/in_child.h"
#include "support/temp_register.h"
#include "varnock/automation_error.h"
#include "varnock/event_log.h"
#include "varnock/sql_trace.h"
#include "varnock/varnock.h"

namespace varnock::eventLog {
namespace {

namespace fs = std::filesystem;

class LogTargets : public ::testing::Test {
 protected:
  void TearDown() override {
    setBackend(saved_);
    setSqlTrace("");
  }
  fs::path folder() const { return register_.folder(); }

  std::shared_ptr<Backend> saved_ = currentBackend();
  testing::TempRegister register_;
};

// The number a failed write raises: the object error base plus the errno.
std::uint32_t failedWriteNumber(std::int32_t errnoValue) {
  return 0x80040000u + static_cast<std::uint32_t>(errnoValue);
}

std::uint32_t numberRaisedBy(const std::function<void()>& call) {
  try {
    call();
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.description(), "ReportEvent() failed");
    return static_cast<std::uint32_t>(e.number());
  }
  return 0;
}

int boundDatagramSocket(const fs::path& path) {
  const int fd = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.string().copy(address.sun_path, sizeof address.sun_path - 1);
  if (::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return -1;
  return fd;
}

TEST_F(LogTargets, SyslogDeliversEachEntryOrTheWriteFails) {
  const fs::path socketPath = folder() / "log";
  const int daemon = boundDatagramSocket(socketPath);
  ASSERT_GE(daemon, 0);
  setBackend(makeSyslogBackend(socketPath.string()));
  ReportDataError(13, "Country", "Cannot convert this value to nvarchar");
  char datagram[512] = {};
  const ssize_t received = ::recv(daemon, datagram, sizeof datagram - 1, MSG_DONTWAIT);
  ASSERT_GT(received, 0);
  const std::string text(datagram, static_cast<std::size_t>(received));
  EXPECT_EQ(text.rfind("<11>", 0), 0u) << text;  // user facility, error
  EXPECT_TRUE(text.ends_with("Country[" + std::to_string(::getpid()) +
                             "]: event 13 type 1 category 0: \r\nCannot convert this value to "
                             "nvarchar"))
      << text;

  // The daemon goes away: the next entry is not lost silently.
  ::close(daemon);
  fs::remove(socketPath);
  EXPECT_EQ(numberRaisedBy([] { ReportDataError(13, "Country", "lost?"); }),
            failedWriteNumber(ENOENT));
}

TEST_F(LogTargets, TheJournalIsNoPlaceToLoseEntriesIn) {
  const auto journal = makeJournalBackend((folder() / "no-journal-here").string());
  if (!journal) GTEST_SKIP() << "built without the systemd journal";
  setBackend(journal);
  EXPECT_EQ(numberRaisedBy([] { ReportDataError(13, "Country", "lost?"); }),
            failedWriteNumber(ENOENT));
}

TEST_F(LogTargets, WithoutASettingEntriesReachSyslogOrStandardError) {
  const fs::path captured = folder() / "stderr.txt";
  const int status = testing::inChild([&] {
    const int fd = ::open(captured.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ::dup2(fd, STDERR_FILENO);
    ::unsetenv("VARNOCK_EVENT_LOG");
    setBackend(nullptr);
    ReportDataError(94, "UserName", "Property UserName cannot be set to NULL");
    return currentEventLog() == (syslogListens() ? "syslog" : "stderr") ? 0 : 1;
  });
  ASSERT_EQ(status, 0);
  if (syslogListens()) return;  // delivered to the daemon, out of this test's sight
  std::ifstream in(captured);
  std::stringstream text;
  text << in.rdbuf();
  EXPECT_NE(text.str().find(R"("id":94,"source":"UserName")"), std::string::npos) << text.str();
}

TEST_F(LogTargets, AFifoWithoutAReaderHoldsNoCall) {
  const fs::path fifo = folder() / "fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  // The event log: the refusal's entry cannot be written, and says so.
  EXPECT_EQ(testing::inChild([&] {
              setEventLog("file:" + fifo.string());
              User user;
              return numberRaisedBy([&] { user.put_Username(Variant::null()); }) ==
                             failedWriteNumber(ENXIO)
                         ? 0
                         : 1;
            }),
            0);
  // The trace: the call goes on without it.
  EXPECT_EQ(testing::inChild([&] {
              setSqlTrace(fifo.string());
              Country country;
              country.put_DSN(register_.dsn());
              country.put_Country("Norway");
              return country.GetCountry() ? 1 : 0;  // an empty register: no row, no failure
            }),
            0);
}

TEST_F(LogTargets, WhatIsWrittenIsReadableByItsOwnerOnly) {
  const ::mode_t previous = ::umask(0);
  const fs::path events = folder() / "events.jsonl";
  const fs::path trace = folder() / "trace.jsonl";
  setEventLog("file:" + events.string());
  setSqlTrace(trace.string());
  const std::string made = createRegister((folder() / "new.db").string());
  User user;
  user.put_DSN(made);
  user.put_Username("jdoe");
  user.put_Password("secret");
  user.put_Lastname(Variant::null());  // refused: one entry
  user.GetUser();                      // one statement traced
  ::umask(previous);
  for (const fs::path& file : {events, trace, folder() / "new.db"}) {
    ASSERT_TRUE(fs::exists(file)) << file;
    struct stat status {};
    ::stat(file.c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777, 0600u) << file;
  }
}

}  // namespace
}  // namespace varnock::eventLog
