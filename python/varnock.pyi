# SPDX-License-Identifier: MIT
# Type stubs of the varnock module. Generated from the table catalogue by
# tools/generate_python_stubs.cpp; change the catalogue or the generator, not
# this file.
#
# The record classes below name the interfaces that varnock.CreateObject
# gives: at run time every record object is a varnock.Record, whose
# properties and methods are found by name, in any case.
import datetime
import decimal
import os
from typing import Any, Iterator, Literal, Optional, Union, overload

__version__: str

class EmptyType:
    """The type of varnock.Empty, the value of an argument or column that was never given one (distinct from None, which is Null)."""
    def __bool__(self) -> Literal[False]: ...

Empty: EmptyType

# What a column, an argument or a result can hold. None is Null; a
# decimal.Decimal is a currency amount; a datetime is a date.
Value = Union[None, EmptyType, bool, int, float, decimal.Decimal, datetime.datetime, str,
              "Record", "Dictionary", "Collection"]

class ByRef:
    """A variable for an argument passed by reference: .value receives its final value after the call."""
    value: Any
    def __init__(self, value: Any = ...) -> None: ...

class AutomationError(Exception):
    """A failure reported by Varnock: number, description and source."""
    number: int
    description: str
    source: str
    def __init__(self, number: int = 0, description: str = "", source: str = "") -> None: ...

class UnknownMemberError(AutomationError, AttributeError):
    """A record object has no member of that name."""

class Dictionary:
    """An ordered dictionary of text keys to values: what GetDictionary returns and SetDictionary takes."""
    def __init__(self) -> None: ...
    def Add(self, key: str, item: Any) -> None: ...
    def Item(self, key: str) -> Any: ...
    def Exists(self, key: str) -> bool: ...
    def Keys(self) -> list[str]: ...
    def Items(self) -> list[Any]: ...
    def keys(self) -> list[str]: ...
    def values(self) -> list[Any]: ...
    def items(self) -> list[tuple[str, Any]]: ...
    def get(self, key: str, default: Any = None) -> Any: ...
    @property
    def Count(self) -> int: ...
    def __len__(self) -> int: ...
    def __getitem__(self, key: str) -> Any: ...
    def __setitem__(self, key: str, item: Any) -> None: ...
    def __contains__(self, key: object) -> bool: ...
    def __iter__(self) -> Iterator[str]: ...

class Collection:
    """The ordered collection that the listing methods return. Item counts from 1; Python indexing from 0 (c[0] is c.Item(1))."""
    def __init__(self) -> None: ...
    def Add(self, item: Any) -> None: ...
    def Item(self, index: int) -> Any: ...
    @property
    def Count(self) -> int: ...
    def __len__(self) -> int: ...
    @overload
    def __getitem__(self, index: int) -> Any: ...
    @overload
    def __getitem__(self, index: slice) -> list[Any]: ...
    def __iter__(self) -> Iterator[Any]: ...

class Record:
    """A Varnock record object, made by varnock.CreateObject; names match without regard to case."""
    def __getattr__(self, name: str) -> Any: ...
    def __setattr__(self, name: str, value: Any) -> None: ...

def members(class_name: str) -> list[tuple[str, int, str, list[str]]]:
    """The interface of a class in order: name, dispatch identifier, kind and argument names."""
def set_event_log(setting: str) -> None:
    """Where event log entries go: "syslog", "journal", "file:PATH" or "stderr"."""
def create_register(path: Union[str, "os.PathLike[str]"]) -> str:
    """Creates a new, empty SQLite register at path and returns its connection string."""
def set_sql_trace(path: Optional[Union[str, "os.PathLike[str]"]]) -> None:
    """Appends one JSON Lines entry per statement sent to path; None switches the trace off."""
def idl() -> str:
    """The type library's description."""

class Country(Record):
    """The record object of the register's Country table (Varnock.Country)."""
    @property
    def DSN(self) -> str:
        """The connection string the object opens for each call."""
    @DSN.setter
    def DSN(self, value: str) -> None: ...
    def GetTableName(self) -> str:
        """The name of the object's table, "Country"."""
    @property
    def Country(self) -> Value:
        """Country: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Country.setter
    def Country(self, value: Value) -> None: ...
    def GetLastErrorMessage(self) -> str:
        """The description of the last refused value or failed call; empty when none."""
    def IsDataProperty(self, strPropertyName: str, blnCaseSensitive: bool = False) -> bool:
        """True when strPropertyName names a column of Country (in any case unless blnCaseSensitive)."""
    def GetDataProperty(self, strPropertyName: Union[str, ByRef]) -> Value:
        """The value of the column that strPropertyName names; Empty when it names none."""
    def SetDataProperty(self, strPropertyName: Union[str, ByRef], varPropertyValue: Union[Value, ByRef]) -> bool:
        """Assigns varPropertyValue to the column that strPropertyName names; True when it was stored."""
    def GetDictionary(self) -> Dictionary:
        """A new Dictionary of every column's value by field name, in column order."""
    def SetDictionary(self, varDict: Union[Value, ByRef]) -> bool:
        """Assigns each value of the Dictionary varDict to the column its key names, in order, stopping at the first refusal; True when all were stored."""
    def GetCountry(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the Country row whose key the key properties hold (with strWhereClause, the first row meeting it); True when a row was found."""
    def GetFirstCountry(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the first Country row meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetLastCountry(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the last Country row meeting strWhereClause (any row when empty) in the order strOrderClause, which is written back reversed; True when there is one."""
    def GetNextCountry(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the Country row after position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetPreviousCountry(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the Country row before position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetEveryCountry(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "", lngOffset: Union[Value, ByRef] = 1, lngNumRecords: Union[Value, ByRef] = 0) -> Collection:
        """The Country rows meeting strWhereClause (any row when empty) in the order strOrderClause, leaving out the first lngOffset when it is 2 or more and keeping at most lngNumRecords when it is above 0, as a Collection of new Country objects."""
    def CountEveryCountry(self, strWhereClause: Union[str, ByRef] = "") -> int:
        """The number of Country rows meeting strWhereClause (all when empty)."""
    def AddCountry(self) -> bool:
        """Inserts the columns that hold a value as a new Country row; True on success."""
    def UpdateCountry(self) -> bool:
        """Writes every column to the Country row that the key properties name; True on success."""
    def DeleteCountry(self, strWhereClause: Union[str, ByRef] = "") -> bool:
        """Deletes the Country row that the key properties name (False when there is none), or with strWhereClause every row meeting it; True on success."""

class ErrorLog(Record):
    """The record object of the register's ErrorLog table (Varnock.ErrorLog)."""
    @property
    def DSN(self) -> str:
        """The connection string the object opens for each call."""
    @DSN.setter
    def DSN(self, value: str) -> None: ...
    def GetTableName(self) -> str:
        """The name of the object's table, "ErrorLog"."""
    @property
    def DateCreated(self) -> Value:
        """DateCreated: smalldatetime, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @DateCreated.setter
    def DateCreated(self, value: Value) -> None: ...
    @property
    def UserId(self) -> Value:
        """UserId: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @UserId.setter
    def UserId(self, value: Value) -> None: ...
    @property
    def ErrorNumber(self) -> Value:
        """ErrorNumber: int, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @ErrorNumber.setter
    def ErrorNumber(self, value: Value) -> None: ...
    @property
    def ErrorDescription(self) -> Value:
        """ErrorDescription: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @ErrorDescription.setter
    def ErrorDescription(self, value: Value) -> None: ...
    @property
    def Message(self) -> Value:
        """Message: nvarchar, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @Message.setter
    def Message(self, value: Value) -> None: ...
    def GetLastErrorMessage(self) -> str:
        """The description of the last refused value or failed call; empty when none."""
    def IsDataProperty(self, strPropertyName: str, blnCaseSensitive: bool = False) -> bool:
        """True when strPropertyName names a column of ErrorLog (in any case unless blnCaseSensitive)."""
    def GetDataProperty(self, strPropertyName: Union[str, ByRef]) -> Value:
        """The value of the column that strPropertyName names; Empty when it names none."""
    def SetDataProperty(self, strPropertyName: Union[str, ByRef], varPropertyValue: Union[Value, ByRef]) -> bool:
        """Assigns varPropertyValue to the column that strPropertyName names; True when it was stored."""
    def GetDictionary(self) -> Dictionary:
        """A new Dictionary of every column's value by field name, in column order."""
    def SetDictionary(self, varDict: Union[Value, ByRef]) -> bool:
        """Assigns each value of the Dictionary varDict to the column its key names, in order, stopping at the first refusal; True when all were stored."""
    def GetErrorLog(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the ErrorLog row whose key the key properties hold (with strWhereClause, the first row meeting it); True when a row was found."""
    def GetFirstErrorLog(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the first ErrorLog row meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetLastErrorLog(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the last ErrorLog row meeting strWhereClause (any row when empty) in the order strOrderClause, which is written back reversed; True when there is one."""
    def GetNextErrorLog(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the ErrorLog row after position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetPreviousErrorLog(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the ErrorLog row before position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetEveryErrorLog(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "", lngOffset: Union[Value, ByRef] = 1, lngNumRecords: Union[Value, ByRef] = 0) -> Collection:
        """The ErrorLog rows meeting strWhereClause (any row when empty) in the order strOrderClause, leaving out the first lngOffset when it is 2 or more and keeping at most lngNumRecords when it is above 0, as a Collection of new ErrorLog objects."""
    def CountEveryErrorLog(self, strWhereClause: Union[str, ByRef] = "") -> int:
        """The number of ErrorLog rows meeting strWhereClause (all when empty)."""
    def AddErrorLog(self) -> bool:
        """Inserts the columns that hold a value as a new ErrorLog row; True on success."""
    def UpdateErrorLog(self) -> bool:
        """Writes every column to the ErrorLog row that the key properties name; True on success."""
    def DeleteErrorLog(self, strWhereClause: Union[str, ByRef] = "") -> bool:
        """Deletes the ErrorLog row that the key properties name (False when there is none), or with strWhereClause every row meeting it; True on success."""

class GroupCode(Record):
    """The record object of the register's GroupCode table (Varnock.GroupCode)."""
    @property
    def DSN(self) -> str:
        """The connection string the object opens for each call."""
    @DSN.setter
    def DSN(self, value: str) -> None: ...
    def GetTableName(self) -> str:
        """The name of the object's table, "GroupCode"."""
    @property
    def GroupCode(self) -> Value:
        """GroupCode: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @GroupCode.setter
    def GroupCode(self, value: Value) -> None: ...
    @property
    def Group(self) -> Value:
        """Group: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Group.setter
    def Group(self, value: Value) -> None: ...
    @property
    def Comment(self) -> Value:
        """Comment: ntext, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @Comment.setter
    def Comment(self, value: Value) -> None: ...
    def GetLastErrorMessage(self) -> str:
        """The description of the last refused value or failed call; empty when none."""
    def IsDataProperty(self, strPropertyName: str, blnCaseSensitive: bool = False) -> bool:
        """True when strPropertyName names a column of GroupCode (in any case unless blnCaseSensitive)."""
    def GetDataProperty(self, strPropertyName: Union[str, ByRef]) -> Value:
        """The value of the column that strPropertyName names; Empty when it names none."""
    def SetDataProperty(self, strPropertyName: Union[str, ByRef], varPropertyValue: Union[Value, ByRef]) -> bool:
        """Assigns varPropertyValue to the column that strPropertyName names; True when it was stored."""
    def GetDictionary(self) -> Dictionary:
        """A new Dictionary of every column's value by field name, in column order."""
    def SetDictionary(self, varDict: Union[Value, ByRef]) -> bool:
        """Assigns each value of the Dictionary varDict to the column its key names, in order, stopping at the first refusal; True when all were stored."""
    def GetGroupCode(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the GroupCode row whose key the key properties hold (with strWhereClause, the first row meeting it); True when a row was found."""
    def GetFirstGroupCode(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the first GroupCode row meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetLastGroupCode(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the last GroupCode row meeting strWhereClause (any row when empty) in the order strOrderClause, which is written back reversed; True when there is one."""
    def GetNextGroupCode(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the GroupCode row after position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetPreviousGroupCode(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the GroupCode row before position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetEveryGroupCode(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "", lngOffset: Union[Value, ByRef] = 1, lngNumRecords: Union[Value, ByRef] = 0) -> Collection:
        """The GroupCode rows meeting strWhereClause (any row when empty) in the order strOrderClause, leaving out the first lngOffset when it is 2 or more and keeping at most lngNumRecords when it is above 0, as a Collection of new GroupCode objects."""
    def CountEveryGroupCode(self, strWhereClause: Union[str, ByRef] = "") -> int:
        """The number of GroupCode rows meeting strWhereClause (all when empty)."""
    def AddGroupCode(self) -> bool:
        """Inserts the columns that hold a value as a new GroupCode row; True on success."""
    def UpdateGroupCode(self) -> bool:
        """Writes every column to the GroupCode row that the key properties name; True on success."""
    def DeleteGroupCode(self, strWhereClause: Union[str, ByRef] = "") -> bool:
        """Deletes the GroupCode row that the key properties name (False when there is none), or with strWhereClause every row meeting it; True on success."""
    def GetChildrenInGroupMember(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> Collection:
        """The GroupMember rows that carry this object's key meeting strWhereClause (any row when empty) in the order strOrderClause, as a Collection of new GroupMember objects."""
    def CountChildrenInGroupMember(self) -> int:
        """The number of GroupMember rows that carry this object's key."""
    def GetDerivedChildrenInUser(self) -> Collection:
        """The User rows linked to this object through GroupMember, as a Collection of new User objects."""
    def CountDerivedChildrenInUser(self, strWhereClause: str = "", strOrderClause: str = "") -> int:
        """The number of User rows linked to this object through GroupMember."""

class GroupMember(Record):
    """The record object of the register's GroupMember table (Varnock.GroupMember)."""
    @property
    def DSN(self) -> str:
        """The connection string the object opens for each call."""
    @DSN.setter
    def DSN(self, value: str) -> None: ...
    def GetTableName(self) -> str:
        """The name of the object's table, "GroupMember"."""
    @property
    def GroupCode(self) -> Value:
        """GroupCode: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @GroupCode.setter
    def GroupCode(self, value: Value) -> None: ...
    @property
    def Username(self) -> Value:
        """UserName: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Username.setter
    def Username(self, value: Value) -> None: ...
    def GetLastErrorMessage(self) -> str:
        """The description of the last refused value or failed call; empty when none."""
    def IsDataProperty(self, strPropertyName: str, blnCaseSensitive: bool = False) -> bool:
        """True when strPropertyName names a column of GroupMember (in any case unless blnCaseSensitive)."""
    def GetDataProperty(self, strPropertyName: Union[str, ByRef]) -> Value:
        """The value of the column that strPropertyName names; Empty when it names none."""
    def SetDataProperty(self, strPropertyName: Union[str, ByRef], varPropertyValue: Union[Value, ByRef]) -> bool:
        """Assigns varPropertyValue to the column that strPropertyName names; True when it was stored."""
    def GetDictionary(self) -> Dictionary:
        """A new Dictionary of every column's value by field name, in column order."""
    def SetDictionary(self, varDict: Union[Value, ByRef]) -> bool:
        """Assigns each value of the Dictionary varDict to the column its key names, in order, stopping at the first refusal; True when all were stored."""
    def GetGroupMember(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the GroupMember row whose key the key properties hold (with strWhereClause, the first row meeting it); True when a row was found."""
    def GetFirstGroupMember(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the first GroupMember row meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetLastGroupMember(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the last GroupMember row meeting strWhereClause (any row when empty) in the order strOrderClause, which is written back reversed; True when there is one."""
    def GetNextGroupMember(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the GroupMember row after position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetPreviousGroupMember(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the GroupMember row before position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetEveryGroupMember(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "", lngOffset: Union[Value, ByRef] = 1, lngNumRecords: Union[Value, ByRef] = 0) -> Collection:
        """The GroupMember rows meeting strWhereClause (any row when empty) in the order strOrderClause, leaving out the first lngOffset when it is 2 or more and keeping at most lngNumRecords when it is above 0, as a Collection of new GroupMember objects."""
    def CountEveryGroupMember(self, strWhereClause: Union[str, ByRef] = "") -> int:
        """The number of GroupMember rows meeting strWhereClause (all when empty)."""
    def AddGroupMember(self) -> bool:
        """Inserts the columns that hold a value as a new GroupMember row; True on success."""
    def UpdateGroupMember(self) -> bool:
        """Writes every column to the GroupMember row that the key properties name; True on success."""
    def DeleteGroupMember(self, strWhereClause: Union[str, ByRef] = "") -> bool:
        """Deletes the GroupMember row that the key properties name (False when there is none), or with strWhereClause every row meeting it; True on success."""
    def GetParentInGroupCode(self) -> Optional[GroupCode]:
        """A new GroupCode object holding the GroupCode row that this object's link column names; nothing (None) when there is none."""
    def GetParentInUser(self) -> Optional[User]:
        """A new User object holding the User row that this object's link column names; nothing (None) when there is none."""

class LogFile(Record):
    """The record object of the register's LogFile table (Varnock.LogFile)."""
    @property
    def DSN(self) -> str:
        """The connection string the object opens for each call."""
    @DSN.setter
    def DSN(self, value: str) -> None: ...
    def GetTableName(self) -> str:
        """The name of the object's table, "LogFile"."""
    @property
    def ProgramName(self) -> Value:
        """ProgramName: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @ProgramName.setter
    def ProgramName(self, value: Value) -> None: ...
    @property
    def LogDate(self) -> Value:
        """LogDate: smalldatetime, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @LogDate.setter
    def LogDate(self, value: Value) -> None: ...
    @property
    def Username(self) -> Value:
        """Username: nvarchar, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @Username.setter
    def Username(self, value: Value) -> None: ...
    @property
    def Message(self) -> Value:
        """Message: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Message.setter
    def Message(self, value: Value) -> None: ...
    def GetLastErrorMessage(self) -> str:
        """The description of the last refused value or failed call; empty when none."""
    def IsDataProperty(self, strPropertyName: str, blnCaseSensitive: bool = False) -> bool:
        """True when strPropertyName names a column of LogFile (in any case unless blnCaseSensitive)."""
    def GetDataProperty(self, strPropertyName: Union[str, ByRef]) -> Value:
        """The value of the column that strPropertyName names; Empty when it names none."""
    def SetDataProperty(self, strPropertyName: Union[str, ByRef], varPropertyValue: Union[Value, ByRef]) -> bool:
        """Assigns varPropertyValue to the column that strPropertyName names; True when it was stored."""
    def GetDictionary(self) -> Dictionary:
        """A new Dictionary of every column's value by field name, in column order."""
    def SetDictionary(self, varDict: Union[Value, ByRef]) -> bool:
        """Assigns each value of the Dictionary varDict to the column its key names, in order, stopping at the first refusal; True when all were stored."""
    def GetLogFile(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the LogFile row whose key the key properties hold (with strWhereClause, the first row meeting it); True when a row was found."""
    def GetFirstLogFile(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the first LogFile row meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetLastLogFile(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the last LogFile row meeting strWhereClause (any row when empty) in the order strOrderClause, which is written back reversed; True when there is one."""
    def GetNextLogFile(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the LogFile row after position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetPreviousLogFile(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the LogFile row before position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetEveryLogFile(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "", lngOffset: Union[Value, ByRef] = 1, lngNumRecords: Union[Value, ByRef] = 0) -> Collection:
        """The LogFile rows meeting strWhereClause (any row when empty) in the order strOrderClause, leaving out the first lngOffset when it is 2 or more and keeping at most lngNumRecords when it is above 0, as a Collection of new LogFile objects."""
    def CountEveryLogFile(self, strWhereClause: Union[str, ByRef] = "") -> int:
        """The number of LogFile rows meeting strWhereClause (all when empty)."""
    def AddLogFile(self) -> bool:
        """Inserts the columns that hold a value as a new LogFile row; True on success."""
    def UpdateLogFile(self) -> bool:
        """Writes every column to the LogFile row that the key properties name; True on success."""
    def DeleteLogFile(self, strWhereClause: Union[str, ByRef] = "") -> bool:
        """Deletes the LogFile row that the key properties name (False when there is none), or with strWhereClause every row meeting it; True on success."""

class Parm(Record):
    """The record object of the register's Parm table (Varnock.Parm)."""
    @property
    def DSN(self) -> str:
        """The connection string the object opens for each call."""
    @DSN.setter
    def DSN(self, value: str) -> None: ...
    def GetTableName(self) -> str:
        """The name of the object's table, "Parm"."""
    @property
    def Section(self) -> Value:
        """Section: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Section.setter
    def Section(self, value: Value) -> None: ...
    @property
    def KeyName(self) -> Value:
        """KeyName: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @KeyName.setter
    def KeyName(self, value: Value) -> None: ...
    @property
    def Value(self) -> Value:
        """Value: nvarchar, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @Value.setter
    def Value(self, value: Value) -> None: ...
    @property
    def Comment(self) -> Value:
        """Comment: ntext, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @Comment.setter
    def Comment(self, value: Value) -> None: ...
    @property
    def Locked(self) -> Value:
        """Locked: bit, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Locked.setter
    def Locked(self, value: Value) -> None: ...
    def GetLastErrorMessage(self) -> str:
        """The description of the last refused value or failed call; empty when none."""
    def IsDataProperty(self, strPropertyName: str, blnCaseSensitive: bool = False) -> bool:
        """True when strPropertyName names a column of Parm (in any case unless blnCaseSensitive)."""
    def GetDataProperty(self, strPropertyName: Union[str, ByRef]) -> Value:
        """The value of the column that strPropertyName names; Empty when it names none."""
    def SetDataProperty(self, strPropertyName: Union[str, ByRef], varPropertyValue: Union[Value, ByRef]) -> bool:
        """Assigns varPropertyValue to the column that strPropertyName names; True when it was stored."""
    def GetDictionary(self) -> Dictionary:
        """A new Dictionary of every column's value by field name, in column order."""
    def SetDictionary(self, varDict: Union[Value, ByRef]) -> bool:
        """Assigns each value of the Dictionary varDict to the column its key names, in order, stopping at the first refusal; True when all were stored."""
    def GetParm(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the Parm row whose key the key properties hold (with strWhereClause, the first row meeting it); True when a row was found."""
    def GetFirstParm(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the first Parm row meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetLastParm(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the last Parm row meeting strWhereClause (any row when empty) in the order strOrderClause, which is written back reversed; True when there is one."""
    def GetNextParm(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the Parm row after position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetPreviousParm(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the Parm row before position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetEveryParm(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "", lngOffset: Union[Value, ByRef] = 1, lngNumRecords: Union[Value, ByRef] = 0) -> Collection:
        """The Parm rows meeting strWhereClause (any row when empty) in the order strOrderClause, leaving out the first lngOffset when it is 2 or more and keeping at most lngNumRecords when it is above 0, as a Collection of new Parm objects."""
    def CountEveryParm(self, strWhereClause: Union[str, ByRef] = "") -> int:
        """The number of Parm rows meeting strWhereClause (all when empty)."""
    def AddParm(self) -> bool:
        """Inserts the columns that hold a value as a new Parm row; True on success."""
    def UpdateParm(self) -> bool:
        """Writes every column to the Parm row that the key properties name; True on success."""
    def DeleteParm(self, strWhereClause: Union[str, ByRef] = "") -> bool:
        """Deletes the Parm row that the key properties name (False when there is none), or with strWhereClause every row meeting it; True on success."""

class State(Record):
    """The record object of the register's State table (Varnock.State)."""
    @property
    def DSN(self) -> str:
        """The connection string the object opens for each call."""
    @DSN.setter
    def DSN(self, value: str) -> None: ...
    def GetTableName(self) -> str:
        """The name of the object's table, "State"."""
    @property
    def State(self) -> Value:
        """State: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @State.setter
    def State(self, value: Value) -> None: ...
    def GetLastErrorMessage(self) -> str:
        """The description of the last refused value or failed call; empty when none."""
    def IsDataProperty(self, strPropertyName: str, blnCaseSensitive: bool = False) -> bool:
        """True when strPropertyName names a column of State (in any case unless blnCaseSensitive)."""
    def GetDataProperty(self, strPropertyName: Union[str, ByRef]) -> Value:
        """The value of the column that strPropertyName names; Empty when it names none."""
    def SetDataProperty(self, strPropertyName: Union[str, ByRef], varPropertyValue: Union[Value, ByRef]) -> bool:
        """Assigns varPropertyValue to the column that strPropertyName names; True when it was stored."""
    def GetDictionary(self) -> Dictionary:
        """A new Dictionary of every column's value by field name, in column order."""
    def SetDictionary(self, varDict: Union[Value, ByRef]) -> bool:
        """Assigns each value of the Dictionary varDict to the column its key names, in order, stopping at the first refusal; True when all were stored."""
    def GetState(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the State row whose key the key properties hold (with strWhereClause, the first row meeting it); True when a row was found."""
    def GetFirstState(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the first State row meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetLastState(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the last State row meeting strWhereClause (any row when empty) in the order strOrderClause, which is written back reversed; True when there is one."""
    def GetNextState(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the State row after position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetPreviousState(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the State row before position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetEveryState(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "", lngOffset: Union[Value, ByRef] = 1, lngNumRecords: Union[Value, ByRef] = 0) -> Collection:
        """The State rows meeting strWhereClause (any row when empty) in the order strOrderClause, leaving out the first lngOffset when it is 2 or more and keeping at most lngNumRecords when it is above 0, as a Collection of new State objects."""
    def CountEveryState(self, strWhereClause: Union[str, ByRef] = "") -> int:
        """The number of State rows meeting strWhereClause (all when empty)."""
    def AddState(self) -> bool:
        """Inserts the columns that hold a value as a new State row; True on success."""
    def UpdateState(self) -> bool:
        """Writes every column to the State row that the key properties name; True on success."""
    def DeleteState(self, strWhereClause: Union[str, ByRef] = "") -> bool:
        """Deletes the State row that the key properties name (False when there is none), or with strWhereClause every row meeting it; True on success."""

class User(Record):
    """The record object of the register's User table (Varnock.User)."""
    @property
    def DSN(self) -> str:
        """The connection string the object opens for each call."""
    @DSN.setter
    def DSN(self, value: str) -> None: ...
    def GetTableName(self) -> str:
        """The name of the object's table, "User"."""
    @property
    def Username(self) -> Value:
        """UserName: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Username.setter
    def Username(self, value: Value) -> None: ...
    @property
    def SiteType(self) -> Value:
        """SiteType: nvarchar, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @SiteType.setter
    def SiteType(self, value: Value) -> None: ...
    @property
    def Firstname(self) -> Value:
        """Firstname: nvarchar, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @Firstname.setter
    def Firstname(self, value: Value) -> None: ...
    @property
    def Lastname(self) -> Value:
        """Lastname: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Lastname.setter
    def Lastname(self, value: Value) -> None: ...
    @property
    def Country(self) -> Value:
        """Country: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Country.setter
    def Country(self, value: Value) -> None: ...
    @property
    def State(self) -> Value:
        """State: nvarchar, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @State.setter
    def State(self, value: Value) -> None: ...
    @property
    def Password(self) -> Value:
        """Password: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Password.setter
    def Password(self, value: Value) -> None: ...
    @property
    def Email(self) -> Value:
        """Email: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Email.setter
    def Email(self, value: Value) -> None: ...
    @property
    def Pagetopic(self) -> Value:
        """Pagetopic: nvarchar, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @Pagetopic.setter
    def Pagetopic(self, value: Value) -> None: ...
    @property
    def Bio(self) -> Value:
        """Bio: nvarchar, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @Bio.setter
    def Bio(self, value: Value) -> None: ...
    @property
    def Graphic(self) -> Value:
        """Graphic: nvarchar, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @Graphic.setter
    def Graphic(self, value: Value) -> None: ...
    @property
    def Link(self) -> Value:
        """Link: nvarchar, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @Link.setter
    def Link(self, value: Value) -> None: ...
    @property
    def DateCreated(self) -> Value:
        """DateCreated: smalldatetime, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @DateCreated.setter
    def DateCreated(self, value: Value) -> None: ...
    @property
    def Authorized(self) -> Value:
        """Authorized: bit, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Authorized.setter
    def Authorized(self, value: Value) -> None: ...
    @property
    def AuthorisationDate(self) -> Value:
        """AuthorisationDate: smalldatetime, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @AuthorisationDate.setter
    def AuthorisationDate(self, value: Value) -> None: ...
    @property
    def AuthorisationMessage(self) -> Value:
        """AuthorisationMessage: ntext, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @AuthorisationMessage.setter
    def AuthorisationMessage(self, value: Value) -> None: ...
    @property
    def REMOTE_ADDR(self) -> Value:
        """REMOTE_ADDR: nvarchar, Null allowed. A refused value is not stored; GetLastErrorMessage says why."""
    @REMOTE_ADDR.setter
    def REMOTE_ADDR(self, value: Value) -> None: ...
    def GetLastErrorMessage(self) -> str:
        """The description of the last refused value or failed call; empty when none."""
    def IsDataProperty(self, strPropertyName: str, blnCaseSensitive: bool = False) -> bool:
        """True when strPropertyName names a column of User (in any case unless blnCaseSensitive)."""
    def GetDataProperty(self, strPropertyName: Union[str, ByRef]) -> Value:
        """The value of the column that strPropertyName names; Empty when it names none."""
    def SetDataProperty(self, strPropertyName: Union[str, ByRef], varPropertyValue: Union[Value, ByRef]) -> bool:
        """Assigns varPropertyValue to the column that strPropertyName names; True when it was stored."""
    def GetDictionary(self) -> Dictionary:
        """A new Dictionary of every column's value by field name, in column order."""
    def SetDictionary(self, varDict: Union[Value, ByRef]) -> bool:
        """Assigns each value of the Dictionary varDict to the column its key names, in order, stopping at the first refusal; True when all were stored."""
    def GetUser(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the User row whose key the key properties hold (with strWhereClause, the first row meeting it); True when a row was found."""
    def GetFirstUser(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the first User row meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetLastUser(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the last User row meeting strWhereClause (any row when empty) in the order strOrderClause, which is written back reversed; True when there is one."""
    def GetNextUser(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the User row after position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetPreviousUser(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the User row before position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetEveryUser(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "", lngOffset: Union[Value, ByRef] = 1, lngNumRecords: Union[Value, ByRef] = 0) -> Collection:
        """The User rows meeting strWhereClause (any row when empty) in the order strOrderClause, leaving out the first lngOffset when it is 2 or more and keeping at most lngNumRecords when it is above 0, as a Collection of new User objects."""
    def CountEveryUser(self, strWhereClause: Union[str, ByRef] = "") -> int:
        """The number of User rows meeting strWhereClause (all when empty)."""
    def AddUser(self) -> bool:
        """Inserts the columns that hold a value as a new User row; True on success."""
    def UpdateUser(self) -> bool:
        """Writes every column to the User row that the key properties name; True on success."""
    def DeleteUser(self, strWhereClause: Union[str, ByRef] = "") -> bool:
        """Deletes the User row that the key properties name (False when there is none), or with strWhereClause every row meeting it; True on success."""
    def GetChildrenInGroupMember(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> Collection:
        """The GroupMember rows that carry this object's key meeting strWhereClause (any row when empty) in the order strOrderClause, as a Collection of new GroupMember objects."""
    def CountChildrenInGroupMember(self) -> int:
        """The number of GroupMember rows that carry this object's key."""
    def GetChildrenInZoneAddress(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> Collection:
        """The ZoneAddress rows that carry this object's key meeting strWhereClause (any row when empty) in the order strOrderClause, as a Collection of new ZoneAddress objects."""
    def CountChildrenInZoneAddress(self) -> int:
        """The number of ZoneAddress rows that carry this object's key."""
    def GetDerivedChildrenInGroupCode(self, strWhereClause: str = "", strOrderClause: str = "") -> Collection:
        """The GroupCode rows linked to this object through GroupMember, as a Collection of new GroupCode objects."""
    def CountDerivedChildrenInGroupCode(self, strWhereClause: str = "", strOrderClause: str = "") -> int:
        """The number of GroupCode rows linked to this object through GroupMember."""
    def GetDerivedChildrenInZone(self) -> Collection:
        """The Zone rows linked to this object through ZoneAddress, as a Collection of new Zone objects."""
    def CountDerivedChildrenInZone(self, strWhereClause: str = "", strOrderClause: str = "") -> int:
        """The number of Zone rows linked to this object through ZoneAddress."""

class Zone(Record):
    """The record object of the register's Zone table (Varnock.Zone)."""
    @property
    def DSN(self) -> str:
        """The connection string the object opens for each call."""
    @DSN.setter
    def DSN(self, value: str) -> None: ...
    def GetTableName(self) -> str:
        """The name of the object's table, "Zone"."""
    @property
    def Zone(self) -> Value:
        """Zone: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Zone.setter
    def Zone(self, value: Value) -> None: ...
    @property
    def Test(self) -> Value:
        """Test: bit, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Test.setter
    def Test(self, value: Value) -> None: ...
    def GetLastErrorMessage(self) -> str:
        """The description of the last refused value or failed call; empty when none."""
    def IsDataProperty(self, strPropertyName: str, blnCaseSensitive: bool = False) -> bool:
        """True when strPropertyName names a column of Zone (in any case unless blnCaseSensitive)."""
    def GetDataProperty(self, strPropertyName: Union[str, ByRef]) -> Value:
        """The value of the column that strPropertyName names; Empty when it names none."""
    def SetDataProperty(self, strPropertyName: Union[str, ByRef], varPropertyValue: Union[Value, ByRef]) -> bool:
        """Assigns varPropertyValue to the column that strPropertyName names; True when it was stored."""
    def GetDictionary(self) -> Dictionary:
        """A new Dictionary of every column's value by field name, in column order."""
    def SetDictionary(self, varDict: Union[Value, ByRef]) -> bool:
        """Assigns each value of the Dictionary varDict to the column its key names, in order, stopping at the first refusal; True when all were stored."""
    def GetZone(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the Zone row whose key the key properties hold (with strWhereClause, the first row meeting it); True when a row was found."""
    def GetFirstZone(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the first Zone row meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetLastZone(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the last Zone row meeting strWhereClause (any row when empty) in the order strOrderClause, which is written back reversed; True when there is one."""
    def GetNextZone(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the Zone row after position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetPreviousZone(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the Zone row before position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetEveryZone(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "", lngOffset: Union[Value, ByRef] = 1, lngNumRecords: Union[Value, ByRef] = 0) -> Collection:
        """The Zone rows meeting strWhereClause (any row when empty) in the order strOrderClause, leaving out the first lngOffset when it is 2 or more and keeping at most lngNumRecords when it is above 0, as a Collection of new Zone objects."""
    def CountEveryZone(self, strWhereClause: Union[str, ByRef] = "") -> int:
        """The number of Zone rows meeting strWhereClause (all when empty)."""
    def AddZone(self) -> bool:
        """Inserts the columns that hold a value as a new Zone row; True on success."""
    def UpdateZone(self) -> bool:
        """Writes every column to the Zone row that the key properties name; True on success."""
    def DeleteZone(self, strWhereClause: Union[str, ByRef] = "") -> bool:
        """Deletes the Zone row that the key properties name (False when there is none), or with strWhereClause every row meeting it; True on success."""
    def GetChildrenInZoneAddress(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> Collection:
        """The ZoneAddress rows that carry this object's key meeting strWhereClause (any row when empty) in the order strOrderClause, as a Collection of new ZoneAddress objects."""
    def CountChildrenInZoneAddress(self) -> int:
        """The number of ZoneAddress rows that carry this object's key."""
    def GetChildrenInZonePool(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> Collection:
        """The ZonePool rows that carry this object's key meeting strWhereClause (any row when empty) in the order strOrderClause, as a Collection of new ZonePool objects."""
    def CountChildrenInZonePool(self) -> int:
        """The number of ZonePool rows that carry this object's key."""
    def GetDerivedChildrenInUser(self, strWhereClause: str = "", strOrderClause: str = "") -> Collection:
        """The User rows linked to this object through ZoneAddress, as a Collection of new User objects."""
    def CountDerivedChildrenInUser(self, strWhereClause: str = "", strOrderClause: str = "") -> int:
        """The number of User rows linked to this object through ZoneAddress."""

class ZoneAddress(Record):
    """The record object of the register's ZoneAddress table (Varnock.ZoneAddress)."""
    @property
    def DSN(self) -> str:
        """The connection string the object opens for each call."""
    @DSN.setter
    def DSN(self, value: str) -> None: ...
    def GetTableName(self) -> str:
        """The name of the object's table, "ZoneAddress"."""
    @property
    def Zone(self) -> Value:
        """Zone: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Zone.setter
    def Zone(self, value: Value) -> None: ...
    @property
    def Username(self) -> Value:
        """UserName: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Username.setter
    def Username(self, value: Value) -> None: ...
    @property
    def Address(self) -> Value:
        """Address: int, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Address.setter
    def Address(self, value: Value) -> None: ...
    @property
    def CreationDate(self) -> Value:
        """CreationDate: smalldatetime, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @CreationDate.setter
    def CreationDate(self, value: Value) -> None: ...
    def GetLastErrorMessage(self) -> str:
        """The description of the last refused value or failed call; empty when none."""
    def IsDataProperty(self, strPropertyName: str, blnCaseSensitive: bool = False) -> bool:
        """True when strPropertyName names a column of ZoneAddress (in any case unless blnCaseSensitive)."""
    def GetDataProperty(self, strPropertyName: Union[str, ByRef]) -> Value:
        """The value of the column that strPropertyName names; Empty when it names none."""
    def SetDataProperty(self, strPropertyName: Union[str, ByRef], varPropertyValue: Union[Value, ByRef]) -> bool:
        """Assigns varPropertyValue to the column that strPropertyName names; True when it was stored."""
    def GetDictionary(self) -> Dictionary:
        """A new Dictionary of every column's value by field name, in column order."""
    def SetDictionary(self, varDict: Union[Value, ByRef]) -> bool:
        """Assigns each value of the Dictionary varDict to the column its key names, in order, stopping at the first refusal; True when all were stored."""
    def GetZoneAddress(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the ZoneAddress row whose key the key properties hold (with strWhereClause, the first row meeting it); True when a row was found."""
    def GetFirstZoneAddress(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the first ZoneAddress row meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetLastZoneAddress(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the last ZoneAddress row meeting strWhereClause (any row when empty) in the order strOrderClause, which is written back reversed; True when there is one."""
    def GetNextZoneAddress(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the ZoneAddress row after position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetPreviousZoneAddress(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the ZoneAddress row before position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetEveryZoneAddress(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "", lngOffset: Union[Value, ByRef] = 1, lngNumRecords: Union[Value, ByRef] = 0) -> Collection:
        """The ZoneAddress rows meeting strWhereClause (any row when empty) in the order strOrderClause, leaving out the first lngOffset when it is 2 or more and keeping at most lngNumRecords when it is above 0, as a Collection of new ZoneAddress objects."""
    def CountEveryZoneAddress(self, strWhereClause: Union[str, ByRef] = "") -> int:
        """The number of ZoneAddress rows meeting strWhereClause (all when empty)."""
    def AddZoneAddress(self) -> bool:
        """Inserts the columns that hold a value as a new ZoneAddress row; True on success."""
    def UpdateZoneAddress(self) -> bool:
        """Writes every column to the ZoneAddress row that the key properties name; True on success."""
    def DeleteZoneAddress(self, strWhereClause: Union[str, ByRef] = "") -> bool:
        """Deletes the ZoneAddress row that the key properties name (False when there is none), or with strWhereClause every row meeting it; True on success."""
    def GetParentInUser(self) -> Optional[User]:
        """A new User object holding the User row that this object's link column names; nothing (None) when there is none."""
    def GetParentInZone(self) -> Optional[Zone]:
        """A new Zone object holding the Zone row that this object's link column names; nothing (None) when there is none."""

class ZonePool(Record):
    """The record object of the register's ZonePool table (Varnock.ZonePool)."""
    @property
    def DSN(self) -> str:
        """The connection string the object opens for each call."""
    @DSN.setter
    def DSN(self, value: str) -> None: ...
    def GetTableName(self) -> str:
        """The name of the object's table, "ZonePool"."""
    @property
    def Zone(self) -> Value:
        """Zone: nvarchar, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Zone.setter
    def Zone(self, value: Value) -> None: ...
    @property
    def Address(self) -> Value:
        """Address: int, Null refused. A refused value is not stored; GetLastErrorMessage says why."""
    @Address.setter
    def Address(self, value: Value) -> None: ...
    def GetLastErrorMessage(self) -> str:
        """The description of the last refused value or failed call; empty when none."""
    def IsDataProperty(self, strPropertyName: str, blnCaseSensitive: bool = False) -> bool:
        """True when strPropertyName names a column of ZonePool (in any case unless blnCaseSensitive)."""
    def GetDataProperty(self, strPropertyName: Union[str, ByRef]) -> Value:
        """The value of the column that strPropertyName names; Empty when it names none."""
    def SetDataProperty(self, strPropertyName: Union[str, ByRef], varPropertyValue: Union[Value, ByRef]) -> bool:
        """Assigns varPropertyValue to the column that strPropertyName names; True when it was stored."""
    def GetDictionary(self) -> Dictionary:
        """A new Dictionary of every column's value by field name, in column order."""
    def SetDictionary(self, varDict: Union[Value, ByRef]) -> bool:
        """Assigns each value of the Dictionary varDict to the column its key names, in order, stopping at the first refusal; True when all were stored."""
    def GetZonePool(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the ZonePool row whose key the key properties hold (with strWhereClause, the first row meeting it); True when a row was found."""
    def GetFirstZonePool(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the first ZonePool row meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetLastZonePool(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the last ZonePool row meeting strWhereClause (any row when empty) in the order strOrderClause, which is written back reversed; True when there is one."""
    def GetNextZonePool(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the ZonePool row after position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetPreviousZonePool(self, lngOffset: int, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "") -> bool:
        """Loads the ZonePool row before position lngOffset (from 1) meeting strWhereClause (any row when empty) in the order strOrderClause; True when there is one."""
    def GetEveryZonePool(self, strWhereClause: Union[str, ByRef] = "", strOrderClause: Union[str, ByRef] = "", lngOffset: Union[Value, ByRef] = 1, lngNumRecords: Union[Value, ByRef] = 0) -> Collection:
        """The ZonePool rows meeting strWhereClause (any row when empty) in the order strOrderClause, leaving out the first lngOffset when it is 2 or more and keeping at most lngNumRecords when it is above 0, as a Collection of new ZonePool objects."""
    def CountEveryZonePool(self, strWhereClause: Union[str, ByRef] = "") -> int:
        """The number of ZonePool rows meeting strWhereClause (all when empty)."""
    def AddZonePool(self) -> bool:
        """Inserts the columns that hold a value as a new ZonePool row; True on success."""
    def UpdateZonePool(self) -> bool:
        """Writes every column to the ZonePool row that the key properties name; True on success."""
    def DeleteZonePool(self, strWhereClause: Union[str, ByRef] = "") -> bool:
        """Deletes the ZonePool row that the key properties name (False when there is none), or with strWhereClause every row meeting it; True on success."""
    def GetParentInZone(self) -> Optional[Zone]:
        """A new Zone object holding the Zone row that this object's link column names; nothing (None) when there is none."""

@overload
def CreateObject(name: Literal["Varnock.Country"]) -> Country: ...
@overload
def CreateObject(name: Literal["Varnock.ErrorLog"]) -> ErrorLog: ...
@overload
def CreateObject(name: Literal["Varnock.GroupCode"]) -> GroupCode: ...
@overload
def CreateObject(name: Literal["Varnock.GroupMember"]) -> GroupMember: ...
@overload
def CreateObject(name: Literal["Varnock.LogFile"]) -> LogFile: ...
@overload
def CreateObject(name: Literal["Varnock.Parm"]) -> Parm: ...
@overload
def CreateObject(name: Literal["Varnock.State"]) -> State: ...
@overload
def CreateObject(name: Literal["Varnock.User"]) -> User: ...
@overload
def CreateObject(name: Literal["Varnock.Zone"]) -> Zone: ...
@overload
def CreateObject(name: Literal["Varnock.ZoneAddress"]) -> ZoneAddress: ...
@overload
def CreateObject(name: Literal["Varnock.ZonePool"]) -> ZonePool: ...
@overload
def CreateObject(name: str) -> Record:
    """A new record object, named by ProgID ("Varnock.User") or class identifier, in any case."""
