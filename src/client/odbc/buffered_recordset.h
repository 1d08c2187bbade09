// SPDX-License-Identifier: MIT
// The rows of one statement, read in full when it ran, so that they stay
// readable after the connection has closed and hold nothing of the driver.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "client/client.h"

namespace varnock::client::odbc {

class BufferedRecordset final : public Recordset {
 public:
  // `rows` each hold one value per name, in the names' order; `source` is
  // what its failures carry.
  BufferedRecordset(std::vector<std::string> names, std::vector<std::vector<Variant>> rows,
                    std::string source);

  bool eof() const override { return current_ >= rows_.size(); }
  // The first field of that name, compared without regard to case.
  Variant field(std::string_view name) const override;
  void moveNext() override;

 private:
  std::vector<std::string> names_;
  std::vector<std::vector<Variant>> rows_;
  std::string source_;
  std::size_t current_ = 0;
};

}  // namespace varnock::client::odbc
