// SPDX-License-Identifier: MIT
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

#include "support/run_program.h"

namespace varnock::testing {

// The blank-separated words of a line.
inline std::vector<std::string> wordsOf(const std::string& line) {
  std::vector<std::string> words;
  std::istringstream in(line);
  for (std::string word; in >> word;)
    words.push_back(word);
  return words;
}

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
  // `input` is its standard input.
  ProgramRun varnock(const std::vector<std::string>& arguments, EnvironmentChanges environment = {},
                     const std::optional<std::string>& input = std::nullopt) const {
    environment.try_emplace("VARNOCK_DSN", std::nullopt);
    environment.try_emplace("VARNOCK_SQL_TRACE", std::nullopt);
    environment.try_emplace("VARNOCK_EVENT_LOG", "file:" + (folder_ / "events.jsonl").string());
    ProgramRun run = runProgram(VARNOCK_CLI_PATH, arguments, folder_, environment, input);
    // A sanitizer report can end with any status, so look for the report itself.
    EXPECT_EQ(run.err.find("Sanitizer"), std::string::npos) << run.err;
    EXPECT_EQ(run.err.find("runtime error:"), std::string::npos) << run.err;
    return run;
  }

  // Runs the tool with the words of LINE as its arguments.
  ProgramRun run(const std::string& line) const { return varnock(wordsOf(line)); }
  std::string json(const std::string& line, int expectedStatus = 0) const {
    return varnockJson(wordsOf(line), expectedStatus);
  }

  // The output of a call with --json, checked to be one line holding one
  // object, and the exit status.
  std::string varnockJson(std::vector<std::string> arguments, int expectedStatus = 0) const {
    arguments.push_back("--json");
    const ProgramRun run = varnock(arguments);
    EXPECT_EQ(run.status, expectedStatus) << run.out << run.err;
    EXPECT_TRUE(run.out.starts_with("{\"") && run.out.ends_with("}\n")) << run.out;
    EXPECT_EQ(run.out.find('\n'), run.out.size() - 1) << run.out;
    return run.out;
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

// Whether TEXT holds PART, saying what it held when it does not.
inline ::testing::AssertionResult holds(const std::string& text, const std::string& part) {
  if (text.find(part) != std::string::npos) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "no " << part << " in: " << text;
}

// The lines of a text, without their line ends.
inline std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);)
    lines.push_back(line);
  return lines;
}

}  // namespace varnock::testing
