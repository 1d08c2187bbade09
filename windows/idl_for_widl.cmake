# SPDX-License-Identifier: MIT
# The object host's IDL as widl compiles it: the automation base interfaces
# imported, and no string default on by-reference strings (which widl cannot
# record in a type library).
file(READ "${INPUT}" idl)
string(REPLACE ", defaultvalue(\"\")] BSTR*" "] BSTR*" idl "${idl}")
file(WRITE "${OUTPUT}" "import \"oaidl.idl\";\n${idl}")
