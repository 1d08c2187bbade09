// SPDX-License-Identifier: MIT
#include "client/session_pool.h"

#include <atomic>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <unordered_map>
#include <utility>
#include <vector>

#include "automation/text.h"
#include "client/provider.h"
#include "client/statement_kind.h"
#include "platform/process.h"
#include "varnock/automation_error.h"

namespace varnock::client {

namespace {

constexpr const char* kClientSource = "Varnock.Connection";
// Enough for every thread of a busy process to find one of its own string,
// few enough that a process never holds many files or server connections.
constexpr std::size_t kIdlePerString = 16;
constexpr std::size_t kIdleInAll = 64;
constexpr std::chrono::milliseconds kDefaultIdleTimeout{60000};

using Clock = std::chrono::steady_clock;

struct IdleSession {
  std::unique_ptr<Session> session;
  Clock::time_point since;
};

bool pooledProcessWide() {
  const char* setting = std::getenv("VARNOCK_SESSION_POOLING");
  if (setting == nullptr) return true;
  const std::string value = lowerCase(trimBlanks(setting));
  return !(value == "0" || value == "off" || value == "no" || value == "false");
}

void closeAll(std::vector<std::unique_ptr<Session>>& sessions) noexcept {
  for (auto& session : sessions)
    session->close();
  sessions.clear();
}

// One process's pool. A forked child gets a pool of its own (see forked());
// the parent's, with its sessions, is left untouched and never freed.
class SessionPool {
 public:
  explicit SessionPool(SessionPool* parent, std::chrono::milliseconds timeout)
      : parent_(parent), timeout_(timeout) {}

  static SessionPool& instance();

  // An idle session of exactly this string that still reaches its database,
  // or null.
  std::unique_ptr<Session> take(std::string_view key) {
    for (;;) {
      std::unique_ptr<Session> session;
      {
        std::lock_guard lock(mutex_);
        const auto found = idle_.find(key);
        if (found == idle_.end()) return nullptr;
        session = std::move(found->second.back().session);
        found->second.pop_back();
        if (found->second.empty()) idle_.erase(found);
        --idleCount_;
      }
      if (session->current()) {
        ++reused_;
        return session;
      }
      session->close();
      ++discarded_;
    }
  }

  // Keeps a session that can serve again, closing the oldest when the
  // pool is full. A session from before a fork is the parent's: left alone.
  void giveBack(std::string_view key, std::unique_ptr<Session> session,
                const SessionPool* owner) noexcept {
    if (owner != this) {
      abandon(std::move(session));
      return;
    }
    std::vector<std::unique_ptr<Session>> closing;
    {
      std::lock_guard lock(mutex_);
      if (shutDown_) {
        closing.push_back(std::move(session));
      } else {
        keep(key, std::move(session), closing);
      }
    }
    discarded_ += closing.size();
    closeAll(closing);
  }

  // Ends a session that will not serve again: closed, or for a connection
  // released without a close, simply let go (as releasing the last reference
  // to an ADO connection ends it).
  void discard(std::unique_ptr<Session> session, const SessionPool* owner, bool closing) noexcept {
    if (owner != this) {
      abandon(std::move(session));
      return;
    }
    if (closing) session->close();
    session.reset();
    ++discarded_;
  }

  // Closes every idle session; with `forGood`, sessions handed back later
  // are closed too (the process is ending).
  void closeIdle(bool forGood) noexcept {
    std::vector<std::unique_ptr<Session>> closing;
    {
      std::lock_guard lock(mutex_);
      shutDown_ = shutDown_ || forGood;
      for (auto& [key, sessions] : idle_) {
        for (IdleSession& idle : sessions)
          closing.push_back(std::move(idle.session));
      }
      idle_.clear();
      idleCount_ = 0;
    }
    wake_.notify_all();
    discarded_ += closing.size();
    closeAll(closing);
  }

  void setTimeout(std::chrono::milliseconds timeout) {
    {
      std::lock_guard lock(mutex_);
      timeout_ = timeout;
    }
    wake_.notify_all();
  }

  SessionPoolCounts counts() {
    SessionPoolCounts c;
    c.opened = opened_;
    c.reused = reused_;
    c.discarded = discarded_;
    std::lock_guard lock(mutex_);
    c.idle = idleCount_;
    return c;
  }

  void countOpened() noexcept { ++opened_; }

 private:
  void keep(std::string_view key, std::unique_ptr<Session> session,
            std::vector<std::unique_ptr<Session>>& closing) {
    auto found = idle_.find(key);
    if (found == idle_.end())
      found = idle_.emplace(std::string(key), std::deque<IdleSession>{}).first;
    found->second.push_back({std::move(session), Clock::now()});
    ++idleCount_;
    if (found->second.size() > kIdlePerString) {
      closing.push_back(std::move(found->second.front().session));
      found->second.pop_front();
      --idleCount_;
    }
    if (idleCount_ > kIdleInAll) closeOldest(closing);
    if (!reaperRunning_) {
      reaperRunning_ = true;
      std::thread([this] { reap(); }).detach();
    }
  }

  void closeOldest(std::vector<std::unique_ptr<Session>>& closing) {
    auto oldest = idle_.end();
    for (auto it = idle_.begin(); it != idle_.end(); ++it) {
      if (oldest == idle_.end() || it->second.front().since < oldest->second.front().since) {
        oldest = it;
      }
    }
    closing.push_back(std::move(oldest->second.front().session));
    oldest->second.pop_front();
    if (oldest->second.empty()) idle_.erase(oldest);
    --idleCount_;
  }

  // The reaper: closes sessions idle for longer than the timeout, and ends
  // when none is left.
  void reap() {
    std::unique_lock lock(mutex_);
    while (!shutDown_ && idleCount_ > 0) {
      const Clock::time_point now = Clock::now();
      Clock::time_point next = Clock::time_point::max();
      std::vector<std::unique_ptr<Session>> closing;
      for (auto it = idle_.begin(); it != idle_.end();) {
        auto& sessions = it->second;
        while (!sessions.empty() && sessions.front().since + timeout_ <= now) {
          closing.push_back(std::move(sessions.front().session));
          sessions.pop_front();
          --idleCount_;
        }
        if (sessions.empty()) {
          it = idle_.erase(it);
        } else {
          next = std::min(next, sessions.front().since + timeout_);
          ++it;
        }
      }
      if (!closing.empty()) {
        lock.unlock();
        discarded_ += closing.size();
        closeAll(closing);
        lock.lock();
        continue;
      }
      if (next != Clock::time_point::max()) wake_.wait_until(lock, next);
    }
    reaperRunning_ = false;
  }

  // A session this process must not use or close: it belongs to the parent
  // of a fork. It stays reachable, and open, for as long as the process.
  void abandon(std::unique_ptr<Session> session) noexcept {
    std::lock_guard lock(mutex_);
    try {
      inherited_.push_back(std::move(session));
    } catch (...) {
      static_cast<void>(session.release());
    }
  }

  // Only held: it keeps the parent's pool reachable in a forked child.
  [[maybe_unused]] SessionPool* parent_;
  std::mutex mutex_;
  std::condition_variable wake_;
  std::unordered_map<std::string, std::deque<IdleSession>, TextHash, std::equal_to<>> idle_;
  std::size_t idleCount_ = 0;
  std::chrono::milliseconds timeout_;
  bool reaperRunning_ = false;
  bool shutDown_ = false;
  std::vector<std::unique_ptr<Session>> inherited_;
  std::atomic<std::uint64_t> opened_{0};
  std::atomic<std::uint64_t> reused_{0};
  std::atomic<std::uint64_t> discarded_{0};

  friend void forked() noexcept;
};

// Never destroyed: threads may hand sessions back while the process ends.
std::atomic<SessionPool*> currentPool{nullptr};

// In a forked child the parent's sessions are neither used nor closed (a
// close could end the parent's server connection): the child starts an empty
// pool. Its parent's pool stays as it was, locks and all.
void forked() noexcept {
  SessionPool* parent = currentPool.load();
  currentPool.store(new SessionPool(parent, parent->timeout_));
}

SessionPool& SessionPool::instance() {
  static std::once_flag made;
  std::call_once(made, [] {
    currentPool.store(new SessionPool(nullptr, kDefaultIdleTimeout));
    platform::whenForked(forked);
    std::atexit([] { currentPool.load()->closeIdle(true); });
  });
  return *currentPool.load();
}

class PooledConnection final : public Connection {
 public:
  PooledConnection(std::string key, std::unique_ptr<Session> session, bool pooled)
      : key_(std::move(key)),
        session_(std::move(session)),
        owner_(&SessionPool::instance()),
        pooled_(pooled) {}
  PooledConnection(const PooledConnection&) = delete;
  PooledConnection& operator=(const PooledConnection&) = delete;
  // Releasing a connection without closing it hands its session back too.
  ~PooledConnection() override { end(false); }

  std::unique_ptr<Recordset> execute(std::string_view statement) override {
    if (!session_) throw AutomationError(kConnectionClosed, kConnectionClosedText, kClientSource);
    // Reading and writing rows leaves a session as it was; any other statement
    // (a transaction begun, a setting changed, a table made) may not, and the
    // session it ran on is not lent again.
    if (pooled_ && !readsOrWritesRows(statement)) pooled_ = false;
    return session_->execute(statement);
  }

  void close() noexcept override { end(true); }

 private:
  void end(bool closing) noexcept {
    if (!session_) return;
    SessionPool& pool = SessionPool::instance();
    if (pooled_ && session_->reusable()) {
      pool.giveBack(key_, std::move(session_), owner_);
    } else {
      pool.discard(std::move(session_), owner_, closing);
    }
  }

  std::string key_;
  std::unique_ptr<Session> session_;
  const SessionPool* owner_;  // the pool of the process that opened it
  bool pooled_;
};

}  // namespace

bool poolingRequested(const ConnectionString& connectionString) {
  const std::optional<std::string> services = connectionString.get("OLE DB Services");
  if (!services || services->empty()) return true;
  long long value = 0;
  std::size_t used = 0;
  try {
    value = std::stoll(*services, &used, 10);
  } catch (const std::exception&) {
    used = 0;
  }
  if (used != services->size()) {
    throw AutomationError(kCannotOpen,
                          "OLE DB Services=" + *services +
                              " is not a whole number (-1 keeps every service, -2 leaves out "
                              "session pooling).",
                          kClientSource);
  }
  return (value & 1) != 0;
}

bool poolingProcessWide() {
  static const bool processWide = pooledProcessWide();
  return processWide;
}

std::unique_ptr<Connection> openPooled(std::string_view connectionString) {
  const bool processWide = poolingProcessWide();
  SessionPool& pool = SessionPool::instance();
  if (std::unique_ptr<Session> idle = pool.take(connectionString)) {
    return std::make_unique<PooledConnection>(std::string(connectionString), std::move(idle), true);
  }
  const ConnectionString parsed(connectionString);
  const bool pooled = poolingRequested(parsed) && processWide;
  std::unique_ptr<Session> session = providerFor(parsed)->open(parsed);
  pool.countOpened();
  return std::make_unique<PooledConnection>(std::string(connectionString), std::move(session),
                                            pooled);
}

SessionPoolCounts sessionPoolCounts() {
  return SessionPool::instance().counts();
}

void closeIdleSessions() noexcept {
  SessionPool::instance().closeIdle(false);
}

void setSessionIdleTimeout(std::chrono::milliseconds timeout) {
  SessionPool::instance().setTimeout(timeout);
}

}  // namespace varnock::client
