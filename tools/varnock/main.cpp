// SPDX-License-Identifier: MIT
// varnock: calls the record objects of a register from the command line.
// Every failure ends as a message and an exit status (see help.h).
#include <unistd.h>

#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "commands.h"
#include "copy_command.h"
#include "error_report.h"
#include "help.h"
#include "varnock/automation_error.h"

namespace {

using namespace varnock::cli;

ExitStatus run(const std::vector<std::string>& words) {
  if (words.empty()) throw UsageError("no command given; see varnock --help");
  const std::string& command = words[0];
  const Words rest(words.begin() + 1, words.end());
  // "varnock init --help" asks for help; it never names a register "--help".
  const bool helpAsked = command == "--help" || command == "-h" || command == "help" ||
                         (!rest.empty() && (rest.front() == "--help" || rest.front() == "-h"));
  if (helpAsked) {
    std::cout << helpText();
    return kSuccess;
  }
  if (command == "--version" || command == "version") {
    std::cout << "varnock " << VARNOCK_VERSION << '\n';
    return kSuccess;
  }
  if (command == "init") return initCommand(rest, std::cout, std::cerr);
  if (command == "call") return callCommand(rest, std::cin, std::cout, std::cerr);
  if (command == "copy")
    return copyCommand(rest, std::cout, std::cerr, ::isatty(STDERR_FILENO) == 1);
  if (command == "members") return membersCommand(rest, std::cout);
  if (command == "idl") return idlCommand(rest, std::cout);
  throw UsageError("unknown command " + command + "; see varnock --help");
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const ExitStatus status = run(std::vector<std::string>(argv + 1, argv + argc));
    std::cout.flush();
    if (!std::cout) {
      std::cerr << "varnock: the output could not be written\n";
      return kAutomationError;
    }
    return status;
  } catch (const UsageError& e) {
    std::cerr << "varnock: " << e.what() << '\n';
    return kUsageError;
  } catch (const varnock::AutomationError& e) {
    std::cerr << "varnock: " << describe(e) << '\n';
    return kAutomationError;
  } catch (const std::exception& e) {
    std::cerr << "varnock: " << e.what() << '\n';
    return kAutomationError;
  } catch (...) {
    std::cerr << "varnock: an unknown failure ended the command\n";
    return kAutomationError;
  }
}
