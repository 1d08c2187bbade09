// SPDX-License-Identifier: MIT
#include "method_docs.h"

#include "values.h"

namespace varnock::python {

namespace {

std::string defaultText(const ArgumentDescription& a) {
  return py::repr(fromVariant(a.defaultValue)).cast<std::string>();
}

}  // namespace

std::string methodDoc(const MemberDescription& member) {
  std::string call = member.name + "(";
  std::string byReference;
  for (std::size_t i = 0; i < member.arguments.size(); ++i) {
    const ArgumentDescription& a = member.arguments[i];
    if (i > 0) call += ", ";
    call += a.name;
    if (a.optional) call += "=" + defaultText(a);
    if (a.byReference) byReference += (byReference.empty() ? "" : ", ") + a.name;
  }
  call += ")";
  if (!member.resultType.empty()) call += " -> " + member.resultType;
  std::string doc = call + "\n\n" + member.summary;
  if (!byReference.empty()) {
    doc += "\n\nPassed by reference: " + byReference +
           ". Give a varnock.ByRef to see what the call leaves in one.";
  }
  return doc;
}

py::object methodSignature(const MemberDescription& member) {
  const py::module_ inspect = py::module_::import("inspect");
  const py::object parameterType = inspect.attr("Parameter");
  const py::object kind = parameterType.attr("POSITIONAL_OR_KEYWORD");
  py::list parameters;
  for (const ArgumentDescription& a : member.arguments) {
    py::dict options;
    if (a.optional) options["default"] = fromVariant(a.defaultValue);
    parameters.append(parameterType(a.name, kind, **options));
  }
  return inspect.attr("Signature")(parameters);
}

}  // namespace varnock::python
