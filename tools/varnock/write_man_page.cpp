// SPDX-License-Identifier: MIT
// Writes varnock(1) from the tool's own help text, at build time:
//   write_man_page OUTPUT VERSION
#include <fstream>
#include <iostream>

#include "help.h"
#include "man_page.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: write_man_page OUTPUT VERSION\n";
    return 2;
  }
  std::ofstream out(argv[1], std::ios::binary);
  out << varnock::cli::manPage(varnock::cli::helpText(), argv[2]);
  out.close();
  if (!out) {
    std::cerr << "write_man_page: cannot write " << argv[1] << '\n';
    return 1;
  }
  return 0;
}
