// SPDX-License-Identifier: MIT
// The layers hold their shape: every #include "dir/..." in the library, the
// public headers, the tools and the Python module names only its own layer or
// a layer below it, and the build's layer targets link exactly the layers
// that the architecture's arrows allow.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"

namespace varnock {
namespace {

namespace fs = std::filesystem;

// The arrows of the architecture: each layer and the layers it uses directly.
const std::map<std::string, std::set<std::string>>& arrows() {
  static const std::map<std::string, std::set<std::string>> all = {
      // What differs between Linux and Windows (files, processes), below
      // everything else.
      {"platform", {}},
      {"automation", {"platform"}},
      {"catalogue", {"automation"}},
      {"eventLog", {"automation"}},
      {"client", {"automation"}},
      {"client/dialect", {"client"}},
      {"collation", {}},
      {"client/sqlite", {"client/dialect", "collation"}},
      {"client/odbc", {"client/dialect"}},
      {"providers", {"client", "client/sqlite", "client/odbc"}},
      {"record", {"catalogue", "eventLog"}},
      {"sql", {"record", "client"}},
      {"relations", {"sql"}},
      {"classes", {"relations"}},
      {"host", {"relations"}},
      {"register", {"catalogue", "client", "sql"}},
      // Above the library: the generators read the catalogue and the DDL;
      // the tool and the Python module see the public headers only.
      {"generators", {"catalogue", "register"}},
      {"public clients", {"public"}},
  };
  return all;
}

// A layer and every layer below it.
std::set<std::string> reachable(const std::string& layer) {
  std::set<std::string> seen{layer};
  std::vector<std::string> open{layer};
  while (!open.empty()) {
    const std::string next = open.back();
    open.pop_back();
    const auto uses = arrows().find(next);
    if (uses == arrows().end()) continue;
    for (const std::string& used : uses->second) {
      if (seen.insert(used).second) open.push_back(used);
    }
  }
  return seen;
}

// The layer that implements a public header; "public" for the umbrella that
// includes them all.
std::string ownerOfPublicHeader(const std::string& file) {
  static const std::map<std::string, std::string> owners = [] {
    std::map<std::string, std::string> known = {
        {"automation_error.h", "automation"},
        {"collection.h", "automation"},
        {"conversions.h", "automation"},
        {"dictionary.h", "automation"},
        {"export.h", "automation"},
        {"variant.h", "automation"},
        {"event_log.h", "eventLog"},
        {"record.h", "record"},
        {"sql_trace.h", "sql"},
        {"host.h", "host"},
        {"type_library.h", "host"},
        {"register.h", "register"},
        {"varnock.h", "public"},
    };
    // The record classes: made by the record layer's factory.
    for (const catalogue::Table& t : catalogue::tables())
      known[t.fileStem + ".h"] = "record";
    return known;
  }();
  const auto it = owners.find(file);
  return it == owners.end() ? std::string() : it->second;
}

// The layer a file of the tree belongs to, or "" when it is outside the check.
std::string layerOf(const std::string& relative) {
  if (relative.rfind("include/varnock/", 0) == 0) {
    // The umbrella header stands where the public clients do.
    const std::string owner =
        ownerOfPublicHeader(relative.substr(std::string("include/varnock/").size()));
    return owner == "public" ? "public clients" : owner;
  }
  if (relative.rfind("python/", 0) == 0 || relative.rfind("tools/varnock/", 0) == 0) {
    return "public clients";
  }
  if (relative.rfind("tools/", 0) == 0) return "generators";
  if (relative.rfind("src/client/sqlite/", 0) == 0) return "client/sqlite";
  if (relative.rfind("src/client/odbc/", 0) == 0) return "client/odbc";
  if (relative.rfind("src/", 0) == 0) {
    const std::string rest = relative.substr(4);
    return rest.substr(0, rest.find('/'));
  }
  return {};
}

// The layer an include names: "client/sqlite/x.h" -> "client/sqlite",
// "varnock/x.h" -> the public header's owner; "" for a header beside the file.
std::string layerNamed(const std::string& included) {
  if (included.rfind("varnock/", 0) == 0) {
    const std::string owner = ownerOfPublicHeader(included.substr(8));
    return owner.empty() ? "unknown public header" : owner;
  }
  if (included.rfind("client/sqlite/", 0) == 0) return "client/sqlite";
  if (included.rfind("client/odbc/", 0) == 0) return "client/odbc";
  const std::size_t slash = included.find('/');
  return slash == std::string::npos ? std::string() : included.substr(0, slash);
}

std::string listed(const std::set<std::string>& layers) {
  std::string text;
  for (const std::string& l : layers)
    text += (text.empty() ? "" : ", ") + l;
  return text;
}

// Every include of the checked folders that breaks the arrows, as
// "file:line: text (why)".
std::vector<std::string> violations(const fs::path& root) {
  std::vector<std::string> found;
  for (const char* folder : {"src", "include", "tools", "python"}) {
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
      const std::string extension = entry.path().extension().string();
      if (!entry.is_regular_file() || (extension != ".h" && extension != ".cpp")) continue;
      const std::string relative = fs::relative(entry.path(), root).generic_string();
      const std::string layer = layerOf(relative);
      if (layer.empty() || !arrows().count(layer)) {
        found.push_back(relative + ": belongs to no layer of the architecture");
        continue;
      }
      std::set<std::string> allowed = reachable(layer);
      if (layer == "public clients") allowed.erase("public clients");
      std::ifstream in(entry.path());
      std::string line;
      for (int number = 1; std::getline(in, line); ++number) {
        if (line.rfind("#include \"", 0) != 0) continue;
        const std::string included = line.substr(10, line.find('"', 10) - 10);
        const std::string named = layerNamed(included);
        if (named.empty() || allowed.count(named)) continue;
        if (layer == "public clients" && included.rfind("varnock/", 0) == 0) continue;
        found.push_back(relative + ":" + std::to_string(number) + ": " + line + " (" + layer +
                        " reaches " + named + "; it may include " + listed(allowed) + ")");
      }
    }
  }
  return found;
}

TEST(Layers, EveryIncludeFollowsTheArrows) {
  const std::vector<std::string> found = violations(VARNOCK_SOURCE_DIR);
  std::string report;
  for (const std::string& v : found)
    report += "\n  " + v;
  EXPECT_TRUE(found.empty()) << "includes that break the layers:" << report;
}

TEST(Layers, TheBuildLinksExactlyTheArrows) {
  // The build's own record of each layer target's links, "folder:used,used|...".
  std::map<std::string, std::set<std::string>> built;
  std::stringstream records(VARNOCK_LAYER_ARROWS);
  std::string record;
  while (std::getline(records, record, '|')) {
    const std::size_t colon = record.find(':');
    std::set<std::string>& used = built[record.substr(0, colon)];
    std::stringstream names(record.substr(colon + 1));
    for (std::string name; std::getline(names, name, ',');)
      used.insert(name);
  }
  for (const auto& [layer, used] : arrows()) {
    if (layer == "generators" || layer == "public clients") continue;
    ASSERT_TRUE(built.count(layer)) << "no target builds the layer " << layer;
    EXPECT_EQ(listed(built.at(layer)), listed(used)) << "the links of " << layer;
  }
  EXPECT_EQ(built.size(), arrows().size() - 2) << "a layer target outside the architecture";
}

}  // namespace
}  // namespace varnock
