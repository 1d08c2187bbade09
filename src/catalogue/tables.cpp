// SPDX-License-Identifier: MIT
// The facts of Tolvane_Register: tables, columns, keys, navigation columns,
// relations and identifiers. Everything per-table in Varnock comes from here.
#include "catalogue/catalogue.h"
#include "catalogue/completion.h"

namespace varnock::catalogue {

namespace {

constexpr SqlType nvarchar = SqlType::Nvarchar;
constexpr SqlType ntext = SqlType::Ntext;
constexpr SqlType int_ = SqlType::Int;
constexpr SqlType bit = SqlType::Bit;
constexpr SqlType smalldatetime = SqlType::Smalldatetime;
constexpr bool refused = true;
constexpr bool allowed = false;

constexpr Relation parent(std::string_view table, std::string_view field) {
  return {RelationKind::Parent, table, {}, field, {}, false, false};
}
constexpr Relation children(std::string_view table, std::string_view field) {
  return {RelationKind::Children, table, {}, field, {}, false, false};
}
constexpr bool kListArguments = true;
constexpr bool kNoListArguments = false;
constexpr bool kThroughOwnTable = true;
constexpr bool kThroughLinkOnly = false;

constexpr Relation derived(std::string_view far, std::string_view link, std::string_view own,
                           std::string_view farField, bool listTakesArguments, bool joinsOwnTable) {
  return {
      RelationKind::DerivedChildren, far, link, own, farField, listTakesArguments, joinsOwnTable};
}

constexpr Column kCountry[] = {{"Country", "Country", nvarchar, 50, refused}};
constexpr std::uint8_t kCountryKey[] = {0};

constexpr Column kErrorLog[] = {
    {"DateCreated", "DateCreated", smalldatetime, 0, refused},
    {"UserId", "UserId", nvarchar, 50, refused},
    {"ErrorNumber", "ErrorNumber", int_, 0, refused},
    {"ErrorDescription", "ErrorDescription", nvarchar, 255, refused},
    {"Message", "Message", nvarchar, 255, allowed},
};
constexpr std::uint8_t kErrorLogKey[] = {0, 1, 2, 3, 4};

constexpr Column kGroupCode[] = {
    {"GroupCode", "GroupCode", nvarchar, 50, refused},
    {"Group", "Group", nvarchar, 50, refused},
    {"Comment", "Comment", ntext, 0, allowed},
};
constexpr std::uint8_t kGroupCodeKey[] = {0};
constexpr Relation kGroupCodeRelations[] = {
    children("GroupMember", "GroupCode"),
    derived("User", "GroupMember", "GroupCode", "UserName", kNoListArguments, kThroughOwnTable),
};

constexpr Column kGroupMember[] = {
    {"GroupCode", "GroupCode", nvarchar, 50, refused},
    {"Username", "UserName", nvarchar, 50, refused},
};
constexpr std::uint8_t kGroupMemberKey[] = {0, 1};
constexpr Relation kGroupMemberRelations[] = {
    parent("GroupCode", "GroupCode"),
    parent("User", "UserName"),
};

constexpr Column kLogFile[] = {
    {"ProgramName", "ProgramName", nvarchar, 50, refused},
    {"LogDate", "LogDate", smalldatetime, 0, refused},
    {"Username", "Username", nvarchar, 50, allowed},
    {"Message", "Message", nvarchar, 255, refused},
};
constexpr std::uint8_t kLogFileKey[] = {0, 1, 2, 3};

constexpr Column kParm[] = {
    {"Section", "Section", nvarchar, 50, refused}, {"KeyName", "KeyName", nvarchar, 50, refused},
    {"Value", "Value", nvarchar, 255, allowed},    {"Comment", "Comment", ntext, 0, allowed},
    {"Locked", "Locked", bit, 0, refused},
};
constexpr std::uint8_t kParmKey[] = {0, 1};

constexpr Column kState[] = {{"State", "State", nvarchar, 50, refused}};
constexpr std::uint8_t kStateKey[] = {0};

constexpr Column kUser[] = {
    {"Username", "UserName", nvarchar, 50, refused},
    {"SiteType", "SiteType", nvarchar, 50, allowed},
    {"Firstname", "Firstname", nvarchar, 50, allowed},
    {"Lastname", "Lastname", nvarchar, 50, refused},
    {"Country", "Country", nvarchar, 50, refused},
    {"State", "State", nvarchar, 50, allowed},
    {"Password", "Password", nvarchar, 50, refused},
    {"Email", "Email", nvarchar, 255, refused},
    {"Pagetopic", "Pagetopic", nvarchar, 255, allowed},
    {"Bio", "Bio", nvarchar, 255, allowed},
    {"Graphic", "Graphic", nvarchar, 255, allowed},
    {"Link", "Link", nvarchar, 255, allowed},
    {"DateCreated", "DateCreated", smalldatetime, 0, allowed},
    {"Authorized", "Authorized", bit, 0, refused},
    {"AuthorisationDate", "AuthorisationDate", smalldatetime, 0, allowed},
    {"AuthorisationMessage", "AuthorisationMessage", ntext, 0, allowed},
    {"REMOTE_ADDR", "REMOTE_ADDR", nvarchar, 50, allowed},
};
constexpr std::uint8_t kUserKey[] = {0};
constexpr Relation kUserRelations[] = {
    children("GroupMember", "UserName"),
    children("ZoneAddress", "UserName"),
    derived("GroupCode", "GroupMember", "UserName", "GroupCode", kListArguments, kThroughLinkOnly),
    derived("Zone", "ZoneAddress", "UserName", "Zone", kNoListArguments, kThroughOwnTable),
};

constexpr Column kZone[] = {
    {"Zone", "Zone", nvarchar, 50, refused},
    {"Test", "Test", bit, 0, refused},
};
constexpr std::uint8_t kZoneKey[] = {0};
constexpr Relation kZoneRelations[] = {
    children("ZoneAddress", "Zone"),
    children("ZonePool", "Zone"),
    derived("User", "ZoneAddress", "Zone", "UserName", kListArguments, kThroughLinkOnly),
};

constexpr Column kZoneAddress[] = {
    {"Zone", "Zone", nvarchar, 50, refused},
    {"Username", "UserName", nvarchar, 50, refused},
    {"Address", "Address", int_, 0, refused},
    {"CreationDate", "CreationDate", smalldatetime, 0, refused},
};
constexpr std::uint8_t kZoneAddressKey[] = {0, 1};
constexpr Relation kZoneAddressRelations[] = {
    parent("User", "UserName"),
    parent("Zone", "Zone"),
};

constexpr Column kZonePool[] = {
    {"Zone", "Zone", nvarchar, 50, refused},
    {"Address", "Address", int_, 0, refused},
};
constexpr std::uint8_t kZonePoolKey[] = {0, 1};
constexpr Relation kZonePoolRelations[] = {parent("Zone", "Zone")};

// A table with a narrow key navigates by its first key column.
Table keyed(std::string_view name, std::span<const Column> columns,
            std::span<const std::uint8_t> key, std::span<const Relation> relations,
            std::string_view classId, std::string_view interfaceId) {
  return Table{name,      columns, key,         false, columns[key[0]].field,
               relations, classId, interfaceId, {},    {},
               {},        {},      {},          {},    {}};
}

Table wholeRow(std::string_view name, std::span<const Column> columns,
               std::span<const std::uint8_t> key, std::string_view classId,
               std::string_view interfaceId) {
  return Table{name, columns, key, true, {}, {}, classId, interfaceId, {}, {}, {}, {}, {}, {}, {}};
}

std::vector<Table> buildTables() {
  std::vector<Table> all;
  all.push_back(keyed("Country", kCountry, kCountryKey, {},
                      "{581146D9-1869-4838-8622-46B0273D4895}",
                      "{1CDC9ED3-E302-4071-BB0B-7EF8F3D980B7}"));
  all.push_back(wholeRow("ErrorLog", kErrorLog, kErrorLogKey,
                         "{9AA3E79B-19D5-41FB-A0BF-50F9103A8F8C}",
                         "{65F33A9E-C92F-4ACA-B879-99CAE6720682}"));
  all.push_back(keyed("GroupCode", kGroupCode, kGroupCodeKey, kGroupCodeRelations,
                      "{A8EDAE86-6747-48E3-A62B-2EC3C40B987F}",
                      "{4366A289-9FBB-4D0F-A721-BEF11D2C2683}"));
  all.push_back(keyed("GroupMember", kGroupMember, kGroupMemberKey, kGroupMemberRelations,
                      "{D3814D0B-659D-4AD4-B4F7-D75336A27260}",
                      "{370C7DBC-32AA-4CE9-A199-E0D86C0A32AB}"));
  all.push_back(wholeRow("LogFile", kLogFile, kLogFileKey, "{3D2B4B72-23CB-4473-AE0D-44ECB1261D92}",
                         "{D948386C-FF72-49B6-83C5-BDD180164FE4}"));
  all.push_back(keyed("Parm", kParm, kParmKey, {}, "{BFB2AA06-40A1-49A3-8BEE-64B557B0E3C4}",
                      "{F5D786A5-0E8F-40F2-9D42-00CBC23FC7CE}"));
  all.push_back(keyed("State", kState, kStateKey, {}, "{8E996BD7-2C4D-4119-83D3-650565B16C56}",
                      "{987995A9-FF99-481C-85CA-8B755858CDEE}"));
  all.push_back(keyed("User", kUser, kUserKey, kUserRelations,
                      "{8EC93EA5-F48A-45B9-8E88-7F9ABE16A5D9}",
                      "{029DE9D9-6E5F-4886-B3BF-D34A1A9E0C9B}"));
  all.push_back(keyed("Zone", kZone, kZoneKey, kZoneRelations,
                      "{8D6812BC-E747-49DB-A3CB-384F259D9CB5}",
                      "{B3E34DFD-839F-4503-B2D9-F717723760B3}"));
  all.push_back(keyed("ZoneAddress", kZoneAddress, kZoneAddressKey, kZoneAddressRelations,
                      "{315EFA9A-D603-4702-9088-F4E127F5E8FA}",
                      "{C4C59B01-5154-4DBB-B325-810D913BC8B7}"));
  all.push_back(keyed("ZonePool", kZonePool, kZonePoolKey, kZonePoolRelations,
                      "{806478F5-34C5-43DE-910B-79595BA5F049}",
                      "{EA2FAA6F-46CF-44BB-B669-99E26B84FADF}"));
  for (Table& t : all)
    complete(t);
  return all;
}

}  // namespace

const std::vector<Table>& tables() {
  static const std::vector<Table> all = buildTables();
  return all;
}

}  // namespace varnock::catalogue
