// Gives properties and parameters their multiplicities and default values.
#include <map>
#include <string>
#include <utility>

#include "xmi/passes/passes.h"

namespace xmi {
namespace {

class Multiplicities {
 public:
  Multiplicities(Reading& reading, Values& values) : reading_(reading), values_(values) {}

  // What an element's values say stands together, since they are the element's children.
  void Set() {
    const std::vector<ValueSpec>& specs = reading_.values;
    for (std::size_t i = 0; i < specs.size();) {
      const ItemIndex item = specs[i].item;
      Given given;
      for (; i < specs.size() && specs[i].item == item; ++i) {
        const ValueSpec*& first = given.Of(specs[i].feature);
        if (first == nullptr) first = &specs[i];
      }
      if (IsTyped(reading_.items[item].type)) SetFor(item, given);
    }
  }

 private:
  struct Given {
    const ValueSpec* lower = nullptr;
    const ValueSpec* upper = nullptr;
    const ValueSpec* other = nullptr;  // the default value, or what an instance is

    const ValueSpec*& Of(Word feature) {
      if (feature == Word::kLowerValue) return lower;
      return feature == Word::kUpperValue ? upper : other;
    }
  };

  void SetFor(ItemIndex item, const Given& given) {
    if (given.lower != nullptr || given.upper != nullptr) {
      Bound lower = ReadBound(item, given.lower, "lower");
      if (lower.kind == Bound::kUnbounded) lower = {Bound::kNumber, "0", kNoItem};
      const Bound upper = ReadBound(item, given.upper, "upper");
      // IDL has no optional values, so 0..1 is a single value, too.
      const bool isSingle = upper.kind == Bound::kNumber && upper.text == "1" &&
                            lower.kind == Bound::kNumber &&
                            (lower.text == "0" || lower.text == "1");
      if (!isSingle) SetRange(item, lower, upper);
    }
    if (given.other == nullptr || given.other->feature != Word::kDefaultValue) return;
    if (reading_.items[item].type == Word::kParameter) return;
    model::Element* const value = values_.ReadDefault(*given.other);
    reading_.items[item].element->SetEntity(properties::defaultValue, value);
  }

  Bound ReadBound(ItemIndex item, const ValueSpec* value, const char* name) {
    if (value == nullptr) return {Bound::kNumber, "1", kNoItem};
    Bound bound = values_.ReadBound(*value);
    if (bound.kind != Bound::kUnreadable) return bound;
    reading_.Warn(item, "bound-unreadable",
                  std::string("the ") + name + " bound of " + reading_.Describe(item) +
                      " is neither a number nor a name; it counts as 1");
    return {Bound::kNumber, "1", kNoItem};
  }

  // Equal ranges are one element: there are few different ones in millions.
  void SetRange(ItemIndex item, const Bound& lower, const Bound& upper) {
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

  Reading& reading_;
  Values& values_;
  std::map<std::pair<model::Element*, model::Element*>, model::Element*> ranges_;
};

}  // namespace

void SetMultiplicities(Reading& reading, Values& values) { Multiplicities(reading, values).Set(); }

}  // namespace xmi
