#include "xmi/tables/libraries.h"

namespace xmi {
namespace {

struct Row {
  std::string_view theirs;
  std::string_view ours;
};

constexpr Row kUml[] = {{"Integer", "Integer"},
                        {"Boolean", "Boolean"},
                        {"Real", "Real"},
                        {"String", "Charstring"},
                        {"UnlimitedNatural", "Natural"}};

constexpr Row kEcore[] = {{"EInt", "long"},        {"EShort", "short"}, {"ELong", "long_long"},
                          {"EByte", "octet"},      {"EFloat", "float"}, {"EDouble", "double"},
                          {"EBoolean", "boolean"}, {"EChar", "char"},   {"EString", "string"}};

constexpr Row kJava[] = {{"int", "long"},        {"short", "short"}, {"long", "long_long"},
                         {"byte", "octet"},      {"float", "float"}, {"double", "double"},
                         {"boolean", "boolean"}, {"char", "char"},   {"String", "string"}};

constexpr Row kXml[] = {{"String", "string"},
                        {"Int", "long"},
                        {"Short", "short"},
                        {"Long", "long_long"},
                        {"Byte", "octet"},
                        {"Boolean", "boolean"},
                        {"Float", "float"},
                        {"Double", "double"},
                        {"UnsignedByte", "octet"},
                        {"UnsignedShort", "unsigned_short"},
                        {"UnsignedInt", "unsigned_long"},
                        {"UnsignedLong", "unsigned_long_long"}};

template <std::size_t size>
LibraryReference Find(const Row (&rows)[size], std::string_view fragment) {
  for (const Row& row : rows) {
    if (row.theirs == fragment) return {true, row.ours};
  }
  return {true, {}};
}

bool IsUmlFile(std::string_view name) {
  for (const std::string_view known :
       {"UMLPrimitiveTypes.library.uml", "UMLPrimitiveTypes.library.uml2", "PrimitiveTypes.xmi",
        "PrimitiveTypes.uml", "UML.xmi", "uml.xmi", "uml.xml", "UML.xml", "UML.metamodel.uml"}) {
    if (name == known) return true;
  }
  return false;
}

}  // namespace

LibraryReference FindInLibrary(std::string_view fileName, std::string_view fragment) {
  if (fragment.substr(0, 2) == "//") fragment.remove_prefix(2);
  if (IsUmlFile(fileName)) return Find(kUml, fragment);
  if (fileName == "EcorePrimitiveTypes.library.uml" || fileName == "Ecore") {
    return Find(kEcore, fragment);
  }
  if (fileName == "JavaPrimitiveTypes.library.uml") return Find(kJava, fragment);
  if (fileName == "XMLPrimitiveTypes.library.uml") return Find(kXml, fragment);
  return {};
}

std::string_view PrimitiveName(std::string_view name) {
  for (const Row& row : kUml) {
    if (row.theirs == name) return row.ours;
  }
  return name;
}

}  // namespace xmi
