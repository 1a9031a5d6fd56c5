#include "types/predefined_type.h"

#include <string_view>
#include <unordered_map>

#include "agent/vocabulary.h"
#include "options/options.h"
#include "types/elements.h"

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

bool isDeclaration(mdk::IMdeEntity* element) {
  if (element->IsKindOf(metaclasses::ident)) element = element->GetEntity(properties::definition, 0);
  return element != nullptr && hasStereotype(element, stereotypes::corba);
}

}  // namespace

std::string_view PredefinedType(mdk::IMdeEntity* element, const std::string& name) {
  const auto row = predefinedTypes.find(name);
  if (row == predefinedTypes.end()) return {};
  return !options.isVerbatim() && isDeclaration(element) ? std::string_view() : row->second;
}

std::string PrimitiveToString(mdk::IMdeEntity* type) {
  if (type == nullptr) return "";
  return std::string(PredefinedType(type, type->GetValue(properties::name, 0)));
}

}  // namespace mdktoidl
