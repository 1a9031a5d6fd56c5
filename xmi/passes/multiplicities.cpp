#include "xmi/passes/multiplicities.h"

namespace xmi {

// What an element's values say stands together, since they are the element's children.
void Multiplicities::Set() {
  const std::vector<ValueNode>& values = reading_.values;
  for (std::size_t i = 0; i < values.size();) {
    const ItemIndex item = values[i].item;
    Given given;
    for (; i < values.size() && values[i].item == item; ++i) {
      const ValueNode*& place = values[i].feature == Word::kLowerValue   ? given.lower
                                : values[i].feature == Word::kUpperValue ? given.upper
                                                                         : given.standard;
      if (place == nullptr) place = &values[i];
    }
    if (IsTyped(reading_.items[item].type)) SetFor(item, given);
  }
}

void Multiplicities::SetFor(ItemIndex item, const Given& given) {
  if (given.lower != nullptr || given.upper != nullptr) {
    Bound lower = ReadBound(item, given.lower, "lower");
    if (lower.kind == Bound::kUnbounded) lower = {Bound::kNumber, "0", kNoItem};
    const Bound upper = ReadBound(item, given.upper, "upper");
    const bool isSingle = upper.kind == Bound::kNumber && upper.text == "1" &&
                          lower.kind == Bound::kNumber && (lower.text == "0" || lower.text == "1");
    if (!isSingle) SetRange(item, lower, upper);
  }
  if (given.standard == nullptr || given.standard->feature != Word::kDefaultValue) return;
  if (reading_.items[item].type == Word::kParameter) return;
  model::Element* const value = values_.ReadDefault(*given.standard);
  reading_.items[item].element->SetEntity(properties::defaultValue, value);
}

Bound Multiplicities::ReadBound(ItemIndex item, const ValueNode* value, const char* name) {
  if (value == nullptr) return {Bound::kNumber, "1", kNoItem};
  Bound bound = values_.ReadBound(*value);
  if (bound.kind != Bound::kUnreadable) return bound;
  reading_.Warn(item, "bound-unreadable",
                std::string("the ") + name + " bound of " + reading_.Describe(item) +
                    " is neither a number nor a name; it counts as 1");
  return {Bound::kNumber, "1", kNoItem};
}

void Multiplicities::SetRange(ItemIndex item, const Bound& lower, const Bound& upper) {
  model::Element& low = values_.ElementOf(lower);
  model::Element& high = values_.ElementOf(upper);
  model::Element*& range = ranges_[{&low, &high}];
  if (range == nullptr) {
    range = &reading_.model.Create(metaclasses::openRange);
    range->SetEntity(properties::lowerBound, &low);
    range->SetEntity(properties::upperBound, &high);
  }
  reading_.items[item].element->SetEntities(properties::multiplicity, {&range, 1});
}

}  // namespace xmi
