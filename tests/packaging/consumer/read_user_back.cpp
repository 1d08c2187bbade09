// SPDX-License-Identifier: MIT
// A program of a Varnock user, built against an installed Varnock: creates a
// register, adds a user and reads it back.
//   read_user_back REGISTER-FILE
#include <iostream>
#include <string>

#include "varnock/varnock.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: read_user_back REGISTER-FILE\n";
    return 2;
  }
  const std::string dsn = varnock::createRegister(argv[1]);

  varnock::User added;
  added.put_DSN(dsn);
  added.put_Username("ann");
  added.put_Firstname("Ann");
  added.put_Lastname("Lee");
  added.put_Password("secret");
  added.put_Email("ann@example.org");
  added.put_Country("US");
  added.put_Authorized(true);
  if (!added.AddUser()) {
    std::cerr << "AddUser failed: " << added.GetLastErrorMessage() << '\n';
    return 1;
  }

  varnock::User found;
  found.put_DSN(dsn);
  found.put_Username("ANN");  // the register compares user names without case
  if (!found.GetUser()) {
    std::cerr << "GetUser failed: " << found.GetLastErrorMessage() << '\n';
    return 1;
  }
  std::cout << varnock::toText(found.get_Username()) << ' '
            << varnock::toText(found.get_Firstname()) << ' '
            << varnock::toText(found.get_Lastname()) << '\n';
  return 0;
}
