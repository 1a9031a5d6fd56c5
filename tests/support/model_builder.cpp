#include "tests/support/model_builder.h"

namespace support {

using model::Symbol;

namespace {

struct TagDefault {
  std::string_view stereotype, tag, value;
};

constexpr TagDefault tagDefaults[] = {{"CORBAInterface", "isLocal", "false"},
                                      {"CORBAUnion", "isSimple", "false"},
                                      {"CORBAValue", "isCustom", "false"},
                                      {"CORBAAttribute", "isConstant", "false"},
                                      {"CORBAReceptacle", "isMultiple", "false"},
                                      {"CORBAEventSource", "sourceKind", "Publisher"},
                                      {"CORBAComponentImpl", "category", "session"},
                                      {"case", "isDefault", "false"},
                                      {"IDLGenerator", "targetDir", ""},
                                      {"IDLGenerator", "fileName", ""},
                                      {"IDLGenerator", "fileSuffix", ""},
                                      {"IDLGenerator", "isAsyncDefault", "false"},
                                      {"IDLGenerator", "fileMapping", "ONE_FILE"}};

}  // namespace

ModelBuilder::ModelBuilder() {
  model_.Specialise(model_.Stereotype("CORBAEvent"), model_.Stereotype("CORBAValue"));
  for (const auto& [stereotype, tag, value] : tagDefaults) {
    model_.SetTagDefault(model_.Stereotype(stereotype), Symbol(tag), value);
  }
}

Element& ModelBuilder::Make(Element& owner, Text metaclass, Text name, Text stereotype, Text list) {
  Element& made = model_.Create(Symbol(metaclass));
  Set(Set(made, "Name", name), "Visibility", "VkNoVisibility");
  owner.AddEntity(Symbol(list), made);
  return stereotype.empty() ? made : Mark(made, stereotype);
}

Element& ModelBuilder::Set(Element& element, Text property, Text text) {
  element.SetText(Symbol(property), text);
  return element;
}

Element& ModelBuilder::Mark(Element& element, Text stereotype, Tags tags) {
  Element& definition = model_.Stereotype(stereotype);
  if (stereotype.starts_with("CORBA")) model_.Specialise(definition, model_.Stereotype("CORBA"));
  Element& application = model_.Apply(element, definition);
  for (const auto& [tag, value] : tags) model_.SetTag(application, Symbol(tag), value);
  return element;
}

Element& ModelBuilder::Keyword(Element& element, Text keyword) {
  model_.AddKeyword(element, keyword);
  return element;
}

Element& ModelBuilder::Comment(Element& element, Text text) {
  Set(Make(element, "Comment", "", "", "Comment"), "Text", text);
  return element;
}

Element& ModelBuilder::Package(Text name) {
  Element& package = Set(model_.Create(Symbol("Package")), "Name", name);
  model_.AddRoot(package);
  return package;
}

Element& ModelBuilder::Enum(Element& owner, Text name, std::initializer_list<Text> literals) {
  Element& made = DataType(owner, name, "CORBAEnum");
  for (const auto literal : literals) Make(made, "EnumerationLiteral", literal, "", "Literal");
  return made;
}

Element& ModelBuilder::Attribute(Element& owner, Text name, const Operand& type) {
  Element& attribute = Make(owner, "Attribute", name);
  SetType(attribute, type);
  return Set(attribute, "Changeability", "CkUnfrozen");
}

Element& ModelBuilder::Constant(Element& owner, Text name, const Operand& type,
                                const Operand& value) {
  Element& constant = Attribute(owner, name, type);
  constant.SetEntity(Symbol("DefaultValue"), &Bound(value));
  return Mark(constant, "CORBAAttribute", {{"isConstant", "true"}});
}

Element& ModelBuilder::Port(Element& owner, Text name, Text stereotype,
                            std::initializer_list<Element*> realized,
                            std::initializer_list<Element*> required) {
  Element& port = Make(owner, "Port", name, stereotype);
  port.SetEntities(Symbol("Realized"), realized);
  port.SetEntities(Symbol("Required"), required);
  return port;
}

Element& ModelBuilder::Parameter(Element& operation, Text name, const Operand& type,
                                 Text direction) {
  Element& parameter = Make(operation, "Parameter", name, "", "Parameter");
  SetType(parameter, type);
  return Set(parameter, "Direction", direction);
}

Element& ModelBuilder::Raises(Element& operation, Element& exception) {
  operation.AddEntity(Symbol("RaisedException"), exception);
  return operation;
}

void ModelBuilder::SetType(Element& element, const Operand& type) {
  if (type.element == nullptr && type.text.empty()) return;
  Element& designated = type.element != nullptr ? *type.element : Predefined(type.text);
  const bool isTemplate = designated.Metaclass() == Symbol("TemplateInstantiation");
  Element& ident = isTemplate ? designated : Actual(designated);
  element.SetEntity(Symbol("Target:Type"), &ident);
  element.SetEntity(Symbol("Type"), isTemplate ? nullptr : &designated);
}

Element& ModelBuilder::Template(Text name, std::initializer_list<Operand> parameters) {
  Element& made = model_.Create(Symbol("TemplateInstantiation"));
  made.SetEntity(Symbol("InstanceOf"), &Predefined(std::string(name)));
  for (const Operand& parameter : parameters) {
    made.AddEntity(Symbol("ActualTemplateParameter"), Actual(parameter));
  }
  return made;
}

Element& ModelBuilder::Range(Element& element, const Operand& lower, const Operand& upper) {
  Element& range = model_.Create(Symbol("OpenRange"));
  range.SetEntity(Symbol("LowerBound"), &Bound(lower));
  range.SetEntity(Symbol("UpperBound"), &Bound(upper));
  element.AddEntity(Symbol("Multiplicity"), range);
  return element;
}

Element& ModelBuilder::Default(Element& element, Text metaclass, Text text) {
  element.SetEntity(Symbol("DefaultValue"), &Literal(metaclass, text));
  return element;
}

Element& ModelBuilder::Default(Element& element, Element& constant) {
  element.SetEntity(Symbol("DefaultValue"), &Actual(constant));
  return element;
}

Element& ModelBuilder::Generalize(Element& special, Element& general) {
  Element& made = Make(special, "Generalization", "", "", "Generalization");
  made.SetEntity(Symbol("Parent"), &general);
  return made;
}

Element& ModelBuilder::Depend(Element& client, Element& supplier, Text keyword) {
  Element& made = Make(client, "Dependency", "", "", "ClientDependency");
  made.SetEntity(Symbol("Client"), &client);
  made.SetEntity(Symbol("Supplier"), &supplier);
  return keyword.empty() ? made : Keyword(made, keyword);
}

Element& ModelBuilder::Generator(Text name, Tags tags) {
  return Mark(Set(model_.Create(Symbol("Artifact")), "Name", name), "IDLGenerator", tags);
}

Element& ModelBuilder::Literal(Text metaclass, Text text) {
  return Set(model_.Create(Symbol(metaclass)), "ValueString", text);
}

Element& ModelBuilder::Predefined(const std::string& name) {
  Element*& known = predefined_[name];
  if (known == nullptr) known = &Set(model_.Create(Symbol("DataType")), "Name", name);
  return *known;
}

/// A bound or a value: texts are integers.
Element& ModelBuilder::Bound(const Operand& operand) {
  return operand.element != nullptr ? Actual(operand) : Literal("IntegerValue", operand.text);
}

/// A template parameter: texts are predefined types.
Element& ModelBuilder::Actual(const Operand& operand) {
  if (operand.isNumber) return Literal("IntegerValue", operand.text);
  Element& designated = operand.element != nullptr ? *operand.element : Predefined(operand.text);
  if (designated.Metaclass() == Symbol("TemplateInstantiation")) return designated;
  Element& ident = Set(model_.Create(Symbol("Ident")), "Name", designated.Text(Symbol("Name")));
  ident.SetEntity(Symbol("Definition"), &designated);
  return ident;
}

}  // namespace support
