#include "xmi/passes/values.h"

#include <cctype>

#include "xmi/text/literals.h"
#include "xmi/text/start_tag.h"

namespace xmi {
namespace {

// A feature of a value: an attribute, or a child element with text. Nothing when it is unset.
std::optional<std::string> FeatureOf(pugi::xml_node node, const char* feature) {
  if (const pugi::xml_attribute attribute = node.attribute(feature)) return attribute.value();
  const pugi::xml_node child = node.child(feature);
  if (!child || LocalAttribute(child, "nil", true) == "true") return std::nullopt;
  std::string buffer;
  return std::string(TextOf(child, buffer));
}

std::optional<std::string> TextOfValue(const ValueNode& value) {
  if (value.hasValue) return std::string(value.value);
  return FeatureOf(value.node, "value");
}

bool IsIdl(std::string language) {
  for (char& c : language) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return language == "IDL" || language == "OMG IDL" || language == "CORBA IDL" ||
         language == "CORBA";
}

// The body in IDL where languages are given, else the first.
std::string BodyOf(pugi::xml_node node) {
  if (const pugi::xml_attribute body = node.attribute("body")) return body.value();
  std::string buffer;
  pugi::xml_node body = node.child("body");
  std::string first(TextOf(body, buffer));
  for (pugi::xml_node language = node.child("language"); body && language;
       language = language.next_sibling("language"), body = body.next_sibling("body")) {
    if (IsIdl(std::string(TextOf(language, buffer)))) return std::string(TextOf(body, buffer));
  }
  return first;
}

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
    if (type->Application(stereotypes::corbaTypedef) == nullptr)
      return type->Text(properties::name);
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

ValueNode MakeValueNode(ItemIndex item, ItemIndex source, pugi::xml_node node) {
  ValueNode value;
  value.item = item;
  value.source = source;
  const std::string_view type = LocalAttribute(node, "type", true);
  value.type = TypeOf(SplitName(type.empty() ? node.name() : type).local);
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

model::Element& Values::Integer(std::string_view text) {
  return Shared(metaclasses::integerValue, text);
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
  return Integer(bound.kind == Bound::kUnbounded ? "*" : bound.text);
}

Bound Values::BoundOfText(const ValueNode& value, std::string_view text, bool mayBeName) {
  text = WithoutBlanks(text);
  if (text == "*" || text == "-1") return {Bound::kUnbounded, "*", kNoItem};
  if (const auto number = NaturalNumber(text)) return {Bound::kNumber, *number, kNoItem};
  if (!mayBeName || !IsName(text)) return {};
  return {Bound::kName, std::string(text), constants_.Find(value.item, text)};
}

Bound Values::ReadBound(const ValueNode& value) {
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

ItemIndex Values::InstanceOf(const ValueNode& value) {
  if (const pugi::xml_attribute instance = value.node.attribute("instance")) {
    return resolver_.Find(value.source, "instance", instance.value(), false);
  }
  const pugi::xml_node child = value.node.child("instance");
  const std::string_view href = LocalAttribute(child, "href", false);
  const std::string_view idref = LocalAttribute(child, "idref", true);
  if (href.empty() && idref.empty()) return kNoItem;
  return resolver_.Find(value.source, "instance", href.empty() ? idref : href, !href.empty());
}

const ValueNode* Values::SpecificationOf(ItemIndex instance) {
  if (!specifications_) {
    specifications_.emplace();
    for (std::size_t i = 0; i < reading_.values.size(); ++i) {
      const ValueNode& value = reading_.values[i];
      const bool isOfInstance = reading_.items[value.item].type == Word::kInstanceSpecification;
      if (isOfInstance) specifications_->emplace(value.item, i);
    }
  }
  const auto found = specifications_->find(instance);
  return found == specifications_->end() ? nullptr : &reading_.values[found->second];
}

Bound Values::BoundOfInstance(const ValueNode& value) {
  const ItemIndex instance = InstanceOf(value);
  if (instance == kNoItem || reading_.items[instance].element == nullptr) return {};
  const std::string name(reading_.items.NameOf(instance));
  if (constants_.IsConstant(instance)) return {Bound::kName, name, instance};
  Bound bound = BoundOfText(value, name, true);
  if (bound.kind == Bound::kName && bound.constant == kNoItem) {
    const ValueNode* given = SpecificationOf(instance);
    const bool isLiteral = given != nullptr && given->type != Word::kInstanceValue;
    if (isLiteral) return ReadBound(*given);
  }
  return bound;
}

model::Element* Values::ReadDefault(const ValueNode& value) {
  const auto text = [&](std::string_view unset) {
    return std::string(WithoutBlanks(TextOfValue(value).value_or(std::string(unset))));
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

model::Element* Values::ReadString(const ValueNode& value) {
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

model::Element* Values::ReadInstance(const ValueNode& value) {
  const ItemIndex instance = InstanceOf(value);
  if (instance == kNoItem || reading_.items[instance].element == nullptr)
    return &Ident("", kNoItem);
  const std::string_view name = reading_.items.NameOf(instance);
  const bool isDefinition =
      reading_.items[instance].type == Word::kEnumerationLiteral || constants_.IsConstant(instance);
  return &Ident(name, isDefinition ? instance : constants_.Find(value.item, name));
}

model::Element* Values::ReadOpaque(const ValueNode& value, std::string_view body) {
  const std::string_view text = WithoutBlanks(body);
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
