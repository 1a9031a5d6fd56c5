#include "xmi/tables/libraries.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace xmi {
namespace {

/// A type of a library and the id of ours that serves for it. Types that IDL has nothing for are
/// left out: what is typed by them has no type.
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

/// A library by the name of its file: tools keep it at different addresses.
struct Library {
  std::string_view file;
  std::span<const Row> rows;
};

constexpr Library kLibraries[] = {{"UMLPrimitiveTypes.library.uml", kUml},
                                  {"UMLPrimitiveTypes.library.uml2", kUml},
                                  {"PrimitiveTypes.xmi", kUml},
                                  {"PrimitiveTypes.uml", kUml},
                                  {"UML.xmi", kUml},
                                  {"uml.xmi", kUml},
                                  {"uml.xml", kUml},
                                  {"UML.xml", kUml},
                                  {"UML.metamodel.uml", kUml},
                                  {"EcorePrimitiveTypes.library.uml", kEcore},
                                  {"Ecore", kEcore},
                                  {"JavaPrimitiveTypes.library.uml", kJava},
                                  {"XMLPrimitiveTypes.library.uml", kXml}};

std::string_view Find(std::span<const Row> rows, std::string_view name) {
  for (const Row& row : rows) {
    if (row.theirs == name) return row.ours;
  }
  return {};
}

}  // namespace

LibraryReference FindInLibrary(std::string_view fileName, std::string_view fragment) {
  if (fragment.starts_with("//")) fragment.remove_prefix(2);  // the name in a package of Ecore
  for (const Library& library : kLibraries) {
    if (library.file == fileName) return {true, Find(library.rows, fragment)};
  }
  return {};
}

std::string_view PrimitiveName(std::string_view name) {
  const std::string_view ours = Find(kUml, name);
  return ours.empty() ? name : ours;
}

bool IsTemplateName(std::string_view name) {
  constexpr std::string_view kTemplates[] = {"sequence", "string", "wstring", "fixed", "array"};
  return std::find(std::begin(kTemplates), std::end(kTemplates), name) != std::end(kTemplates);
}

}  // namespace xmi
