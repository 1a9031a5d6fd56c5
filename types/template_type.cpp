#include "types/template_type.h"

#include <list>
#include <unordered_set>

#include "agent/idl_exception.h"
#include "agent/vocabulary.h"
#include "types/constant_value.h"
#include "types/text.h"

namespace mdktoidl {

namespace {

/// Whether a value stands where a type should.
bool isValue(mdk::IMdeEntity* element) {
  const std::string metaclass = element->GetMetaclass();
  return metaclass.ends_with("Value") || metaclass == metaclasses::opaqueExpression;
}

/// One template instantiation, its parameters not yet looked at.
struct Instantiation {
  mdk::IMdeEntity* element;
  std::string name;
  std::vector<mdk::IMdeEntity*> parameters;

  explicit Instantiation(mdk::IMdeEntity* instantiation) : element(instantiation) {
    mdk::IMdeEntity* instantiated = element->GetEntity(properties::instanceOf, 0);
    if (instantiated != nullptr) name = instantiated->GetValue(properties::name, 0);
    std::list<mdk::IMdeEntity*> actuals;
    element->GetEntities(properties::actualTemplateParameter, actuals);
    parameters.assign(actuals.begin(), actuals.end());
  }

  bool hasElement() const { return name == "sequence" || name == "array"; }

  bool isKnown() const {
    return hasElement() || name == "string" || name == "wstring" || name == "fixed";
  }

  [[noreturn]] void Refuse() const {
    throw IDLException({Message::templateParameterWrong, element, {name}});
  }

  void RequireCount(std::size_t least, std::size_t most) const {
    if (parameters.size() < least || parameters.size() > most) Refuse();
  }

  /// The text of a numeric parameter. A constant is written as its number: where a name would be
  /// visible depends on the file, the number doesn't.
  std::string Number(std::size_t index, long least) const {
    mdk::IMdeEntity* parameter = parameters[index];
    if (parameter == nullptr) Refuse();
    if (parameter->IsKindOf(metaclasses::ident)) return std::to_string(Constant(parameter, least));
    std::string text = parameter->GetValue(properties::valueString, 0);
    const auto value = IntegerLiteral(text);
    if (!parameter->IsKindOf(metaclasses::integerValue) || !value || *value < least) Refuse();
    return text;
  }

 private:
  long Constant(mdk::IMdeEntity* identifier, long least) const {
    mdk::IMdeEntity* constant = identifier->GetEntity(properties::definition, 0);
    if (constant == nullptr) throw IDLException({Message::nameUnresolved, element, {}});
    VisitedConstants visited;
    const ConstantValue value = EvaluateConstant(constant, visited);
    if (value.state == ConstantState::circular) {
      throw IDLException({Message::templateParameterCircular, element, {}});
    }
    if (value.state != ConstantState::integer || value.value < least) Refuse();
    return value.value;
  }
};

/// Templates from the outside in: arrays, then sequences, then what they are made of. Walked with a
/// list, not recursively, because a model's references may nest them to any depth.
class TemplateChain {
 public:
  explicit TemplateChain(mdk::IMdeEntity* user) : user_(user) {}

  void Resolve(mdk::IMdeEntity* outermost, TypeReference& result) {
    mdk::IMdeEntity* element = Enter(outermost);
    while (element != nullptr && element->GetMetaclass() == metaclasses::templateInstantiation) {
      element = Enter(element);
    }
    if (!levels_.front().isKnown()) return;
    ResolveCore(element, result);
    for (const Instantiation& level : levels_) Open(level, result);
    auto sequence = result.sequences.rbegin();
    for (auto level = levels_.rbegin(); level != levels_.rend(); ++level) {
      if (level->name == "sequence") (sequence++)->bound = SequenceBound(*level);
    }
    result.kind = templateType;
    result.isAnonymous = true;
  }

 private:
  /// Takes up one instantiation; returns its element type, null when it has none.
  mdk::IMdeEntity* Enter(mdk::IMdeEntity* element) {
    const bool isNew = entered_.insert(element).second;
    Instantiation level(element);
    if (!levels_.empty()) {
      const bool fits = isNew && level.isKnown();
      const bool arrayInSequence = level.name == "array" && levels_.back().name == "sequence";
      if (!fits || arrayInSequence) levels_.back().Refuse();
    }
    levels_.push_back(std::move(level));
    const Instantiation& entered = levels_.back();
    if (!entered.hasElement()) return nullptr;
    if (entered.parameters.empty() || entered.parameters.front() == nullptr) entered.Refuse();
    return entered.parameters.front();
  }

  /// What is inside all sequences and arrays.
  void ResolveCore(mdk::IMdeEntity* element, TypeReference& result) const {
    const Instantiation& level = levels_.back();
    if (element == nullptr) {
      result.bounded = Bounded(level);
      return;
    }
    if (isValue(element)) level.Refuse();
    mdk::IMdeEntity* found = EvaluatePlainType(element, user_, result);
    if (found->IsKindOf(metaclasses::attribute)) level.Refuse();
  }

  static std::string Bounded(const Instantiation& level) {
    if (level.name == "fixed") {
      level.RequireCount(2, 2);
      return "fixed<" + level.Number(0, 1) + ", " + level.Number(1, 0) + ">";
    }
    level.RequireCount(1, 1);
    return level.name + "<" + level.Number(0, 1) + ">";
  }

  static void Open(const Instantiation& level, TypeReference& result) {
    if (level.name == "sequence") {
      level.RequireCount(1, 2);
      result.sequences.emplace_back();
    } else if (level.name == "array") {
      level.RequireCount(2, level.parameters.size());
      for (std::size_t index = 1; index < level.parameters.size(); ++index) {
        result.declaratorSuffix += "[" + level.Number(index, 1) + "]";
      }
    }
  }

  static std::string SequenceBound(const Instantiation& level) {
    return level.parameters.size() > 1 ? level.Number(1, 1) : std::string();
  }

  mdk::IMdeEntity* user_;
  std::vector<Instantiation> levels_;
  std::unordered_set<mdk::IMdeEntity*> entered_;
};

}  // namespace

void RetrieveTemplate(mdk::IMdeEntity* instantiation, mdk::IMdeEntity* user,
                      TypeReference& result) {
  TemplateChain(user).Resolve(instantiation, result);
}

}  // namespace mdktoidl
