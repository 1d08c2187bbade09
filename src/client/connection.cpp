// The connection a caller creates before it knows the provider: it parses the
// connection string at open and hands everything to the provider's own
// connection from then on.
#include <map>
#include <mutex>

#include "automation/text.h"
#include "client/provider.h"
#include "client/sqlite/sqlite_provider.h"
#include "varnock/automation_error.h"

namespace varnock::client {

namespace {

constexpr const char* kClientSource = "Varnock.Connection";

struct Registry {
  std::mutex mutex;
  std::map<std::string, ProviderFactory> factories;  // by lower-case name
};

Registry& registry() {
  static Registry instance;
  return instance;
}

void registerBuiltIns() {
  static std::once_flag once;
  std::call_once(once, [] { sqlite::registerSqliteProvider(); });
}

class RoutingConnection final : public Connection {
 public:
  void open(std::string_view connectionString) override {
    const ConnectionString parsed(connectionString);
    const std::string provider = parsed.get("Provider").value_or("");
    const ProviderFactory* factory = findProvider(provider);
    if (factory == nullptr) {
      throw AutomationError(
          kProviderNotFound,
          "Provider cannot be found. It may not be properly installed. (Provider=" + provider +
              " is not a provider of this build of Varnock)",
          kClientSource);
    }
    opened_ = (*factory)(parsed);
  }

  std::unique_ptr<Recordset> execute(std::string_view statement) override {
    if (!opened_) {
      throw AutomationError(kConnectionClosed,
                            "Operation is not allowed when the object is closed.", kClientSource);
    }
    return opened_->execute(statement);
  }

  void close() override {
    if (opened_) opened_->close();
    opened_.reset();
  }

 private:
  std::unique_ptr<Connection> opened_;
};

}  // namespace

void registerProvider(std::string name, ProviderFactory factory) {
  Registry& r = registry();
  std::lock_guard lock(r.mutex);
  r.factories[lowerCase(name)] = std::move(factory);
}

const ProviderFactory* findProvider(std::string_view providerValue) {
  registerBuiltIns();
  // "SQLOLEDB.1" names the provider "SQLOLEDB" in version 1.
  const std::string name = lowerCase(providerValue.substr(0, providerValue.find('.')));
  Registry& r = registry();
  std::lock_guard lock(r.mutex);
  const auto it = r.factories.find(name);
  return it == r.factories.end() ? nullptr : &it->second;
}

std::unique_ptr<Connection> createConnection() {
  return std::make_unique<RoutingConnection>();
}

}  // namespace varnock::client
