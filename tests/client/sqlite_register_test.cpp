// SPDX-License-Identifier: MIT
// Register files: creating one, opening one, and sharing one with other
// processes and with the standard sqlite3 shell.
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "client/client.h"
#include "client/connection_string.h"
#include "support/in_child.h"
#include "support/run_program.h"
#include "support/sqlite_extension.h"
#include "support/temp_register.h"
#include "varnock/automation_error.h"
#include "varnock/register.h"

namespace varnock::client {
namespace {

namespace fs = std::filesystem;

AutomationError openFailure(const std::string& connectionString) {
  try {
    open(connectionString);
  } catch (const AutomationError& e) {
    return e;
  }
  ADD_FAILURE() << "opened: " << connectionString;
  return AutomationError(0, "", "");
}

Variant count(Connection& connection, const std::string& table) {
  auto rows = connection.execute("SELECT Count(*) AS n FROM [" + table + "]");
  return rows->field("n");
}

TEST(RegisterFile, CreatedEmptyAndSaysHowToOpenIt) {
  testing::TempRegister reg;
  EXPECT_EQ(reg.dsn(), "Provider=SQLite;Data Source=" + reg.path().string());
  auto connection = open(reg.dsn());
  for (const char* table : {"Country", "ErrorLog", "GroupCode", "GroupMember", "LogFile", "Parm",
                            "State", "User", "Zone", "ZoneAddress", "ZonePool"}) {
    EXPECT_EQ(count(*connection, table), Variant(std::int32_t{0})) << table;
  }
  // The columns in their order, with their names and letter case.
  auto user = connection->execute(
      "SELECT group_concat(name, ',') AS Names FROM "
      "pragma_table_info('User')");
  EXPECT_EQ(user->field("Names"),
            Variant("UserName,SiteType,Firstname,Lastname,Country,State,Password,Email,"
                    "Pagetopic,Bio,Graphic,Link,DateCreated,Authorized,AuthorisationDate,"
                    "AuthorisationMessage,REMOTE_ADDR"));
}

TEST(RegisterFile, CreatingNeverWritesOverAFile) {
  testing::TempRegister reg;
  const fs::path existing = reg.folder() / "notes.txt";
  std::ofstream(existing) << "keep me";
  try {
    createRegister(existing.string());
    ADD_FAILURE() << "wrote over " << existing;
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.number(), kCannotOpen);
    EXPECT_NE(e.description().find("already exists"), std::string::npos) << e.description();
  }
  EXPECT_EQ(fs::file_size(existing), 7u);
  EXPECT_THROW(createRegister(reg.path().string()), AutomationError);
  EXPECT_THROW(createRegister((reg.folder() / "missing" / "r.db").string()), AutomationError);
  EXPECT_FALSE(fs::exists(reg.folder() / "missing"));
}

TEST(RegisterFile, CreatingQuotesAPathThatWouldEndTheConnectionString) {
  testing::TempRegister reg;
  const fs::path odd = reg.folder() / "a;b \"c\".db";
  const std::string dsn = createRegister(odd.string());
  EXPECT_EQ(ConnectionString(dsn).get("Data Source"), odd.string());
  auto connection = open(dsn);
  EXPECT_EQ(count(*connection, "Zone"), Variant(std::int32_t{0}));
}

TEST(RegisterFile, OpeningAMissingFileFailsAndMakesNone) {
  testing::TempRegister reg;
  const fs::path missing = reg.folder() / "missing.db";
  const AutomationError e = openFailure("Provider=SQLite;Data Source=" + missing.string());
  EXPECT_EQ(e.number(), kCannotOpen);
  EXPECT_EQ(e.source(), "Varnock.SQLite");
  EXPECT_NE(e.description().find(missing.string()), std::string::npos) << e.description();
  EXPECT_FALSE(fs::exists(missing));
}

TEST(RegisterFile, ADataSourceIsAPathNeverAUri) {
  testing::TempRegister reg;
  // Read as a URI, this would open the register with options (immutable,
  // read-only); as a path it names no file.
  const std::string uri = "file:" + reg.path().string() + "?immutable=1";
  EXPECT_EQ(openFailure("Provider=SQLite;Data Source=" + uri).number(), kCannotOpen);
  // A relative path that looks like a URI is a file of that name.
  EXPECT_EQ(testing::inChild([&] {
              if (::chdir(reg.folder().c_str()) != 0) return 1;
              const std::string dsn = createRegister("file:uri.db?mode=ro");
              if (!fs::exists("file:uri.db?mode=ro") || fs::exists("uri.db")) return 2;
              open(dsn)->execute("INSERT INTO [Country] VALUES ('Chad')");
              return count(*open(dsn), "Country") == Variant(std::int32_t{1}) ? 0 : 3;
            }),
            0);
}

// Someone who may read the register but not write to it or to its folder:
// nobody, when the tests run as root; otherwise the folder and files are made
// read-only for this user.
TEST(RegisterFile, AReaderWithoutWriteAccessReadsAndItsWritesFailClearly) {
  testing::TempRegister reg;
  reg.run({"INSERT INTO [Country] VALUES ('Chad')"});
  const bool root = ::geteuid() == 0;
  for (const auto& entry : fs::directory_iterator(reg.folder()))
    fs::permissions(entry.path(), root ? fs::perms(0644) : fs::perms(0444));
  fs::permissions(reg.folder(), root ? fs::perms(0755) : fs::perms(0555));
  const int status = testing::inChild([&] {
    if (root && (::setgid(65534) != 0 || ::setuid(65534) != 0)) return 10;
    auto reader = open(reg.dsn());
    if (count(*reader, "Country") != Variant(std::int32_t{1})) return 1;
    try {
      reader->execute("INSERT INTO [Country] VALUES ('Peru')");
    } catch (const AutomationError& e) {
      const bool clear = e.number() == kCommandFailed &&
                         e.description().find("read-only for this process") != std::string::npos;
      return clear ? 0 : 2;
    }
    return 3;
  });
  fs::permissions(reg.folder(), fs::perms(0700));
  EXPECT_EQ(status, 0);
}

TEST(RegisterFile, OpeningNeedsADataSourceThatIsADatabase) {
  for (const char* dsn : {"Provider=SQLite", "Provider=SQLite;Data Source=",
                          "Provider=SQLite;"
                          "Data Source=  "}) {
    const AutomationError e = openFailure(dsn);
    EXPECT_EQ(e.number(), kCannotOpen) << dsn;
    EXPECT_NE(e.description().find("Data Source"), std::string::npos) << e.description();
  }
  testing::TempRegister reg;
  const fs::path text = reg.folder() / "text.db";
  std::ofstream(text) << "This file holds words, not tables, and it is long enough to tell.";
  EXPECT_EQ(openFailure("Provider=SQLite;Data Source=" + text.string()).description(),
            "file is not a database");
}

// One pipe between this process and a child, carrying one-byte messages.
// Each end is closed once: by hand where a process gives it up, or at the end.
class MessagePipe {
 public:
  MessagePipe() {
    if (::pipe(ends_) != 0) ends_[0] = ends_[1] = -1;
  }
  ~MessagePipe() {
    closeReadEnd();
    closeWriteEnd();
  }
  MessagePipe(const MessagePipe&) = delete;
  MessagePipe& operator=(const MessagePipe&) = delete;

  bool isOpen() const { return ends_[0] >= 0 && ends_[1] >= 0; }
  void closeReadEnd() { closeEnd(0); }
  void closeWriteEnd() { closeEnd(1); }

  bool send(char message) { return ::write(ends_[1], &message, 1) == 1; }
  // Waits for a message; false when every writer has closed its end.
  bool receive(char& message) { return ::read(ends_[0], &message, 1) == 1; }
  // The message already waiting, without waiting for one; 0 when none is.
  char alreadySent() {
    pollfd waiting{ends_[0], POLLIN, 0};
    char message = 0;
    if (::poll(&waiting, 1, 0) == 1 && (waiting.revents & POLLIN) != 0) receive(message);
    return message;
  }

 private:
  void closeEnd(int end) {
    if (ends_[end] >= 0) ::close(ends_[end]);
    ends_[end] = -1;
  }
  int ends_[2];
};

// Waits for the child when the test ends, however it ends; declared before
// the pipes, so that they close first and a waiting child sees its parent go.
struct ReapedChild {
  pid_t pid = -1;
  int status = -1;
  void reap() {
    if (pid > 0 && ::waitpid(pid, &status, 0) == pid) pid = -1;
  }
  ~ReapedChild() { reap(); }
};

// Another process holds a write transaction; an insert of ours meanwhile
// waits for it instead of failing, and succeeds once it ends. The child says
// "committing" just before its COMMIT: that our insert returns only after the
// message was sent proves it waited, whatever the two processes' speeds.
TEST(RegisterFile, AWriterWaitsForAnotherProcesssTransaction) {
  testing::TempRegister reg;
  ReapedChild child;
  MessagePipe holding, go, committing;
  ASSERT_TRUE(holding.isOpen() && go.isOpen() && committing.isOpen());
  child.pid = ::fork();
  ASSERT_GE(child.pid, 0);
  if (child.pid == 0) {
    holding.closeReadEnd();
    go.closeWriteEnd();
    committing.closeReadEnd();
    int status = 1;
    try {
      auto holder = open(reg.dsn());
      holder->execute("BEGIN IMMEDIATE");
      holder->execute("INSERT INTO [Country] VALUES ('Chad')");
      char message = 0;
      // Without the parent's go (it ended early), the transaction is dropped.
      if (holding.send('h') && go.receive(message)) {
        // Lets the parent's insert reach the lock first, so that it has to
        // wait; the test's outcome does not depend on how long this is.
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        if (committing.send('c')) {
          holder->execute("COMMIT");
          status = 0;
        }
      }
    } catch (...) {
      status = 2;
    }
    ::_exit(status);
  }
  holding.closeWriteEnd();
  go.closeReadEnd();
  committing.closeWriteEnd();

  char message = 0;
  ASSERT_TRUE(holding.receive(message)) << "the child could not take the write lock";
  auto connection = open(reg.dsn());
  ASSERT_TRUE(go.send('g'));
  connection->execute("INSERT INTO [Country] VALUES ('Peru')");
  EXPECT_EQ(committing.alreadySent(), 'c') << "the insert ended before the other transaction";
  child.reap();
  EXPECT_TRUE(WIFEXITED(child.status) && WEXITSTATUS(child.status) == 0) << child.status;
  EXPECT_EQ(count(*connection, "Country"), Variant(std::int32_t{2}));
}

// Runs SQL in the sqlite3 shell, with the register's collation loaded; its
// output, or nullopt when it fails.
std::optional<std::string> inShell(const fs::path& shell, const fs::path& db,
                                   const std::string& sql) {
  const testing::ProgramRun run = testing::runProgram(
      shell, {"-batch", "-bail", "-cmd", testing::loadExtensionCommand(), db.string(), sql},
      db.parent_path());
  if (run.status != 0) return std::nullopt;
  return run.out;
}

TEST(RegisterFile, StaysAnOrdinaryDatabaseForTheSqliteShell) {
  const auto shell = testing::findOnPath("sqlite3");
  if (!shell) GTEST_SKIP() << "no sqlite3 shell on the search path";
  testing::TempRegister reg;
  reg.run({"INSERT INTO [Zone] ([Zone], [Test]) VALUES ('north', 1)",
           "INSERT INTO [User] VALUES ('x', NULL, NULL, 'X', 'Chad', NULL, 'pw', 'x@x', NULL, "
           "NULL, NULL, NULL, NULL, 1, NULL, NULL, NULL)",
           "INSERT INTO [ZoneAddress] ([Zone], [UserName], [Address], [CreationDate]) VALUES "
           "('north', 'x', 1, '5/4/2000 1:45:40 PM')"});
  EXPECT_EQ(inShell(*shell, reg.path(), "SELECT CreationDate FROM ZoneAddress;"),
            "2000-05-04 13:46:00\n");
  ASSERT_TRUE(inShell(*shell, reg.path(),
                      "INSERT INTO Zone VALUES ('south', 0); INSERT INTO ZoneAddress VALUES "
                      "('south', 'x', 2, '2001-02-03 04:05:31');"));
  auto connection = open(reg.dsn());
  auto zone = connection->execute("SELECT * FROM [Zone] WHERE Zone = 'SOUTH'");
  EXPECT_EQ(zone->field("Test"), Variant(false));
  auto address = connection->execute("SELECT * FROM [ZoneAddress] WHERE CreationDate > '2/1/2001'");
  ASSERT_FALSE(address->eof());
  ASSERT_EQ(address->field("CreationDate").type(), Variant::Type::Date);
  EXPECT_EQ(address->field("CreationDate").asDate().civil(), (CivilDateTime{2001, 2, 3, 4, 6, 0}));
  // What the shell cannot read as a date, the register refuses.
  EXPECT_FALSE(
      inShell(*shell, reg.path(), "INSERT INTO ZoneAddress VALUES ('south', 'z', 3, 'someday');"));
}

}  // namespace
}  // namespace varnock::client
