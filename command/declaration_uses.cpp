#include "command/declaration_uses.h"

#include <unordered_set>

#include "command/model_words.h"

namespace command {
namespace {

using model::Element;
using model::Symbol;
using Kind = DeclarationKind;

/// The definition that a type expression, a bound or a value names; null when it names none.
const Element* DefinitionOf(const Element* expression) {
  return expression == nullptr ? nullptr : expression->Entity(words::definition);
}

/// What a chain of templates is made of in the end. A bad model may close the chain to a circle.
const Element* InnermostElement(const Element* instantiation) {
  std::unordered_set<const Element*> passed;
  while (instantiation != nullptr && instantiation->Metaclass() == words::templateInstantiation) {
    const auto actuals = instantiation->Entities(words::actualTemplateParameter);
    if (actuals.empty() || !passed.insert(instantiation).second) return nullptr;
    instantiation = actuals.front();
  }
  return DefinitionOf(instantiation);
}

const Element* FirstAttribute(const Element& owner) {
  for (const Element* member : owner.Entities(words::ownedMember)) {
    if (member->Metaclass() == words::attribute) return member;
  }
  return nullptr;
}

class UseCollector {
 public:
  UseCollector(const Declarations& declarations, std::vector<Use>& uses)
      : declarations_(declarations), uses_(uses) {}

  void Collect(const Declaration& declaration) {
    const Element& element = *declaration.element;
    switch (declaration.kind) {
      case Kind::kConstant:
        AddTypeOf(&element);
        return Add(DefinitionOf(element.Entity(words::defaultValue)), UsePlace::kPlain);
      case Kind::kAttribute:
      case Kind::kParameter:
      case Kind::kField:
      case Kind::kState:
      case Kind::kCase:
        return AddTypeOf(&element);
      case Kind::kTypedef:
        return AddTypedef(element);
      case Kind::kSequence:
      case Kind::kBoxedValue:
        return AddTypeOf(FirstAttribute(element));
      case Kind::kUnion:
        return AddTypeOf(DiscriminatorOf(element));
      case Kind::kOperation:
      case Kind::kFactory:
        return AddOperation(element);
      case Kind::kPort:
        return AddPort(element);
      case Kind::kHome:
        AddBases(element);
        return AddSuppliers(element, words::corbaManages, words::corbaPrimaryKey);
      case Kind::kComposition:
      case Kind::kHomeExecutor:
        return AddSuppliers(element, words::corbaImplements);
      default:
        if (InheritsMembers(declaration.kind)) AddBases(element);
    }
  }

 private:
  void Add(const Element* named, UsePlace place) {
    const DeclarationIndex used = declarations_.Find(named);
    if (used != kNoDeclaration) uses_.push_back({used, place});
  }

  void AddTypeOf(const Element* typed) {
    if (typed == nullptr) return;
    const auto multiplicity = typed->Entities(words::multiplicity);
    const Element* target = typed->Entity(words::targetType);
    if (target != nullptr && target->Metaclass() == words::templateInstantiation) {
      Add(InnermostElement(target), UsePlace::kInTemplate);
    } else {
      Add(typed->Entity(words::type),
          multiplicity.empty() ? UsePlace::kPlain : UsePlace::kInTemplate);
    }
    for (const Element* range : multiplicity) {
      Add(DefinitionOf(range->Entity(words::upperBound)), UsePlace::kInTemplate);
    }
  }

  void AddTypedef(const Element& element) {
    const Element* attribute = FirstAttribute(element);
    if (attribute != nullptr) return AddTypeOf(attribute);
    const auto generalizations = element.Entities(words::generalization);
    if (generalizations.size() != 1) return;
    const Element* general = generalizations.front()->Entity(words::parent);
    if (general != nullptr && general->Metaclass() == words::templateInstantiation) {
      Add(InnermostElement(general), UsePlace::kInTemplate);
    } else {
      Add(general, UsePlace::kPlain);
    }
  }

  void AddOperation(const Element& operation) {
    const Element* result = nullptr;
    for (const Element* parameter : operation.Entities(words::parameter)) {
      if (parameter->Text(words::direction) == "DkReturn") result = parameter;
    }
    AddTypeOf(result);
    for (const Element* exception : operation.Entities(words::raisedException)) {
      Add(exception, UsePlace::kRaised);
    }
  }

  void AddBases(const Element& element) {
    for (const Element* generalization : element.Entities(words::generalization)) {
      Add(generalization->Entity(words::parent), UsePlace::kBase);
    }
  }

  /// What a home manages and by which key, and what an implementation implements.
  void AddSuppliers(const Element& element, Symbol first, Symbol second = {}) {
    for (const Element* dependency : element.Entities(words::clientDependency)) {
      if (IsMarked(*dependency, first) || (second != Symbol() && IsMarked(*dependency, second))) {
        Add(dependency->Entity(words::supplier), UsePlace::kHeader);
      }
    }
  }

  void AddPort(const Element& port) {
    const auto typing = TypingOf(port);
    const auto types = typing ? port.Entities(*typing) : std::span<Element* const>();
    if (!types.empty()) Add(types.front(), UsePlace::kPlain);
  }

  const Declarations& declarations_;
  std::vector<Use>& uses_;
};

}  // namespace

const Element* DiscriminatorOf(const Element& unionElement) {
  for (const Element* member : unionElement.Entities(words::ownedMember)) {
    if (member->Metaclass() == words::attribute && !IsMarked(*member, words::unionCase)) {
      return member;
    }
  }
  return nullptr;
}

DeclarationUses::DeclarationUses(const Declarations& declarations) {
  UseCollector collector(declarations, uses_);
  starts_.reserve(declarations.Size() + std::size_t{1});
  for (DeclarationIndex user = 0; user < declarations.Size(); ++user) {
    starts_.push_back(static_cast<std::uint32_t>(uses_.size()));
    collector.Collect(declarations[user]);
  }
  starts_.push_back(static_cast<std::uint32_t>(uses_.size()));
}

}  // namespace command
