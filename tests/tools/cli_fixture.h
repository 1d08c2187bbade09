// Test hook: runs the built varnock tool in a temporary folder of its own,
// with an environment that no setting of the test machine leaks into.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tools/json_reader.h"
#include "tools/run_program.h"

namespace varnock::testing {

class VarnockCli : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (std::filesystem::temp_directory_path() / "varnock-cli-XXXXXX").string();
    ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
    folder_ = pattern;
  }
  void TearDown() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  const std::filesystem::path& folder() const { return folder_; }

  // Runs `varnock ARGUMENTS` in the folder. VARNOCK_DSN and VARNOCK_SQL_TRACE
  // are unset unless `environment` sets them; events go to a file there.
  ProgramRun varnock(const std::vector<std::string>& arguments,
                     EnvironmentChanges environment = {}) const {
    environment.try_emplace("VARNOCK_DSN", std::nullopt);
    environment.try_emplace("VARNOCK_SQL_TRACE", std::nullopt);
    environment.try_emplace("VARNOCK_EVENT_LOG", "file:" + (folder_ / "events.jsonl").string());
    ProgramRun run = runProgram(VARNOCK_CLI_PATH, arguments, folder_, environment);
    // A sanitizer report can end with any status, so look for the report itself.
    EXPECT_EQ(run.err.find("Sanitizer"), std::string::npos) << run.err;
    EXPECT_EQ(run.err.find("runtime error:"), std::string::npos) << run.err;
    return run;
  }

  // Runs a call with --json and reads its output; fails the test when the
  // output is not one JSON object.
  Json varnockJson(std::vector<std::string> arguments, int expectedStatus = 0,
                   EnvironmentChanges environment = {}) const {
    arguments.push_back("--json");
    const ProgramRun run = varnock(arguments, std::move(environment));
    EXPECT_EQ(run.status, expectedStatus) << run.out << run.err;
    try {
      return JsonReader::parse(run.out);
    } catch (const std::exception& e) {
      ADD_FAILURE() << e.what() << " in: " << run.out;
      return {};
    }
  }

  // A new register at folder/NAME, made by the tool itself.
  void initRegister(const std::string& name = "register.db") const {
    const ProgramRun run = varnock({"init", name});
    ASSERT_EQ(run.status, 0) << run.err;
  }

  std::string readFile(const std::filesystem::path& path) const {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
  }

 private:
  std::filesystem::path folder_;
};

// The lines of a text, without their line ends.
inline std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);)
    lines.push_back(line);
  return lines;
}

}  // namespace varnock::testing
