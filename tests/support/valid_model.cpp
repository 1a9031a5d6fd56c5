#include "tests/support/valid_model.h"

#include <array>
#include <string>

namespace support {

using model::Symbol;

namespace {

constexpr std::array primitives = {"long",   "short",         "boolean", "char",   "octet",
                                   "double", "unsigned long", "any",     "string", "long long"};

class Generator {
 public:
  Generator(ModelBuilder& builder, Choices& choices) : b_(builder), choices_(choices) {}

  ValidModel Run() {
    const std::size_t count = 1 + choices_.Below(3);
    for (std::size_t i = 0; i < count; ++i) {
      result_.modules.push_back(&b_.Module(Name('M')));
      FillModule(*result_.modules.back(), 0);
    }
    return std::move(result_);
  }

 private:
  /// Names of one length, none a part of another, different also for who doesn't tell cases apart.
  std::string Name(char kind) {
    std::string number = std::to_string(++number_);
    return kind + std::string(4 - std::min<std::size_t>(number.size(), 4), '0') + number;
  }

  void FillModule(Element& module, std::size_t depth) {
    result_.scopes.push_back(&module);
    std::vector<Element*> exceptions;  // are raised by their simple names, so only from beside them
    AddStruct(module);
    const std::size_t count = 1 + choices_.Below(8);
    for (std::size_t i = 0; i < count; ++i) AddDeclaration(module, depth, exceptions);
  }

  void AddDeclaration(Element& m, std::size_t depth, std::vector<Element*>& exceptions) {
    switch (choices_.Below(12)) {
      case 0:
        if (depth < 3) FillModule(b_.Module(m, Name('M')), depth + 1);
        return;
      case 1:
        return AddUnion(m);
      case 2:
        return AddEnum(m);
      case 3:
        return AddTypedef(m);
      case 4:
        return AddSequence(m);
      case 5:
        exceptions.push_back(&b_.Exception(m, Name('X')));
        return AddFields(*exceptions.back());
      case 6:
        return AddConstant(m);
      case 7:
        return AddInterface(m, exceptions);
      case 8:
        return AddRing(m, exceptions);
      case 9:
        return AddValue(m);
      case 10:
        b_.Attribute(b_.Class(m, Name('B'), "CORBABoxedValue"), Name('f'), choices_.Of(primitives));
        return;
      default:
        return AddStruct(m);
    }
  }

  /// A type that is declared already, or a predefined one.
  Operand Type() {
    if (types_.empty() || choices_.Chance(40)) return choices_.Of(primitives);
    return *choices_.Of(types_);
  }

  Operand Bound() {
    if (constants_.empty() || choices_.Chance(50)) {
      return static_cast<int>(2 + choices_.Below(9));
    }
    return *choices_.Of(constants_);
  }

  Element& Template() {
    switch (choices_.Below(5)) {
      case 0:
        return b_.Template("string", {Bound()});
      case 1:
        return b_.Template("fixed", {9, 2});
      case 2:
        return b_.Template("sequence", {b_.Template("sequence", {Type()}), Bound()});
      case 3:
        return b_.Template("sequence", {Type(), Bound()});
      default:
        return b_.Template("sequence", {Type()});
    }
  }

  void AddFields(Element& owner) {
    const std::size_t count = 1 + choices_.Below(4);
    for (std::size_t i = 0; i < count; ++i) {
      if (choices_.Chance(25)) {
        b_.Attribute(owner, Name('f'), Template());
        continue;
      }
      auto& field = b_.Attribute(owner, Name('f'), Type());
      if (choices_.Chance(25))
        b_.Range(field, 0, "*");
      else if (choices_.Chance(25))
        b_.Range(field, 1, Bound());
    }
  }

  void AddStruct(Element& owner) {
    auto& made = b_.Struct(owner, Name('S'));
    AddFields(made);
    if (choices_.Chance(20)) b_.Range(b_.Attribute(made, Name('f'), made), 0, "*");
    types_.push_back(&made);
  }

  void AddEnum(Element& m) {
    auto& made = b_.Enum(m, Name('N'), {});
    const std::size_t count = 1 + choices_.Below(4);
    for (std::size_t i = 0; i < count; ++i) {
      b_.Make(made, "EnumerationLiteral", Name('e'), "", "Literal");
    }
    types_.push_back(&made);
    enumerations_.push_back(&made);
  }

  void AddUnion(Element& m) {
    if (enumerations_.empty()) AddEnum(m);
    Element& enumeration = *choices_.Of(enumerations_);
    auto& made = b_.Class(m, Name('U'), "CORBAUnion");
    b_.Attribute(made, Name('d'), enumeration);
    for (Element* literal : enumeration.Entities(properties::literal)) {
      if (choices_.Chance(30)) continue;
      auto& member = b_.Keyword(b_.Attribute(made, Name('f'), Type()), "case");
      b_.Mark(member, "case", {{"label", literal->Text(properties::name)}});
    }
    // A default case needs a value that no other case has.
    const bool hasAll = made.Entities(properties::ownedMember).size() ==
                        enumeration.Entities(properties::literal).size() + 1;
    if (!hasAll) {
      auto& rest = b_.Keyword(b_.Attribute(made, Name('f'), Type()), "case");
      b_.Mark(rest, "case", {{"isDefault", "true"}});
    }
    types_.push_back(&made);
  }

  void AddTypedef(Element& m) {
    auto& made = b_.Class(m, Name('T'), "CORBATypedef");
    if (choices_.Chance(40)) {
      b_.Attribute(made, Name('f'), Template());
    } else {
      b_.Attribute(made, Name('f'), Type());
    }
    types_.push_back(&made);
  }

  void AddSequence(Element& m) {
    auto& made = b_.Class(m, Name('Q'), "CORBASequence");
    b_.Attribute(made, Name('f'), Type());
    types_.push_back(&made);
  }

  void AddConstant(Element& m) {
    const bool isAlias = !constants_.empty() && choices_.Chance(50);
    const Operand value = isAlias ? Operand(*choices_.Of(constants_))
                                  : Operand(static_cast<int>(2 + choices_.Below(50)));
    constants_.push_back(&b_.Constant(m, Name('C'), "unsigned long", value));
  }

  void AddMembers(Element& interface, const std::vector<Element*>& exceptions,
                  const std::vector<Element*>& ring) {
    const auto type = [&] {
      return ring.empty() || choices_.Chance(50) ? Type() : Operand(*choices_.Of(ring));
    };
    const std::size_t count = choices_.Below(5);
    for (std::size_t i = 0; i < count; ++i) {
      if (choices_.Chance(30)) {
        auto& attribute = b_.Attribute(interface, Name('a'), type());
        if (choices_.Chance(30)) b_.Set(attribute, "Changeability", "CkFrozen");
        continue;
      }
      auto& operation = b_.Operation(interface, Name('o'));
      b_.Mark(operation, "CORBAOperation", {{"overrideIsDefaultAsync", "true"}});
      if (choices_.Chance(60)) b_.Returns(operation, type());
      constexpr std::array directions = {"DkIn", "DkOut", "DkInOut", "DkNone"};
      for (std::size_t parameters = choices_.Below(3); parameters > 0; --parameters) {
        b_.Parameter(operation, Name('p'), type(), choices_.Of(directions));
      }
      if (!exceptions.empty() && choices_.Chance(40)) {
        b_.Raises(operation, *exceptions[choices_.Below(exceptions.size())]);
      }
    }
  }

  void AddInterface(Element& m, const std::vector<Element*>& exceptions) {
    auto& made = b_.Interface(m, Name('I'));
    if (!interfaces_.empty() && choices_.Chance(50)) b_.Generalize(made, *choices_.Of(interfaces_));
    if (choices_.Chance(30)) AddStruct(made);
    AddMembers(made, exceptions, {});
    types_.push_back(&made);
    interfaces_.push_back(&made);
  }

  void AddRing(Element& m, const std::vector<Element*>& exceptions) {
    std::vector<Element*> ring;
    const std::size_t count = 2 + choices_.Below(3);
    for (std::size_t i = 0; i < count; ++i) ring.push_back(&b_.Interface(m, Name('I')));
    for (Element* each : ring) AddMembers(*each, exceptions, ring);
    types_.insert(types_.end(), ring.begin(), ring.end());
    interfaces_.insert(interfaces_.end(), ring.begin(), ring.end());
  }

  void AddValue(Element& m) {
    auto& made = b_.Value(m, Name('V'));
    if (!values_.empty() && choices_.Chance(40)) b_.Generalize(made, *choices_.Of(values_));
    const std::size_t count = choices_.Below(4);
    for (std::size_t i = 0; i < count; ++i) {
      auto& state = b_.Attribute(made, Name('f'), Type());
      if (choices_.Chance(40)) b_.Set(state, "Visibility", "VkPrivate");
    }
    types_.push_back(&made);
    values_.push_back(&made);
  }

  ModelBuilder& b_;
  Choices& choices_;
  ValidModel result_;
  std::size_t number_ = 0;
  std::vector<Element*> types_, constants_, enumerations_, interfaces_, values_;
};

}  // namespace

ValidModel GenerateValidModel(ModelBuilder& builder, Choices& choices) {
  return Generator(builder, choices).Run();
}

void ShuffleMembers(const ValidModel& model, Choices& choices) {
  for (Element* scope : model.scopes) {
    const auto members = scope->Entities(properties::ownedMember);
    std::vector<Element*> order(members.begin(), members.end());
    choices.Shuffle(order);
    scope->SetEntities(properties::ownedMember, order);
  }
}

}  // namespace support
