#include "tree/value.h"

#include <unordered_set>

#include "agent/diagnostics.h"
#include "output/layout.h"
#include "output/separated.h"
#include "tree/attribute.h"
#include "tree/constant.h"
#include "tree/interface_members.h"
#include "tree/state.h"
#include "types/elements.h"
#include "types/properties.h"

namespace mdktoidl {

namespace {

bool isInterfaceAttribute(mdk::IMdeEntity* member) {
  return isPublic(member) && member->HasStereotype("CORBAAttribute", 0);
}

bool isInterfaceConstant(mdk::IMdeEntity* member) {
  return isInterfaceAttribute(member) && isConstant(member);
}

bool isAny(mdk::IMdeEntity*) { return true; }

const Classification& ValueMembers() {
  static const Classification table =
      WithNestedDeclarations({"Attribute",
                              {{isInterfaceConstant, Make<Constant>},
                               {isInterfaceAttribute, Make<Attribute>},
                               {isAny, Make<State>}}});
  return table;
}

}  // namespace

Value::Value(mdk::IMdeEntity* element, Container* parent) : OrderedScope(element, parent) {
  if (element->HasStereotype("CORBAEvent", 0)) kindWord = "event";
  CreateNodeRef();
  AdoptMembers(ValueMembers());
}

void Value::EvaluateKind() {
  static const std::string expression = "CORBAValue (. isCustom .)";
  // Interfaces spell the property with a capital; both spellings are deliberate.
  abstract = Entity()->GetValue("isAbstract", 0) == "true";
  custom = TaggedLiteral(Entity(), expression, "false") == "true";
  if (abstract && custom) {
    Report(Message::valueIsAbstractAndCustom, {kindWord, ScopedName("::")});
  }
}

void Value::CollectGeneralizations(NodeList& result) {
  std::unordered_set<const Node*> present;
  for (mdk::IMdeEntity* generalization : Elements(Entity(), properties::generalization)) {
    mdk::IMdeEntity* parent = generalization->GetEntity(properties::parent, 0);
    if (parent == nullptr) continue;
    if (!parent->HasStereotype("CORBAValue", 0) && !parent->HasStereotype("CORBAEvent", 0))
      continue;
    Node* node = GetNodeRef(parent);
    if (node == nullptr) {
      Report(Message::valueSupertypeNotExported, {kindWord, ScopedName("::")});
    } else if (generalization->HasStereotype("CORBATruncatable", 0)) {
      if (custom) Report(Message::valueIsCustomAndTruncated, {kindWord, ScopedName("::")});
      truncatableBase = node;
    } else if (present.insert(node).second) {
      result.push_back(node);
    }
  }
}

void Value::CollectSupports(NodeList& result) const {
  std::unordered_set<const Node*> present;
  for (mdk::IMdeEntity* generalization : Elements(Entity(), properties::generalization)) {
    mdk::IMdeEntity* parent = generalization->GetEntity(properties::parent, 0);
    if (parent == nullptr) continue;
    if (!parent->HasStereotype("CORBAInterface", 0)) {
      if (generalization->HasStereotype("CORBASupports", 0)) {
        Report(Message::valueSupportsOther, {kindWord, ScopedName("::")});
      }
      continue;
    }
    Node* node = GetNodeRef(parent);
    if (node == nullptr) {
      Report(Message::valueSupertypeNotExported, {kindWord, ScopedName("::")});
    } else if (present.insert(node).second) {
      result.push_back(node);
    }
  }
}

void Value::EvaluateTypes(NodeList& deps) {
  EvaluateKind();
  EvaluateChildren(deps);
  CollectSupports(supports);
  for (const Node* node : supports) supportsNames.push_back(NameHere(*node));
  CollectGeneralizations(generalizations);
  if (truncatableBase != nullptr) {
    parentNames.push_back("truncatable " + NameHere(*truncatableBase));
    deps.push_back(truncatableBase);
  }
  for (const Node* node : generalizations) parentNames.push_back(NameHere(*node));
  JoinList(supports, deps);
  JoinList(generalizations, deps);
  Sort();
}

void Value::UnparseBases(std::ofstream& out) const {
  if (!parentNames.empty()) {
    out << " : ";
    WriteSeparated(parentNames, out);
  }
  if (!supportsNames.empty()) {
    out << " supports ";
    WriteSeparated(supportsNames, out);
  }
}

void Value::Unparse(std::ofstream& out) {
  newline(out);
  UnparseComment(Entity(), out);
  newline(out);
  if (abstract) out << "abstract ";
  if (custom) out << "custom ";
  out << kindWord << "type " << Name();
  UnparseBases(out);
  UnparseBody(out);
}

// An event type's forward declaration says "valuetype", too; that is deliberate.
void Value::UnparseForward(std::ofstream& out) const {
  newline(out);
  if (abstract) out << "abstract ";
  out << "valuetype " << Name() << ';';
}

}  // namespace mdktoidl
