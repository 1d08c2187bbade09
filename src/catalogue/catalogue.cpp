// SPDX-License-Identifier: MIT
#include "catalogue/catalogue.h"

#include "automation/text.h"
#include "catalogue/completion.h"
#include "varnock/automation_error.h"

namespace varnock::catalogue {

std::string_view sqlTypeName(SqlType type) {
  switch (type) {
    case SqlType::Nvarchar:
      return "nvarchar";
    case SqlType::Ntext:
      return "ntext";
    case SqlType::Int:
      return "int";
    case SqlType::Bit:
      return "bit";
    case SqlType::Smalldatetime:
      return "smalldatetime";
  }
  return {};
}

void complete(Table& t) {
  t.progId = std::string(kLibraryName) + "." + std::string(t.name);
  t.interfaceName = "_" + std::string(t.name);
  // ErrorLog and LogFile have no navigation column, so their order is " DESC".
  t.defaultOrder = std::string(t.navigationColumn) + " DESC";
  for (std::size_t i = 0; i < t.name.size(); ++i) {
    if (i > 0 && t.name[i] >= 'A' && t.name[i] <= 'Z') t.fileStem.push_back('_');
    t.fileStem.push_back(lowerCaseOf(t.name[i]));
  }
  for (const Column& c : t.columns) {
    t.nameList.append(c.field);
    t.nameList.push_back('\0');
    t.matchNames.push_back(lowerCase(c.property));
  }
  t.members = buildMembers(t);
}

int Table::findColumn(std::string_view folded) const {
  for (std::size_t i = 0; i < matchNames.size(); ++i) {
    if (matchNames[i] == folded) return static_cast<int>(i);
  }
  return -1;
}

const Table* findTable(std::string_view name) {
  for (const Table& t : tables()) {
    if (t.name == name) return &t;
  }
  return nullptr;
}

const Table& table(std::string_view name) {
  const Table* t = findTable(name);
  if (t == nullptr) {
    throw AutomationError(AutomationError::kInvalidProcedureCall,
                          "No table of the register is named '" + std::string(name) + "'",
                          AutomationError::kRuntimeSource);
  }
  return *t;
}

}  // namespace varnock::catalogue
