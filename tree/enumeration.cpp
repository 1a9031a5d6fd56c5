#include "tree/enumeration.h"

#include "output/layout.h"
#include "types/elements.h"

namespace mdktoidl {

Enumeration::Enumeration(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) {
  CreateNodeRef();
  literals = Elements(element, "Literal");
}

void Enumeration::Literals(std::list<std::string>& names) const {
  for (mdk::IMdeEntity* literal : literals) names.push_back(literal->GetValue("Name", 0));
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
  newline(out);
  std::list<std::string> names;
  Literals(names);
  const char* separator = "";
  for (const std::string& name : names) {
    out << separator;
    if (*separator != '\0') newline(out);
    out << name;
    separator = ", ";
  }
  redent(out);
  newline(out);
  out << "};";
}

}  // namespace mdktoidl
