#include "xmi/passes/values.h"

#include "xmi/passes/resolver.h"
#include "xmi/text/scanning.h"

namespace xmi {
namespace {

// A feature of a value: an attribute, or a child element with text. Nothing when it is unset.
std::optional<std::string> FeatureOf(pugi::xml_node node, const char* feature) {
  if (const pugi::xml_attribute attribute = node.attribute(feature)) return attribute.value();
  const pugi::xml_node child = node.child(feature);
  if (!child || PrefixedAttribute(child, "nil") == "true") return std::nullopt;
  std::string buffer;
  return std::string(TextOf(child, buffer));
}

std::optional<std::string> TextOfValue(const ValueSpec& value) {
  if (value.hasValue) return std::string(value.value);
  return FeatureOf(value.node, "value");
}

bool IsIdl(std::string_view language) {
  const std::string name = Lowered(language);
  return name == "idl" || name == "omg idl" || name == "corba idl" || name == "corba";
}

// The body in IDL where languages are given, else the first. The n-th language is the n-th body's.
std::string BodyOf(pugi::xml_node node) {
  if (const pugi::xml_attribute body = node.attribute("body")) return body.value();
  std::string buffer;
  pugi::xml_node body = node.child("body");
  std::string first(TextOf(body, buffer));
  for (pugi::xml_node language = node.child("language"); body && language;
       language = language.next_sibling("language"), body = body.next_sibling("body")) {
    if (IsIdl(TextOf(language, buffer))) return std::string(TextOf(body, buffer));
  }
  return first;
}

// An expression with operands isn't a name, whatever its symbol is.
std::string SymbolOf(pugi::xml_node node) {
  return node.child("operand") ? "" : FeatureOf(node, "symbol").value_or("");
}

// The name of the predefined type that a type is, also through typedefs.
std::string_view BaseName(const model::Element* type) {
  constexpr int kMostSteps = 100;  // typedefs that go round in circles have no base
  for (int step = 0; type != nullptr && step < kMostSteps; ++step) {
    if (const model::Element* generic = type->Entity(properties::instanceOf)) {
      return generic->Text(properties::name);
    }
    if (type->Application(stereotypes::corbaTypedef) == nullptr) {
      return type->Text(properties::name);
    }
    // A typedef specialises what it names, or has one attribute of that type.
    const auto generals = type->Entities(properties::generalization);
    const auto members = type->Entities(properties::ownedMember);
    if (!generals.empty()) {
      type = generals.front()->Entity(properties::parent);
    } else {
      type = members.empty() ? nullptr : members.front()->Entity(properties::type);
    }
  }
  return {};
}

}  // namespace

bool Constants::IsConstant(ItemIndex index) const {
  const Item& item = reading_.items[index];
  if (item.element == nullptr || item.type != Word::kProperty) return false;
  const model::Element* value =
      item.element->TaggedValue(stereotypes::corbaAttribute, tags::isConstant);
  return value != nullptr && value->Text(properties::name) != "false";
}

void Constants::Index() {
  if (isIndexed_) return;
  isIndexed_ = true;
  const Items& items = reading_.items;
  for (ItemIndex index = 0; index < items.Size(); ++index) {
    const Item& item = items[index];
    const std::string_view name = items.NameOf(index);
    if (item.type == Word::kEnumerationLiteral) literals_.emplace(Key{item.owner, name}, index);
    if (!IsConstant(index)) continue;
    constants_.emplace(Key{item.owner, name}, index);
    constants_.emplace(Key{items.ScopeOf(index), name}, index);
  }
}

ItemIndex Constants::Find(ItemIndex from, std::string_view name) {
  if (name.find("::") != name.npos) {
    IndexQualified();
    if (name.starts_with("::")) name.remove_prefix(2);
    const auto found = qualified_.find(std::string(name));
    return found == qualified_.end() ? kNoItem : found->second;
  }
  Index();
  for (ItemIndex scope = from; scope != kNoItem; scope = reading_.items[scope].owner) {
    const auto found = constants_.find({scope, name});
    if (found != constants_.end()) return found->second;
  }
  return kNoItem;
}

// By the names below the root, with the root's, and with that of the class that holds a constant:
// in IDL it is no scope, but it is one in the tool that the name was written in.
void Constants::IndexQualified() {
  if (isQualifiedIndexed_) return;
  isQualifiedIndexed_ = true;
  const Items& items = reading_.items;
  for (ItemIndex index = 0; index < items.Size(); ++index) {
    if (!IsConstant(index)) continue;
    const std::string path = items.QualifiedName(index);
    qualified_.emplace(path, index);
    qualified_.emplace(std::string(items.NameOf(items.RootOf(index))) + "::" + path, index);
    const ItemIndex owner = items[index].owner;
    if (owner == kNoItem || !items[owner].Has(Item::kHolder)) continue;
    qualified_.emplace(items.QualifiedName(owner) + "::" + std::string(items.NameOf(index)), index);
  }
}

ItemIndex Constants::FindLiteral(ItemIndex enumeration, std::string_view name) {
  if (enumeration == kNoItem) return kNoItem;
  Index();
  const Items& items = reading_.items;
  std::string_view last = name;
  if (const std::size_t colons = name.rfind("::"); colons != name.npos) {
    std::string_view path = name.substr(0, colons);
    if (path.starts_with("::")) path.remove_prefix(2);
    // IDL has the literals in the scope around the enumeration.
    const ItemIndex scope = items.ScopeOf(enumeration);
    const bool matches = path == items.NameOf(enumeration) ||
                         path == items.QualifiedName(enumeration) ||
                         (scope != kNoItem && path == items.QualifiedName(scope));
    if (!matches) return kNoItem;
    last = name.substr(colons + 2);
  }
  const auto found = literals_.find({enumeration, last});
  return found == literals_.end() ? kNoItem : found->second;
}

ValueSpec MakeValueSpec(ItemIndex item, ItemIndex source, pugi::xml_node node) {
  ValueSpec value;
  value.item = item;
  value.source = source;
  const std::string_view type = PrefixedAttribute(node, "type");
  value.type = FindType(SplitName(type.empty() ? node.name() : type).local);
  value.node = node;
  return value;
}

model::Element& Values::Shared(model::Symbol metaclass, std::string_view text) {
  std::string key(metaclass.Text());
  key += ' ';
  key += text;
  model::Element*& element = shared_[std::move(key)];
  if (element == nullptr) {
    element = &reading_.model.Create(metaclass);
    element->SetText(properties::valueString, text);
  }
  return *element;
}

model::Element& Values::Ident(std::string_view name, ItemIndex definition) {
  std::string key = "Ident " + std::to_string(definition) + " ";
  key += name;
  model::Element*& element = shared_[std::move(key)];
  if (element == nullptr) {
    element = &reading_.model.Create(metaclasses::ident);
    element->SetText(properties::name, name);
    if (definition != kNoItem) {
      element->SetEntity(properties::definition, reading_.items[definition].element);
    }
  }
  return *element;
}

model::Element& Values::ElementOf(const Bound& bound) {
  if (bound.kind == Bound::kName) return Ident(bound.text, bound.constant);
  return Shared(metaclasses::integerValue, bound.text);
}

Bound Values::BoundOfText(const ValueSpec& value, std::string_view text, bool mayBeName) {
  text = Trimmed(text);
  if (text == "*" || text == "-1") return {Bound::kUnbounded, "*", kNoItem};  // -1 is UML 1's
  if (const auto number = NaturalNumber(text)) return {Bound::kNumber, *number, kNoItem};
  if (!mayBeName || !IsName(text)) return {};
  return {Bound::kName, std::string(text), constants_.Find(value.item, text)};
}

// Tools leave out a number that is 0; a text that is left out is no number.
Bound Values::ReadBound(const ValueSpec& value) {
  switch (value.type) {
    case Word::kLiteralInteger:
    case Word::kLiteralUnlimitedNatural:
    case Word::kLiteralReal:
    case Word::kNone:
      return BoundOfText(value, TextOfValue(value).value_or("0"), false);
    case Word::kLiteralString:
      return BoundOfText(value, TextOfValue(value).value_or(""), false);
    case Word::kOpaqueExpression:
      return BoundOfText(value, BodyOf(value.node), true);
    case Word::kExpression:
      return BoundOfText(value, SymbolOf(value.node), true);
    case Word::kInstanceValue:
      return BoundOfInstance(value);
    default:
      return {};
  }
}

ItemIndex Values::InstanceOf(const ValueSpec& value) {
  if (const pugi::xml_attribute instance = value.node.attribute("instance")) {
    return FindItem(reading_, value.source, "instance", {instance.value(), false});
  }
  const IdOrHref instance = ReferenceOf(value.node.child("instance"));
  if (instance.text.empty()) return kNoItem;
  return FindItem(reading_, value.source, "instance", instance);
}

const ValueSpec* Values::SpecificationOf(ItemIndex instance) {
  if (!specifications_) {
    specifications_.emplace();
    for (std::size_t i = 0; i < reading_.values.size(); ++i) {
      const ItemIndex owner = reading_.values[i].item;
      const bool isOfInstance = reading_.items[owner].type == Word::kInstanceSpecification;
      if (isOfInstance) specifications_->emplace(owner, i);
    }
  }
  const auto found = specifications_->find(instance);
  return found == specifications_->end() ? nullptr : &reading_.values[found->second];
}

// A constant, a name that may be a constant's, or else an instance that has a value of its own. An
// instance of an instance isn't followed: they might go round in circles.
Bound Values::BoundOfInstance(const ValueSpec& value) {
  const ItemIndex instance = InstanceOf(value);
  if (instance == kNoItem || reading_.items[instance].element == nullptr) return {};
  const std::string name(reading_.items.NameOf(instance));
  if (constants_.IsConstant(instance)) return {Bound::kName, name, instance};
  Bound bound = BoundOfText(value, name, true);
  if (bound.kind == Bound::kName && bound.constant == kNoItem) {
    const ValueSpec* given = SpecificationOf(instance);
    const bool isLiteral = given != nullptr && given->type != Word::kInstanceValue;
    if (isLiteral) return ReadBound(*given);
  }
  return bound;
}

// What IDL has no literal for ("NaN") is kept as an expression, so that nobody takes it for a
// number.
model::Element* Values::ReadDefault(const ValueSpec& value) {
  const auto text = [&](const char* unset) {
    return std::string(Trimmed(TextOfValue(value).value_or(unset)));
  };
  switch (value.type) {
    case Word::kLiteralInteger:
    case Word::kLiteralUnlimitedNatural: {
      const std::string number = text("0");
      const bool isNumber = KindOfLiteral(number) == LiteralKind::kInteger;
      return &Shared(isNumber ? metaclasses::integerValue : metaclasses::opaqueExpression, number);
    }
    case Word::kLiteralReal: {
      const std::string number = text("0.0");
      const bool isNumber = KindOfLiteral(number) != LiteralKind::kNone;
      return &Shared(isNumber ? metaclasses::realValue : metaclasses::opaqueExpression, number);
    }
    case Word::kLiteralBoolean:
      return &Shared(metaclasses::booleanValue, text("false"));
    case Word::kLiteralString:
      return ReadString(value);
    case Word::kInstanceValue:
      return ReadInstance(value);
    case Word::kOpaqueExpression:
      return ReadOpaque(value, BodyOf(value.node));
    case Word::kExpression:
      return ReadOpaque(value, SymbolOf(value.node));
    case Word::kNone:
      return ReadOpaque(value, TextOfValue(value).value_or(""));
    default:
      return &Shared(model::Symbol(TextOf(value.type)), "");
  }
}

model::Element* Values::ReadString(const ValueSpec& value) {
  const std::optional<std::string> text = TextOfValue(value);
  if (!text) return nullptr;
  const model::Element& property = *reading_.items[value.item].element;
  const model::Element* type = property.Entity(properties::type);
  if (type == nullptr) type = property.Entity(properties::targetType);
  const std::string_view base = BaseName(type);
  if (base == "char" || base == "wchar" || base == "Character") {
    return &Shared(metaclasses::characterValue, Quoted(*text, '\'', base == "wchar"));
  }
  return &Shared(metaclasses::charstringValue, Quoted(*text, '"', base == "wstring"));
}

model::Element* Values::ReadInstance(const ValueSpec& value) {
  const ItemIndex instance = InstanceOf(value);
  const bool isElement = instance != kNoItem && reading_.items[instance].element != nullptr;
  if (!isElement) return &Ident("", kNoItem);
  const std::string_view name = reading_.items.NameOf(instance);
  const bool isDefinition =
      reading_.items[instance].type == Word::kEnumerationLiteral || constants_.IsConstant(instance);
  return &Ident(name, isDefinition ? instance : constants_.Find(value.item, name));
}

model::Element* Values::ReadOpaque(const ValueSpec& value, std::string_view body) {
  const std::string_view text = Trimmed(body);
  switch (KindOfLiteral(text)) {
    case LiteralKind::kInteger:
      return &Shared(metaclasses::integerValue, text);
    case LiteralKind::kReal:
      return &Shared(metaclasses::realValue, text);
    case LiteralKind::kCharacter:
      return &Shared(metaclasses::characterValue, text);
    case LiteralKind::kString:
      return &Shared(metaclasses::charstringValue, text);
    case LiteralKind::kNone:
      break;
  }
  if (IsName(text)) {
    ItemIndex definition = constants_.Find(value.item, text);
    const model::Element* type = reading_.items[value.item].element->Entity(properties::type);
    if (definition == kNoItem && type != nullptr) {
      definition = constants_.FindLiteral(reading_.items.Find(*type), text);
    }
    if (definition != kNoItem) return &Ident(text, definition);
  }
  return &Shared(metaclasses::opaqueExpression, text);
}

}  // namespace xmi
