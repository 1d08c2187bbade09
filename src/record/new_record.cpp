// SPDX-License-Identifier: MIT
// Generated from the table catalogue by tools/generate_classes.cpp.
#include "record/new_record.h"
#include "varnock/country.h"
#include "varnock/error_log.h"
#include "varnock/group_code.h"
#include "varnock/group_member.h"
#include "varnock/log_file.h"
#include "varnock/parm.h"
#include "varnock/state.h"
#include "varnock/user.h"
#include "varnock/zone.h"
#include "varnock/zone_address.h"
#include "varnock/zone_pool.h"

namespace varnock {

std::shared_ptr<Record> newRecord(std::string_view tableName) {
  if (tableName == "Country") return std::make_shared<Country>();
  if (tableName == "ErrorLog") return std::make_shared<ErrorLog>();
  if (tableName == "GroupCode") return std::make_shared<GroupCode>();
  if (tableName == "GroupMember") return std::make_shared<GroupMember>();
  if (tableName == "LogFile") return std::make_shared<LogFile>();
  if (tableName == "Parm") return std::make_shared<Parm>();
  if (tableName == "State") return std::make_shared<State>();
  if (tableName == "User") return std::make_shared<User>();
  if (tableName == "Zone") return std::make_shared<Zone>();
  if (tableName == "ZoneAddress") return std::make_shared<ZoneAddress>();
  if (tableName == "ZonePool") return std::make_shared<ZonePool>();
  return nullptr;
}

}  // namespace varnock
