#include "tree/enumeration.h"

#include "output/layout.h"
#include "types/elements.h"
#include "types/properties.h"

namespace mdktoidl {

Enumeration::Enumeration(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) {
  CreateNodeRef();
  literals = Elements(element, properties::literal);
}

const std::vector<std::string>& Enumeration::Literals() const {
  if (names.size() != literals.size()) {
    for (mdk::IMdeEntity* literal : literals)
      names.push_back(literal->GetValue(properties::name, 0));
    nameSet.insert(names.begin(), names.end());
  }
  return names;
}

bool Enumeration::hasLiteralNamed(const std::string& name) const {
  Literals();
  return nameSet.contains(name);
}

std::string Enumeration::LiteralFor(const Node& user, const std::string& name) const {
  const std::string scopeName = ScopeAsString();
  return scopeName.empty() || user.InCurrentScope(this) ? name : scopeName + "::" + name;
}

bool Enumeration::hasLiteral(mdk::IMdeEntity* element) const {
  if (literalSet.empty()) literalSet.insert(literals.begin(), literals.end());
  return literalSet.contains(element);
}

void Enumeration::Unparse(std::ofstream& out) {
  UnparseHeading(out);
  out << "enum " << Name() << " {";
  indent(out);
  Line lines(out);
  newline(lines);
  std::string_view separator;
  for (const std::string& name : Literals()) {
    Write(lines, {separator});
    if (!separator.empty()) newline(lines);
    Write(lines, {name});
    separator = ", ";
  }
  redent(out);
  newline(lines);
  Write(lines, {"};"});
}

}  // namespace mdktoidl
