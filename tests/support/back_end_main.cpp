// SPDX-License-Identifier: MIT
// The register test program: every test against a real register, on the back
// end that VARNOCK_TEST_BACK_END chooses. It first makes one register to see
// that the back end can run here; when it cannot, the whole program is
// skipped (exit status 77) with the reason, or fails where every back end is
// required. A test skipped inside is a difference the back end declares
// (back_end.h). At the end it prints, and appends to VARNOCK_BACK_END_REPORT,
// one line with the back end's counts.
#include <gtest/gtest.h>

#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "client/client.h"
#include "support/back_end.h"
#include "support/temp_register.h"

namespace {

using namespace varnock::testing;

constexpr int kSkippedStatus = 77;

// Empty when a register of the back end can be made and opened.
std::string whyUnavailable() {
  try {
    const TempRegister probe;
    varnock::client::open(probe.dsn())->close();
    return "";
  } catch (const std::exception& e) {
    return e.what();
  }
}

void report(const std::string& line) {
  std::cout << line << '\n';
  if (const char* file = std::getenv("VARNOCK_BACK_END_REPORT"); file != nullptr && *file) {
    std::ofstream(file, std::ios::app) << line << '\n';
  }
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const std::string name(backEndName(chosenBackEnd()));
  if (const std::string problem = whyUnavailable(); !problem.empty()) {
    report("Back end " + name + ": cannot run here: " + problem);
    return everyBackEndRequired() ? 1 : kSkippedStatus;
  }
  const int status = RUN_ALL_TESTS();
  const ::testing::UnitTest& run = *::testing::UnitTest::GetInstance();
  std::ostringstream line;
  line << "Back end " << name << ": " << run.successful_test_count() << " tests passed, "
       << run.failed_test_count() << " failed, " << run.skipped_test_count() << " skipped";
  report(line.str());
  return status;
}
