#include "types/predefined_type.h"

#include <string_view>
#include <unordered_map>

namespace mdktoidl {

namespace {

/// Model name to IDL text. Behind IDL's own types stand those of the modelling language.
const std::unordered_map<std::string_view, std::string_view> predefinedTypes = {
    {"long", "long"},
    {"short", "short"},
    {"boolean", "boolean"},
    {"char", "char"},
    {"octet", "octet"},
    {"unsigned long", "unsigned long"},
    {"unsigned short", "unsigned short"},
    {"double", "double"},
    {"float", "float"},
    {"wchar", "wchar"},
    {"long long", "long long"},
    {"unsigned long long", "unsigned long long"},
    {"long double", "long double"},
    {"any", "any"},
    {"native", "native"},
    {"string", "string"},
    {"wstring", "wstring"},
    {"Object", "Object"},
    {"TypeCode", "CORBA::TypeCode"},
    {"Natural", "unsigned long"},
    {"Integer", "long"},
    {"Real", "double"},
    {"Character", "char"},
    {"Boolean", "boolean"},
    {"Charstring", "string"},
};

}  // namespace

std::string PrimitiveToString(mdk::IMdeEntity* type) {
  if (type == nullptr) return "";
  const auto row = predefinedTypes.find(type->GetValue("Name", 0));
  return row == predefinedTypes.end() ? "" : std::string(row->second);
}

}  // namespace mdktoidl
