// SPDX-License-Identifier: MIT
#include "client/file_identity.h"

#include <sys/stat.h>

namespace varnock::client {

std::optional<FileIdentity> fileIdentity(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  return FileIdentity{static_cast<unsigned long long>(status.st_dev),
                      static_cast<unsigned long long>(status.st_ino)};
}

}  // namespace varnock::client
