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
  model_.Specialise(model_.Stereotype(stereotypes::corbaEvent),
                    model_.Stereotype(stereotypes::corbaValue));
  for (const auto& [stereotype, tag, value] : tagDefaults) {
    model_.SetTagDefault(model_.Stereotype(stereotype), Symbol(tag), value);
  }
}

Element& ModelBuilder::Make(Element& owner, Name metaclass, Text name, Name stereotype, Name list) {
  Element& made = model_.Create(metaclass);
  Set(Set(made, properties::name, name), properties::visibility, values::noVisibility);
  owner.AddEntity(list, made);
  return stereotype == Symbol() ? made : Mark(made, stereotype);
}

Element& ModelBuilder::Set(Element& element, Name property, Text text) {
  element.SetText(property, text);
  return element;
}

Element& ModelBuilder::Mark(Element& element, Name stereotype, Tags tags) {
  Element& definition = model_.Stereotype(stereotype);
  const bool isCorba = stereotype.Text().starts_with(stereotypes::corba.Text());
  if (isCorba) model_.Specialise(definition, model_.Stereotype(stereotypes::corba));
  Element& application = model_.Apply(element, definition);
  for (const auto& [tag, value] : tags) model_.SetTag(application, Symbol(tag), value);
  return element;
}

Element& ModelBuilder::Keyword(Element& element, Text keyword) {
  model_.AddKeyword(element, keyword);
  return element;
}

Element& ModelBuilder::Comment(Element& element, Text text) {
  Set(Make(element, metaclasses::comment, "", {}, properties::comment), properties::text, text);
  return element;
}

Element& ModelBuilder::Package(Text name) {
  Element& package = Set(model_.Create(metaclasses::package), properties::name, name);
  model_.AddRoot(package);
  return package;
}

Element& ModelBuilder::Enum(Element& owner, Text name, std::initializer_list<Text> literals) {
  Element& made = DataType(owner, name, stereotypes::corbaEnum);
  for (const auto literal : literals) {
    Make(made, metaclasses::enumerationLiteral, literal, {}, properties::literal);
  }
  return made;
}

Element& ModelBuilder::Attribute(Element& owner, Text name, const Operand& type) {
  Element& attribute = Make(owner, metaclasses::attribute, name);
  SetType(attribute, type);
  return Set(attribute, properties::changeability, values::unfrozen);
}

Element& ModelBuilder::Constant(Element& owner, Text name, const Operand& type,
                                const Operand& value) {
  Element& constant = Attribute(owner, name, type);
  constant.SetEntity(properties::defaultValue, &Bound(value));
  return Mark(constant, stereotypes::corbaAttribute, {{model::tags::isConstant.Text(), "true"}});
}

Element& ModelBuilder::Port(Element& owner, Text name, Name stereotype,
                            std::initializer_list<Element*> realized,
                            std::initializer_list<Element*> required) {
  Element& port = Make(owner, metaclasses::port, name, stereotype);
  port.SetEntities(properties::realized, realized);
  port.SetEntities(properties::required, required);
  return port;
}

Element& ModelBuilder::Parameter(Element& operation, Text name, const Operand& type,
                                 Text direction) {
  Element& parameter = Make(operation, metaclasses::parameter, name, {}, properties::parameter);
  SetType(parameter, type);
  return Set(parameter, properties::direction, direction);
}

Element& ModelBuilder::Raises(Element& operation, Element& exception) {
  operation.AddEntity(properties::raisedException, exception);
  return operation;
}

void ModelBuilder::SetType(Element& element, const Operand& type) {
  if (type.element == nullptr && type.text.empty()) return;
  Element& designated = type.element != nullptr ? *type.element : Predefined(type.text);
  const bool isTemplate = designated.Metaclass() == metaclasses::templateInstantiation;
  Element& ident = isTemplate ? designated : Actual(designated);
  element.SetEntity(properties::targetType, &ident);
  element.SetEntity(properties::type, isTemplate ? nullptr : &designated);
}

Element& ModelBuilder::Template(Text name, std::initializer_list<Operand> parameters) {
  Element& made = model_.Create(metaclasses::templateInstantiation);
  made.SetEntity(properties::instanceOf, &Predefined(std::string(name)));
  for (const Operand& parameter : parameters) {
    made.AddEntity(properties::actualTemplateParameter, Actual(parameter));
  }
  return made;
}

Element& ModelBuilder::Range(Element& element, const Operand& lower, const Operand& upper) {
  Element& range = model_.Create(metaclasses::openRange);
  range.SetEntity(properties::lowerBound, &Bound(lower));
  range.SetEntity(properties::upperBound, &Bound(upper));
  element.AddEntity(properties::multiplicity, range);
  return element;
}

Element& ModelBuilder::Default(Element& element, Name metaclass, Text text) {
  element.SetEntity(properties::defaultValue, &Literal(metaclass, text));
  return element;
}

Element& ModelBuilder::Default(Element& element, Element& constant) {
  element.SetEntity(properties::defaultValue, &Actual(constant));
  return element;
}

Element& ModelBuilder::Generalize(Element& special, Element& general) {
  Element& made = Make(special, metaclasses::generalization, "", {}, properties::generalization);
  made.SetEntity(properties::parent, &general);
  return made;
}

Element& ModelBuilder::Depend(Element& client, Element& supplier, Text keyword) {
  Element& made = Make(client, metaclasses::dependency, "", {}, properties::clientDependency);
  made.SetEntity(properties::client, &client);
  made.SetEntity(properties::supplier, &supplier);
  return keyword.empty() ? made : Keyword(made, keyword);
}

Element& ModelBuilder::Generator(Text name, Tags tags) {
  return Mark(Set(model_.Create(metaclasses::artifact), properties::name, name),
              stereotypes::idlGenerator, tags);
}

Element& ModelBuilder::Literal(Name metaclass, Text text) {
  return Set(model_.Create(metaclass), properties::valueString, text);
}

Element& ModelBuilder::Predefined(const std::string& name) {
  Element*& known = predefined_[name];
  if (known == nullptr) known = &Set(model_.Create(metaclasses::dataType), properties::name, name);
  return *known;
}

/// A bound or a value: texts are integers.
Element& ModelBuilder::Bound(const Operand& operand) {
  return operand.element != nullptr ? Actual(operand)
                                    : Literal(metaclasses::integerValue, operand.text);
}

/// A template parameter: texts are predefined types.
Element& ModelBuilder::Actual(const Operand& operand) {
  if (operand.isNumber) return Literal(metaclasses::integerValue, operand.text);
  Element& designated = operand.element != nullptr ? *operand.element : Predefined(operand.text);
  if (designated.Metaclass() == metaclasses::templateInstantiation) return designated;
  Element& ident =
      Set(model_.Create(metaclasses::ident), properties::name, designated.Text(properties::name));
  ident.SetEntity(properties::definition, &designated);
  return ident;
}

}  // namespace support
