// SPDX-License-Identifier: MIT
// The members of every record class, each handing its call to the generic
// operation. Generated from the table catalogue by tools/generate_classes.cpp.
#include "record/record_internal.h"
#include "relations/operations.h"
#include "sql/operations.h"
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

// Country

Variant Country::get_Country() const {
  return RecordInternal::column(*this, 0);
}
void Country::put_Country(const Variant& value) {
  RecordInternal::assign(*this, 0, value);
}
bool Country::GetCountry(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::lookUp(*this, strWhereClause, strOrderClause);
}
bool Country::GetFirstCountry(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::loadFirst(*this, strWhereClause, strOrderClause);
}
bool Country::GetLastCountry(std::string_view strWhereClause, std::string& strOrderClause) {
  return sql::loadLast(*this, strWhereClause, strOrderClause);
}
bool Country::GetLastCountry(std::string_view strWhereClause, std::string_view strOrderClause) {
  std::string order(strOrderClause);
  return sql::loadLast(*this, strWhereClause, order);
}
bool Country::GetNextCountry(std::int32_t lngOffset, std::string_view strWhereClause,
                             std::string_view strOrderClause) {
  return sql::loadNext(*this, lngOffset, strWhereClause, strOrderClause);
}
bool Country::GetPreviousCountry(std::int32_t lngOffset, std::string_view strWhereClause,
                                 std::string_view strOrderClause) {
  return sql::loadPrevious(*this, lngOffset, strWhereClause, strOrderClause);
}
std::shared_ptr<Collection> Country::GetEveryCountry(std::string_view strWhereClause,
                                                     std::string_view strOrderClause,
                                                     const Variant& lngOffset,
                                                     const Variant& lngNumRecords) {
  return sql::listEvery(*this, strWhereClause, strOrderClause, lngOffset, lngNumRecords);
}
std::int32_t Country::CountEveryCountry(std::string_view strWhereClause) {
  return sql::countEvery(*this, strWhereClause);
}
bool Country::AddCountry() {
  return sql::insertRow(*this);
}
bool Country::UpdateCountry() {
  return sql::updateRow(*this);
}
bool Country::DeleteCountry(std::string_view strWhereClause) {
  return sql::deleteRows(*this, strWhereClause);
}

// ErrorLog

Variant ErrorLog::get_DateCreated() const {
  return RecordInternal::column(*this, 0);
}
void ErrorLog::put_DateCreated(const Variant& value) {
  RecordInternal::assign(*this, 0, value);
}
Variant ErrorLog::get_UserId() const {
  return RecordInternal::column(*this, 1);
}
void ErrorLog::put_UserId(const Variant& value) {
  RecordInternal::assign(*this, 1, value);
}
Variant ErrorLog::get_ErrorNumber() const {
  return RecordInternal::column(*this, 2);
}
void ErrorLog::put_ErrorNumber(const Variant& value) {
  RecordInternal::assign(*this, 2, value);
}
Variant ErrorLog::get_ErrorDescription() const {
  return RecordInternal::column(*this, 3);
}
void ErrorLog::put_ErrorDescription(const Variant& value) {
  RecordInternal::assign(*this, 3, value);
}
Variant ErrorLog::get_Message() const {
  return RecordInternal::column(*this, 4);
}
void ErrorLog::put_Message(const Variant& value) {
  RecordInternal::assign(*this, 4, value);
}
bool ErrorLog::GetErrorLog(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::lookUp(*this, strWhereClause, strOrderClause);
}
bool ErrorLog::GetFirstErrorLog(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::loadFirst(*this, strWhereClause, strOrderClause);
}
bool ErrorLog::GetLastErrorLog(std::string_view strWhereClause, std::string& strOrderClause) {
  return sql::loadLast(*this, strWhereClause, strOrderClause);
}
bool ErrorLog::GetLastErrorLog(std::string_view strWhereClause, std::string_view strOrderClause) {
  std::string order(strOrderClause);
  return sql::loadLast(*this, strWhereClause, order);
}
bool ErrorLog::GetNextErrorLog(std::int32_t lngOffset, std::string_view strWhereClause,
                               std::string_view strOrderClause) {
  return sql::loadNext(*this, lngOffset, strWhereClause, strOrderClause);
}
bool ErrorLog::GetPreviousErrorLog(std::int32_t lngOffset, std::string_view strWhereClause,
                                   std::string_view strOrderClause) {
  return sql::loadPrevious(*this, lngOffset, strWhereClause, strOrderClause);
}
std::shared_ptr<Collection> ErrorLog::GetEveryErrorLog(std::string_view strWhereClause,
                                                       std::string_view strOrderClause,
                                                       const Variant& lngOffset,
                                                       const Variant& lngNumRecords) {
  return sql::listEvery(*this, strWhereClause, strOrderClause, lngOffset, lngNumRecords);
}
std::int32_t ErrorLog::CountEveryErrorLog(std::string_view strWhereClause) {
  return sql::countEvery(*this, strWhereClause);
}
bool ErrorLog::AddErrorLog() {
  return sql::insertRow(*this);
}
bool ErrorLog::UpdateErrorLog() {
  return sql::updateRow(*this);
}
bool ErrorLog::DeleteErrorLog(std::string_view strWhereClause) {
  return sql::deleteRows(*this, strWhereClause);
}

// GroupCode

Variant GroupCode::get_GroupCode() const {
  return RecordInternal::column(*this, 0);
}
void GroupCode::put_GroupCode(const Variant& value) {
  RecordInternal::assign(*this, 0, value);
}
Variant GroupCode::get_Group() const {
  return RecordInternal::column(*this, 1);
}
void GroupCode::put_Group(const Variant& value) {
  RecordInternal::assign(*this, 1, value);
}
Variant GroupCode::get_Comment() const {
  return RecordInternal::column(*this, 2);
}
void GroupCode::put_Comment(const Variant& value) {
  RecordInternal::assign(*this, 2, value);
}
bool GroupCode::GetGroupCode(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::lookUp(*this, strWhereClause, strOrderClause);
}
bool GroupCode::GetFirstGroupCode(std::string_view strWhereClause,
                                  std::string_view strOrderClause) {
  return sql::loadFirst(*this, strWhereClause, strOrderClause);
}
bool GroupCode::GetLastGroupCode(std::string_view strWhereClause, std::string& strOrderClause) {
  return sql::loadLast(*this, strWhereClause, strOrderClause);
}
bool GroupCode::GetLastGroupCode(std::string_view strWhereClause, std::string_view strOrderClause) {
  std::string order(strOrderClause);
  return sql::loadLast(*this, strWhereClause, order);
}
bool GroupCode::GetNextGroupCode(std::int32_t lngOffset, std::string_view strWhereClause,
                                 std::string_view strOrderClause) {
  return sql::loadNext(*this, lngOffset, strWhereClause, strOrderClause);
}
bool GroupCode::GetPreviousGroupCode(std::int32_t lngOffset, std::string_view strWhereClause,
                                     std::string_view strOrderClause) {
  return sql::loadPrevious(*this, lngOffset, strWhereClause, strOrderClause);
}
std::shared_ptr<Collection> GroupCode::GetEveryGroupCode(std::string_view strWhereClause,
                                                         std::string_view strOrderClause,
                                                         const Variant& lngOffset,
                                                         const Variant& lngNumRecords) {
  return sql::listEvery(*this, strWhereClause, strOrderClause, lngOffset, lngNumRecords);
}
std::int32_t GroupCode::CountEveryGroupCode(std::string_view strWhereClause) {
  return sql::countEvery(*this, strWhereClause);
}
bool GroupCode::AddGroupCode() {
  return sql::insertRow(*this);
}
bool GroupCode::UpdateGroupCode() {
  return sql::updateRow(*this);
}
bool GroupCode::DeleteGroupCode(std::string_view strWhereClause) {
  return sql::deleteRows(*this, strWhereClause);
}
std::shared_ptr<Collection> GroupCode::GetChildrenInGroupMember(std::string_view strWhereClause,
                                                                std::string_view strOrderClause) {
  return relations::childrenIn(*this, 0, strWhereClause, strOrderClause);
}
std::int32_t GroupCode::CountChildrenInGroupMember() {
  return relations::countChildrenIn(*this, 0);
}
std::shared_ptr<Collection> GroupCode::GetDerivedChildrenInUser() {
  return relations::derivedChildrenIn(*this, 1, {}, {});
}
std::int32_t GroupCode::CountDerivedChildrenInUser(std::string_view strWhereClause,
                                                   std::string_view strOrderClause) {
  return relations::countDerivedChildrenIn(*this, 1, strWhereClause, strOrderClause);
}

// GroupMember

Variant GroupMember::get_GroupCode() const {
  return RecordInternal::column(*this, 0);
}
void GroupMember::put_GroupCode(const Variant& value) {
  RecordInternal::assign(*this, 0, value);
}
Variant GroupMember::get_Username() const {
  return RecordInternal::column(*this, 1);
}
void GroupMember::put_Username(const Variant& value) {
  RecordInternal::assign(*this, 1, value);
}
bool GroupMember::GetGroupMember(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::lookUp(*this, strWhereClause, strOrderClause);
}
bool GroupMember::GetFirstGroupMember(std::string_view strWhereClause,
                                      std::string_view strOrderClause) {
  return sql::loadFirst(*this, strWhereClause, strOrderClause);
}
bool GroupMember::GetLastGroupMember(std::string_view strWhereClause, std::string& strOrderClause) {
  return sql::loadLast(*this, strWhereClause, strOrderClause);
}
bool GroupMember::GetLastGroupMember(std::string_view strWhereClause,
                                     std::string_view strOrderClause) {
  std::string order(strOrderClause);
  return sql::loadLast(*this, strWhereClause, order);
}
bool GroupMember::GetNextGroupMember(std::int32_t lngOffset, std::string_view strWhereClause,
                                     std::string_view strOrderClause) {
  return sql::loadNext(*this, lngOffset, strWhereClause, strOrderClause);
}
bool GroupMember::GetPreviousGroupMember(std::int32_t lngOffset, std::string_view strWhereClause,
                                         std::string_view strOrderClause) {
  return sql::loadPrevious(*this, lngOffset, strWhereClause, strOrderClause);
}
std::shared_ptr<Collection> GroupMember::GetEveryGroupMember(std::string_view strWhereClause,
                                                             std::string_view strOrderClause,
                                                             const Variant& lngOffset,
                                                             const Variant& lngNumRecords) {
  return sql::listEvery(*this, strWhereClause, strOrderClause, lngOffset, lngNumRecords);
}
std::int32_t GroupMember::CountEveryGroupMember(std::string_view strWhereClause) {
  return sql::countEvery(*this, strWhereClause);
}
bool GroupMember::AddGroupMember() {
  return sql::insertRow(*this);
}
bool GroupMember::UpdateGroupMember() {
  return sql::updateRow(*this);
}
bool GroupMember::DeleteGroupMember(std::string_view strWhereClause) {
  return sql::deleteRows(*this, strWhereClause);
}
std::shared_ptr<GroupCode> GroupMember::GetParentInGroupCode() {
  return std::static_pointer_cast<GroupCode>(relations::parentIn(*this, 0));
}
std::shared_ptr<User> GroupMember::GetParentInUser() {
  return std::static_pointer_cast<User>(relations::parentIn(*this, 1));
}

// LogFile

Variant LogFile::get_ProgramName() const {
  return RecordInternal::column(*this, 0);
}
void LogFile::put_ProgramName(const Variant& value) {
  RecordInternal::assign(*this, 0, value);
}
Variant LogFile::get_LogDate() const {
  return RecordInternal::column(*this, 1);
}
void LogFile::put_LogDate(const Variant& value) {
  RecordInternal::assign(*this, 1, value);
}
Variant LogFile::get_Username() const {
  return RecordInternal::column(*this, 2);
}
void LogFile::put_Username(const Variant& value) {
  RecordInternal::assign(*this, 2, value);
}
Variant LogFile::get_Message() const {
  return RecordInternal::column(*this, 3);
}
void LogFile::put_Message(const Variant& value) {
  RecordInternal::assign(*this, 3, value);
}
bool LogFile::GetLogFile(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::lookUp(*this, strWhereClause, strOrderClause);
}
bool LogFile::GetFirstLogFile(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::loadFirst(*this, strWhereClause, strOrderClause);
}
bool LogFile::GetLastLogFile(std::string_view strWhereClause, std::string& strOrderClause) {
  return sql::loadLast(*this, strWhereClause, strOrderClause);
}
bool LogFile::GetLastLogFile(std::string_view strWhereClause, std::string_view strOrderClause) {
  std::string order(strOrderClause);
  return sql::loadLast(*this, strWhereClause, order);
}
bool LogFile::GetNextLogFile(std::int32_t lngOffset, std::string_view strWhereClause,
                             std::string_view strOrderClause) {
  return sql::loadNext(*this, lngOffset, strWhereClause, strOrderClause);
}
bool LogFile::GetPreviousLogFile(std::int32_t lngOffset, std::string_view strWhereClause,
                                 std::string_view strOrderClause) {
  return sql::loadPrevious(*this, lngOffset, strWhereClause, strOrderClause);
}
std::shared_ptr<Collection> LogFile::GetEveryLogFile(std::string_view strWhereClause,
                                                     std::string_view strOrderClause,
                                                     const Variant& lngOffset,
                                                     const Variant& lngNumRecords) {
  return sql::listEvery(*this, strWhereClause, strOrderClause, lngOffset, lngNumRecords);
}
std::int32_t LogFile::CountEveryLogFile(std::string_view strWhereClause) {
  return sql::countEvery(*this, strWhereClause);
}
bool LogFile::AddLogFile() {
  return sql::insertRow(*this);
}
bool LogFile::UpdateLogFile() {
  return sql::updateRow(*this);
}
bool LogFile::DeleteLogFile(std::string_view strWhereClause) {
  return sql::deleteRows(*this, strWhereClause);
}

// Parm

Variant Parm::get_Section() const {
  return RecordInternal::column(*this, 0);
}
void Parm::put_Section(const Variant& value) {
  RecordInternal::assign(*this, 0, value);
}
Variant Parm::get_KeyName() const {
  return RecordInternal::column(*this, 1);
}
void Parm::put_KeyName(const Variant& value) {
  RecordInternal::assign(*this, 1, value);
}
Variant Parm::get_Value() const {
  return RecordInternal::column(*this, 2);
}
void Parm::put_Value(const Variant& value) {
  RecordInternal::assign(*this, 2, value);
}
Variant Parm::get_Comment() const {
  return RecordInternal::column(*this, 3);
}
void Parm::put_Comment(const Variant& value) {
  RecordInternal::assign(*this, 3, value);
}
Variant Parm::get_Locked() const {
  return RecordInternal::column(*this, 4);
}
void Parm::put_Locked(const Variant& value) {
  RecordInternal::assign(*this, 4, value);
}
bool Parm::GetParm(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::lookUp(*this, strWhereClause, strOrderClause);
}
bool Parm::GetFirstParm(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::loadFirst(*this, strWhereClause, strOrderClause);
}
bool Parm::GetLastParm(std::string_view strWhereClause, std::string& strOrderClause) {
  return sql::loadLast(*this, strWhereClause, strOrderClause);
}
bool Parm::GetLastParm(std::string_view strWhereClause, std::string_view strOrderClause) {
  std::string order(strOrderClause);
  return sql::loadLast(*this, strWhereClause, order);
}
bool Parm::GetNextParm(std::int32_t lngOffset, std::string_view strWhereClause,
                       std::string_view strOrderClause) {
  return sql::loadNext(*this, lngOffset, strWhereClause, strOrderClause);
}
bool Parm::GetPreviousParm(std::int32_t lngOffset, std::string_view strWhereClause,
                           std::string_view strOrderClause) {
  return sql::loadPrevious(*this, lngOffset, strWhereClause, strOrderClause);
}
std::shared_ptr<Collection> Parm::GetEveryParm(std::string_view strWhereClause,
                                               std::string_view strOrderClause,
                                               const Variant& lngOffset,
                                               const Variant& lngNumRecords) {
  return sql::listEvery(*this, strWhereClause, strOrderClause, lngOffset, lngNumRecords);
}
std::int32_t Parm::CountEveryParm(std::string_view strWhereClause) {
  return sql::countEvery(*this, strWhereClause);
}
bool Parm::AddParm() {
  return sql::insertRow(*this);
}
bool Parm::UpdateParm() {
  return sql::updateRow(*this);
}
bool Parm::DeleteParm(std::string_view strWhereClause) {
  return sql::deleteRows(*this, strWhereClause);
}

// State

Variant State::get_State() const {
  return RecordInternal::column(*this, 0);
}
void State::put_State(const Variant& value) {
  RecordInternal::assign(*this, 0, value);
}
bool State::GetState(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::lookUp(*this, strWhereClause, strOrderClause);
}
bool State::GetFirstState(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::loadFirst(*this, strWhereClause, strOrderClause);
}
bool State::GetLastState(std::string_view strWhereClause, std::string& strOrderClause) {
  return sql::loadLast(*this, strWhereClause, strOrderClause);
}
bool State::GetLastState(std::string_view strWhereClause, std::string_view strOrderClause) {
  std::string order(strOrderClause);
  return sql::loadLast(*this, strWhereClause, order);
}
bool State::GetNextState(std::int32_t lngOffset, std::string_view strWhereClause,
                         std::string_view strOrderClause) {
  return sql::loadNext(*this, lngOffset, strWhereClause, strOrderClause);
}
bool State::GetPreviousState(std::int32_t lngOffset, std::string_view strWhereClause,
                             std::string_view strOrderClause) {
  return sql::loadPrevious(*this, lngOffset, strWhereClause, strOrderClause);
}
std::shared_ptr<Collection> State::GetEveryState(std::string_view strWhereClause,
                                                 std::string_view strOrderClause,
                                                 const Variant& lngOffset,
                                                 const Variant& lngNumRecords) {
  return sql::listEvery(*this, strWhereClause, strOrderClause, lngOffset, lngNumRecords);
}
std::int32_t State::CountEveryState(std::string_view strWhereClause) {
  return sql::countEvery(*this, strWhereClause);
}
bool State::AddState() {
  return sql::insertRow(*this);
}
bool State::UpdateState() {
  return sql::updateRow(*this);
}
bool State::DeleteState(std::string_view strWhereClause) {
  return sql::deleteRows(*this, strWhereClause);
}

// User

Variant User::get_Username() const {
  return RecordInternal::column(*this, 0);
}
void User::put_Username(const Variant& value) {
  RecordInternal::assign(*this, 0, value);
}
Variant User::get_SiteType() const {
  return RecordInternal::column(*this, 1);
}
void User::put_SiteType(const Variant& value) {
  RecordInternal::assign(*this, 1, value);
}
Variant User::get_Firstname() const {
  return RecordInternal::column(*this, 2);
}
void User::put_Firstname(const Variant& value) {
  RecordInternal::assign(*this, 2, value);
}
Variant User::get_Lastname() const {
  return RecordInternal::column(*this, 3);
}
void User::put_Lastname(const Variant& value) {
  RecordInternal::assign(*this, 3, value);
}
Variant User::get_Country() const {
  return RecordInternal::column(*this, 4);
}
void User::put_Country(const Variant& value) {
  RecordInternal::assign(*this, 4, value);
}
Variant User::get_State() const {
  return RecordInternal::column(*this, 5);
}
void User::put_State(const Variant& value) {
  RecordInternal::assign(*this, 5, value);
}
Variant User::get_Password() const {
  return RecordInternal::column(*this, 6);
}
void User::put_Password(const Variant& value) {
  RecordInternal::assign(*this, 6, value);
}
Variant User::get_Email() const {
  return RecordInternal::column(*this, 7);
}
void User::put_Email(const Variant& value) {
  RecordInternal::assign(*this, 7, value);
}
Variant User::get_Pagetopic() const {
  return RecordInternal::column(*this, 8);
}
void User::put_Pagetopic(const Variant& value) {
  RecordInternal::assign(*this, 8, value);
}
Variant User::get_Bio() const {
  return RecordInternal::column(*this, 9);
}
void User::put_Bio(const Variant& value) {
  RecordInternal::assign(*this, 9, value);
}
Variant User::get_Graphic() const {
  return RecordInternal::column(*this, 10);
}
void User::put_Graphic(const Variant& value) {
  RecordInternal::assign(*this, 10, value);
}
Variant User::get_Link() const {
  return RecordInternal::column(*this, 11);
}
void User::put_Link(const Variant& value) {
  RecordInternal::assign(*this, 11, value);
}
Variant User::get_DateCreated() const {
  return RecordInternal::column(*this, 12);
}
void User::put_DateCreated(const Variant& value) {
  RecordInternal::assign(*this, 12, value);
}
Variant User::get_Authorized() const {
  return RecordInternal::column(*this, 13);
}
void User::put_Authorized(const Variant& value) {
  RecordInternal::assign(*this, 13, value);
}
Variant User::get_AuthorisationDate() const {
  return RecordInternal::column(*this, 14);
}
void User::put_AuthorisationDate(const Variant& value) {
  RecordInternal::assign(*this, 14, value);
}
Variant User::get_AuthorisationMessage() const {
  return RecordInternal::column(*this, 15);
}
void User::put_AuthorisationMessage(const Variant& value) {
  RecordInternal::assign(*this, 15, value);
}
Variant User::get_REMOTE_ADDR() const {
  return RecordInternal::column(*this, 16);
}
void User::put_REMOTE_ADDR(const Variant& value) {
  RecordInternal::assign(*this, 16, value);
}
bool User::GetUser(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::lookUp(*this, strWhereClause, strOrderClause);
}
bool User::GetFirstUser(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::loadFirst(*this, strWhereClause, strOrderClause);
}
bool User::GetLastUser(std::string_view strWhereClause, std::string& strOrderClause) {
  return sql::loadLast(*this, strWhereClause, strOrderClause);
}
bool User::GetLastUser(std::string_view strWhereClause, std::string_view strOrderClause) {
  std::string order(strOrderClause);
  return sql::loadLast(*this, strWhereClause, order);
}
bool User::GetNextUser(std::int32_t lngOffset, std::string_view strWhereClause,
                       std::string_view strOrderClause) {
  return sql::loadNext(*this, lngOffset, strWhereClause, strOrderClause);
}
bool User::GetPreviousUser(std::int32_t lngOffset, std::string_view strWhereClause,
                           std::string_view strOrderClause) {
  return sql::loadPrevious(*this, lngOffset, strWhereClause, strOrderClause);
}
std::shared_ptr<Collection> User::GetEveryUser(std::string_view strWhereClause,
                                               std::string_view strOrderClause,
                                               const Variant& lngOffset,
                                               const Variant& lngNumRecords) {
  return sql::listEvery(*this, strWhereClause, strOrderClause, lngOffset, lngNumRecords);
}
std::int32_t User::CountEveryUser(std::string_view strWhereClause) {
  return sql::countEvery(*this, strWhereClause);
}
bool User::AddUser() {
  return sql::insertRow(*this);
}
bool User::UpdateUser() {
  return sql::updateRow(*this);
}
bool User::DeleteUser(std::string_view strWhereClause) {
  return sql::deleteRows(*this, strWhereClause);
}
std::shared_ptr<Collection> User::GetChildrenInGroupMember(std::string_view strWhereClause,
                                                           std::string_view strOrderClause) {
  return relations::childrenIn(*this, 0, strWhereClause, strOrderClause);
}
std::int32_t User::CountChildrenInGroupMember() {
  return relations::countChildrenIn(*this, 0);
}
std::shared_ptr<Collection> User::GetChildrenInZoneAddress(std::string_view strWhereClause,
                                                           std::string_view strOrderClause) {
  return relations::childrenIn(*this, 1, strWhereClause, strOrderClause);
}
std::int32_t User::CountChildrenInZoneAddress() {
  return relations::countChildrenIn(*this, 1);
}
std::shared_ptr<Collection> User::GetDerivedChildrenInGroupCode(std::string_view strWhereClause,
                                                                std::string_view strOrderClause) {
  return relations::derivedChildrenIn(*this, 2, strWhereClause, strOrderClause);
}
std::int32_t User::CountDerivedChildrenInGroupCode(std::string_view strWhereClause,
                                                   std::string_view strOrderClause) {
  return relations::countDerivedChildrenIn(*this, 2, strWhereClause, strOrderClause);
}
std::shared_ptr<Collection> User::GetDerivedChildrenInZone() {
  return relations::derivedChildrenIn(*this, 3, {}, {});
}
std::int32_t User::CountDerivedChildrenInZone(std::string_view strWhereClause,
                                              std::string_view strOrderClause) {
  return relations::countDerivedChildrenIn(*this, 3, strWhereClause, strOrderClause);
}

// Zone

Variant Zone::get_Zone() const {
  return RecordInternal::column(*this, 0);
}
void Zone::put_Zone(const Variant& value) {
  RecordInternal::assign(*this, 0, value);
}
Variant Zone::get_Test() const {
  return RecordInternal::column(*this, 1);
}
void Zone::put_Test(const Variant& value) {
  RecordInternal::assign(*this, 1, value);
}
bool Zone::GetZone(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::lookUp(*this, strWhereClause, strOrderClause);
}
bool Zone::GetFirstZone(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::loadFirst(*this, strWhereClause, strOrderClause);
}
bool Zone::GetLastZone(std::string_view strWhereClause, std::string& strOrderClause) {
  return sql::loadLast(*this, strWhereClause, strOrderClause);
}
bool Zone::GetLastZone(std::string_view strWhereClause, std::string_view strOrderClause) {
  std::string order(strOrderClause);
  return sql::loadLast(*this, strWhereClause, order);
}
bool Zone::GetNextZone(std::int32_t lngOffset, std::string_view strWhereClause,
                       std::string_view strOrderClause) {
  return sql::loadNext(*this, lngOffset, strWhereClause, strOrderClause);
}
bool Zone::GetPreviousZone(std::int32_t lngOffset, std::string_view strWhereClause,
                           std::string_view strOrderClause) {
  return sql::loadPrevious(*this, lngOffset, strWhereClause, strOrderClause);
}
std::shared_ptr<Collection> Zone::GetEveryZone(std::string_view strWhereClause,
                                               std::string_view strOrderClause,
                                               const Variant& lngOffset,
                                               const Variant& lngNumRecords) {
  return sql::listEvery(*this, strWhereClause, strOrderClause, lngOffset, lngNumRecords);
}
std::int32_t Zone::CountEveryZone(std::string_view strWhereClause) {
  return sql::countEvery(*this, strWhereClause);
}
bool Zone::AddZone() {
  return sql::insertRow(*this);
}
bool Zone::UpdateZone() {
  return sql::updateRow(*this);
}
bool Zone::DeleteZone(std::string_view strWhereClause) {
  return sql::deleteRows(*this, strWhereClause);
}
std::shared_ptr<Collection> Zone::GetChildrenInZoneAddress(std::string_view strWhereClause,
                                                           std::string_view strOrderClause) {
  return relations::childrenIn(*this, 0, strWhereClause, strOrderClause);
}
std::int32_t Zone::CountChildrenInZoneAddress() {
  return relations::countChildrenIn(*this, 0);
}
std::shared_ptr<Collection> Zone::GetChildrenInZonePool(std::string_view strWhereClause,
                                                        std::string_view strOrderClause) {
  return relations::childrenIn(*this, 1, strWhereClause, strOrderClause);
}
std::int32_t Zone::CountChildrenInZonePool() {
  return relations::countChildrenIn(*this, 1);
}
std::shared_ptr<Collection> Zone::GetDerivedChildrenInUser(std::string_view strWhereClause,
                                                           std::string_view strOrderClause) {
  return relations::derivedChildrenIn(*this, 2, strWhereClause, strOrderClause);
}
std::int32_t Zone::CountDerivedChildrenInUser(std::string_view strWhereClause,
                                              std::string_view strOrderClause) {
  return relations::countDerivedChildrenIn(*this, 2, strWhereClause, strOrderClause);
}

// ZoneAddress

Variant ZoneAddress::get_Zone() const {
  return RecordInternal::column(*this, 0);
}
void ZoneAddress::put_Zone(const Variant& value) {
  RecordInternal::assign(*this, 0, value);
}
Variant ZoneAddress::get_Username() const {
  return RecordInternal::column(*this, 1);
}
void ZoneAddress::put_Username(const Variant& value) {
  RecordInternal::assign(*this, 1, value);
}
Variant ZoneAddress::get_Address() const {
  return RecordInternal::column(*this, 2);
}
void ZoneAddress::put_Address(const Variant& value) {
  RecordInternal::assign(*this, 2, value);
}
Variant ZoneAddress::get_CreationDate() const {
  return RecordInternal::column(*this, 3);
}
void ZoneAddress::put_CreationDate(const Variant& value) {
  RecordInternal::assign(*this, 3, value);
}
bool ZoneAddress::GetZoneAddress(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::lookUp(*this, strWhereClause, strOrderClause);
}
bool ZoneAddress::GetFirstZoneAddress(std::string_view strWhereClause,
                                      std::string_view strOrderClause) {
  return sql::loadFirst(*this, strWhereClause, strOrderClause);
}
bool ZoneAddress::GetLastZoneAddress(std::string_view strWhereClause, std::string& strOrderClause) {
  return sql::loadLast(*this, strWhereClause, strOrderClause);
}
bool ZoneAddress::GetLastZoneAddress(std::string_view strWhereClause,
                                     std::string_view strOrderClause) {
  std::string order(strOrderClause);
  return sql::loadLast(*this, strWhereClause, order);
}
bool ZoneAddress::GetNextZoneAddress(std::int32_t lngOffset, std::string_view strWhereClause,
                                     std::string_view strOrderClause) {
  return sql::loadNext(*this, lngOffset, strWhereClause, strOrderClause);
}
bool ZoneAddress::GetPreviousZoneAddress(std::int32_t lngOffset, std::string_view strWhereClause,
                                         std::string_view strOrderClause) {
  return sql::loadPrevious(*this, lngOffset, strWhereClause, strOrderClause);
}
std::shared_ptr<Collection> ZoneAddress::GetEveryZoneAddress(std::string_view strWhereClause,
                                                             std::string_view strOrderClause,
                                                             const Variant& lngOffset,
                                                             const Variant& lngNumRecords) {
  return sql::listEvery(*this, strWhereClause, strOrderClause, lngOffset, lngNumRecords);
}
std::int32_t ZoneAddress::CountEveryZoneAddress(std::string_view strWhereClause) {
  return sql::countEvery(*this, strWhereClause);
}
bool ZoneAddress::AddZoneAddress() {
  return sql::insertRow(*this);
}
bool ZoneAddress::UpdateZoneAddress() {
  return sql::updateRow(*this);
}
bool ZoneAddress::DeleteZoneAddress(std::string_view strWhereClause) {
  return sql::deleteRows(*this, strWhereClause);
}
std::shared_ptr<User> ZoneAddress::GetParentInUser() {
  return std::static_pointer_cast<User>(relations::parentIn(*this, 0));
}
std::shared_ptr<Zone> ZoneAddress::GetParentInZone() {
  return std::static_pointer_cast<Zone>(relations::parentIn(*this, 1));
}

// ZonePool

Variant ZonePool::get_Zone() const {
  return RecordInternal::column(*this, 0);
}
void ZonePool::put_Zone(const Variant& value) {
  RecordInternal::assign(*this, 0, value);
}
Variant ZonePool::get_Address() const {
  return RecordInternal::column(*this, 1);
}
void ZonePool::put_Address(const Variant& value) {
  RecordInternal::assign(*this, 1, value);
}
bool ZonePool::GetZonePool(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::lookUp(*this, strWhereClause, strOrderClause);
}
bool ZonePool::GetFirstZonePool(std::string_view strWhereClause, std::string_view strOrderClause) {
  return sql::loadFirst(*this, strWhereClause, strOrderClause);
}
bool ZonePool::GetLastZonePool(std::string_view strWhereClause, std::string& strOrderClause) {
  return sql::loadLast(*this, strWhereClause, strOrderClause);
}
bool ZonePool::GetLastZonePool(std::string_view strWhereClause, std::string_view strOrderClause) {
  std::string order(strOrderClause);
  return sql::loadLast(*this, strWhereClause, order);
}
bool ZonePool::GetNextZonePool(std::int32_t lngOffset, std::string_view strWhereClause,
                               std::string_view strOrderClause) {
  return sql::loadNext(*this, lngOffset, strWhereClause, strOrderClause);
}
bool ZonePool::GetPreviousZonePool(std::int32_t lngOffset, std::string_view strWhereClause,
                                   std::string_view strOrderClause) {
  return sql::loadPrevious(*this, lngOffset, strWhereClause, strOrderClause);
}
std::shared_ptr<Collection> ZonePool::GetEveryZonePool(std::string_view strWhereClause,
                                                       std::string_view strOrderClause,
                                                       const Variant& lngOffset,
                                                       const Variant& lngNumRecords) {
  return sql::listEvery(*this, strWhereClause, strOrderClause, lngOffset, lngNumRecords);
}
std::int32_t ZonePool::CountEveryZonePool(std::string_view strWhereClause) {
  return sql::countEvery(*this, strWhereClause);
}
bool ZonePool::AddZonePool() {
  return sql::insertRow(*this);
}
bool ZonePool::UpdateZonePool() {
  return sql::updateRow(*this);
}
bool ZonePool::DeleteZonePool(std::string_view strWhereClause) {
  return sql::deleteRows(*this, strWhereClause);
}
std::shared_ptr<Zone> ZonePool::GetParentInZone() {
  return std::static_pointer_cast<Zone>(relations::parentIn(*this, 0));
}

}  // namespace varnock
