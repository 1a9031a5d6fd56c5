#include "tests/support/xmi_files.h"

#include <gtest/gtest.h>

#include <list>

namespace support {
namespace {

using mdk::IMdeEntity;

std::list<IMdeEntity*> ListOf(IMdeEntity& element, const std::string& property) {
  std::list<IMdeEntity*> list;
  element.GetEntities(property, list);
  return list;
}

// A type expression, bound or value that may be an "Ident".
std::string OperandText(IMdeEntity* operand) {
  if (operand == nullptr) return "nothing";
  if (operand->GetMetaclass() == "Ident") {
    IMdeEntity* const definition = operand->GetEntity("Definition", 0);
    if (definition == nullptr) return "?" + operand->GetValue("Name", 0);
    const std::string meant = definition->GetValue("Name", 0);
    const std::string name = operand->GetValue("Name", 0);
    const bool isConstant =
        definition->IsKindOf("Attribute") || definition->IsKindOf("EnumerationLiteral");
    return isConstant ? name + "=" + meant : name;
  }
  if (operand->GetMetaclass() != "TemplateInstantiation") {
    return operand->GetValue("ValueString", 0);
  }
  std::string text;
  for (IMdeEntity* actual : ListOf(*operand, "ActualTemplateParameter")) {
    text += (text.empty() ? "" : ", ") + OperandText(actual);
  }
  return operand->GetEntity("InstanceOf", 0)->GetValue("Name", 0) + "<" + text + ">";
}

std::string NameIn(IMdeEntity& element) {
  if (element.IsKindOf("Comment")) return element.GetValue("Text", 0);
  IMdeEntity* named = &element;
  if (element.IsKindOf("Dependency")) named = element.GetEntity("Supplier", 0);
  if (element.GetEntity("Parent", 0) != nullptr) named = element.GetEntity("Parent", 0);
  const std::string name = named == nullptr ? "nothing" : named->GetValue("Name", 0);
  return name.empty() ? "-" : name;
}

void AppendTree(IMdeEntity& element, const std::string& indent, std::string& text) {
  text += indent + element.GetMetaclass() + " " + element.GetValue("Name", 0);
  for (const char* property : {"Visibility", "Changeability", "IsAbstract", "Direction"}) {
    text += " " + element.GetValue(property, 0);
  }
  text += " type(" + TypeText(element) + ") range(" + MultiplicityText(element) + ") value(" +
          DefaultText(element) + ")";
  for (const char* property :
       {"Generalization", "ClientDependency", "RaisedException", "Literal", "Comment"}) {
    text += " (" + Names(element, property) + ")";
  }
  text += element.HasStereotype("CORBA", 0) ? " marked\n" : "\n";
  for (const char* property : {"Parameter", "OwnedMember"}) {
    for (IMdeEntity* part : ListOf(element, property)) AppendTree(*part, indent + "  ", text);
  }
}

}  // namespace

std::string ModelFile(std::string_view members, std::string_view applications) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xmi:XMI " + std::string(kNamespaces) +
         "><uml:Model xmi:id=\"root\" name=\"M\">" + std::string(members) + "</uml:Model>" +
         std::string(applications) + "</xmi:XMI>\n";
}

XmiFiles& XmiFiles::Write(const std::string& name, std::string_view text) {
  WriteFile(Path(name), text);
  return *this;
}

XmiFiles& XmiFiles::Read(const std::string& name) {
  reader_.Read(Path(name));
  return *this;
}

XmiFiles& XmiFiles::ReadModel(std::string_view members, std::string_view applications) {
  return Write("model.uml", ModelFile(members, applications)).Read();
}

std::string XmiFiles::ErrorOf(const std::string& name) {
  try {
    Read(name);
  } catch (const xmi::ReadError& error) {
    return WithoutDirectory(error.what());
  }
  return "";
}

std::string XmiFiles::WithoutDirectory(std::string text) const {
  return Replaced(std::move(text), Path(""), "");
}

model::Element& XmiFiles::operator[](std::string_view id) {
  static model::Model nothing;
  static model::Element& nobody = nothing.Create(model::Symbol("Nobody"));
  model::Element* const found = reader_.FindById(id);
  if (found == nullptr) ADD_FAILURE() << "no element has the id " << id;
  return found == nullptr ? nobody : *found;
}

std::vector<std::string> XmiFiles::Diagnostics() const {
  std::vector<std::string> lines;
  for (const xmi::Diagnostic& diagnostic : reader_.Diagnostics()) {
    const std::string where =
        diagnostic.location.file + ":" + std::to_string(diagnostic.location.line) + ": ";
    lines.push_back(WithoutDirectory(where + diagnostic.text));
  }
  return lines;
}

std::string Names(IMdeEntity& element, const std::string& property) {
  std::string names;
  for (IMdeEntity* entry : ListOf(element, property)) {
    names += (names.empty() ? "" : " ") + NameIn(*entry);
  }
  return names;
}

std::string TypeText(IMdeEntity& element) {
  IMdeEntity* const type = element.GetTarget("Type", 0);
  if (type == nullptr) return "";
  IMdeEntity* const classifier = element.GetEntity("Type", 0);
  const bool isTemplate = type->GetMetaclass() == "TemplateInstantiation";
  EXPECT_EQ(type->GetEntity("Definition", 0), classifier);
  EXPECT_EQ(isTemplate, classifier == nullptr);
  return OperandText(type);
}

std::string MultiplicityText(IMdeEntity& element) {
  std::string text;
  for (IMdeEntity* range : ListOf(element, "Multiplicity")) {
    text += OperandText(range->GetEntity("LowerBound", 0)) + ".." +
            OperandText(range->GetEntity("UpperBound", 0));
  }
  return text;
}

std::string DefaultText(IMdeEntity& element) {
  IMdeEntity* const value = element.GetEntity("DefaultValue", 0);
  return value == nullptr ? "" : value->GetMetaclass() + " " + OperandText(value);
}

std::string TagText(IMdeEntity& element, const std::string& expression) {
  IMdeEntity* const value = element.EvalExpression(expression, 0);
  if (value == nullptr) return "-";
  if (!value->IsKindOf("ListExpr")) {
    EXPECT_EQ(value->GetValue("Name", 0), value->GetValue("ValueString", 0));
    return value->GetValue("Name", 0);
  }
  std::string items;
  for (IMdeEntity* item : ListOf(*value, "Expression")) {
    items += (items.empty() ? "" : "|") + item->GetValue("Value", 0);
  }
  return "[" + items + "]";
}

std::string Tree(IMdeEntity& element) {
  std::string text;
  AppendTree(element, "", text);
  return text;
}

}  // namespace support
