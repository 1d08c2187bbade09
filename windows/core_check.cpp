// SPDX-License-Identifier: MIT
// Run on Windows (or under Wine): the core behaves there as on Linux. A
// refused value is reported and written to the Windows event log; a
// register is read and written through odbc32; a register that cannot be
// opened fails the call with the driver manager's words.
//   core_check CONNECTION-STRING
// The register must hold no user named "wine". Prints each check and
// "N passed, M failed"; the exit status is 1 when one failed.
#include <iostream>
#include <string>

#include "varnock/varnock.h"

namespace {

int passed = 0;
int failed = 0;

void check(bool ok, const std::string& what, const std::string& detail = {}) {
  (ok ? passed : failed) += 1;
  std::cout << (ok ? "pass: " : "FAIL: ") << what;
  if (!ok && !detail.empty()) std::cout << " (" << detail << ")";
  std::cout << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: core_check CONNECTION-STRING\n";
    return 2;
  }
  const std::string dsn = argv[1];
  try {
    varnock::User user;
    user.put_Username(varnock::Variant::null());
    check(user.GetLastErrorMessage() == "Property UserName cannot be set to NULL",
          "a Null refused, with its message", user.GetLastErrorMessage());
    user.put_Authorized("maybe");
    check(user.GetLastErrorMessage() == "Cannot convert this value to bit",
          "a value that is no bit refused", user.GetLastErrorMessage());

    user.put_DSN(dsn);
    user.put_Username("wine");
    user.put_Firstname("Wine");
    user.put_Lastname("Cellar");
    user.put_Password("secret");
    user.put_Email("wine@example.org");
    user.put_Country("FR");
    user.put_Authorized(true);
    check(user.AddUser(), "AddUser through odbc32", user.GetLastErrorMessage());

    varnock::User found;
    found.put_DSN(dsn);
    found.put_Username("WINE");
    check(found.GetUser() && found.get_Lastname() == varnock::Variant("Cellar"),
          "GetUser finds it, without regard to case", found.GetLastErrorMessage());
    check(found.CountEveryUser("Country = 'FR'") >= 1, "CountEveryUser counts it");
    check(found.DeleteUser(), "DeleteUser removes it", found.GetLastErrorMessage());
    check(!found.GetUser(), "and GetUser finds it no more");

    varnock::User lost;
    lost.put_DSN("DSN=NoSuchRegister");
    lost.put_Username("wine");
    check(!lost.GetUser() && !lost.GetLastErrorMessage().empty(),
          "a register that cannot be opened fails the call", lost.GetLastErrorMessage());
    std::cout << "message: " << lost.GetLastErrorMessage() << '\n';
  } catch (const varnock::AutomationError& e) {
    check(false, "no error raised", e.description());
  }
  std::cout << passed << " passed, " << failed << " failed\n";
  return failed == 0 ? 0 : 1;
}
