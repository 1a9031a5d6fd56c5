// Turns classifiers that bind one of the known templates into "TemplateInstantiation"s.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "xmi/passes/passes.h"
#include "xmi/passes/resolver.h"
#include "xmi/tables/libraries.h"
#include "xmi/text/scanning.h"

namespace xmi {
namespace {

// The targets of a reference, an attribute of ids or child elements.
std::vector<IdOrHref> TargetsOf(pugi::xml_node node, const char* feature) {
  std::vector<IdOrHref> targets;
  ForEachWord(node.attribute(feature).value(), [&](std::string_view id) {
    targets.push_back({id, false});
  });
  for (const pugi::xml_node child : node.children(feature)) {
    const IdOrHref target = ReferenceOf(child);
    if (!target.text.empty()) targets.push_back(target);
  }
  return targets;
}

// The template that a binding binds; `kNoItem` when there is none. It is named by its signature,
// the id of which is one inside of the template.
ItemIndex TemplateOf(Reading& reading, const Part& binding) {
  ItemIndex found = kNoItem;
  const FileIndex file = reading.items[binding.source].file;
  for (const IdOrHref& signature : TargetsOf(binding.node, "signature")) {
    const IdTarget* target = FindTarget(reading, file, signature);
    if (target == nullptr) {
      FindItem(reading, binding.source, "signature", signature);  // for its warning
    } else if (found == kNoItem) {
      found = target->item;
    }
  }
  return found;
}

class Filler {
 public:
  Filler(Reading& reading, Values& values) : reading_(reading), values_(values) {}

  void Run() {
    for (const Instantiation& instantiation : reading_.instantiations) Fill(instantiation);
    CutCycles();
    for (const Filled& filled : filled_) {
      reading_.items[filled.item].element->SetEntities(properties::actualTemplateParameter,
                                                       filled.actuals);
    }
  }

 private:
  struct Filled {
    ItemIndex item;
    std::vector<model::Element*> actuals;
    std::vector<ItemIndex> nested;  // the actuals that are instantiations themselves
  };

  void Fill(const Instantiation& instantiation) {
    filled_.push_back({instantiation.item, {}, {}});
    const Part& binding = reading_.bindings[instantiation.binding];
    for (const pugi::xml_node given : binding.node.children("parameterSubstitution")) {
      const std::string_view href = PlainAttribute(given, "href");
      if (href.empty()) {
        AddActuals(given, binding.source);
        continue;
      }
      const ItemIndex root = FindRoot(reading_, binding.source, "parameterSubstitution", href,
                                      Word::kTemplateParameterSubstitution);
      if (root != kNoItem) AddActuals(reading_.RootNode(root), root);
    }
  }

  // `source` is an item of the file in which the substitution stands. What the substitution owns
  // counts: "actual" only repeats its id.
  void AddActuals(pugi::xml_node substitution, ItemIndex source) {
    const pugi::xml_node owned = substitution.child("ownedActual");
    if (owned && PlainAttribute(owned, "href").empty()) {
      for (const pugi::xml_node actual : substitution.children("ownedActual")) {
        AddOwned(actual, source);
      }
      return;
    }
    for (const IdOrHref& target : TargetsOf(substitution, owned ? "ownedActual" : "actual")) {
      const ItemIndex actual = FindItem(reading_, source, "actual", target);
      const pugi::xml_node root = reading_.RootNode(actual);
      if (root && IsValue(reading_.items[actual].type)) {
        AddOwned(root, actual);
      } else {
        AddReferred(actual, target.text);
      }
    }
  }

  void AddOwned(pugi::xml_node actual, ItemIndex source) {
    const ItemIndex item = filled_.back().item;
    const ValueSpec value = MakeValueSpec(item, source, actual);
    const Bound bound = values_.ReadBound(value);
    model::Element* element = nullptr;
    if (bound.kind != Bound::kUnreadable) {
      element = &values_.ElementOf(bound);
    } else if (!IsClassifier(value.type)) {
      reading_.Warn(
          item, "template-parameter-unreadable",
          "a template parameter of " + reading_.Describe(item) + " is neither a number nor a name");
      element = values_.ReadDefault(value);
    }
    if (element == nullptr) element = &values_.Ident(PlainAttribute(actual, "name"), kNoItem);
    filled_.back().actuals.push_back(element);
  }

  void AddReferred(ItemIndex actual, std::string_view text) {
    Filled& filled = filled_.back();
    if (actual == kNoItem || reading_.items[actual].element == nullptr) {
      filled.actuals.push_back(&values_.Ident(text, kNoItem));
      return;
    }
    model::Element& element = *reading_.items[actual].element;
    const bool isInstantiation = element.Metaclass() == metaclasses::templateInstantiation;
    filled.actuals.push_back(isInstantiation ? &element : &reading_.IdentOf(actual));
    // A file may have an element that only claims to be one: an unknown type is its metaclass.
    const bool isNested = isInstantiation && IsClassifier(reading_.items[actual].type);
    if (isNested) filled.nested.push_back(actual);
  }

  // A template that is its own parameter would have no end: there it is cut.
  void CutCycles() {
    enum State : std::uint8_t { kNew, kOpen, kDone };
    struct Step {
      std::size_t index;
      std::size_t next;
    };
    std::vector<State> states(filled_.size(), kNew);
    std::vector<Step> path;
    for (std::size_t start = 0; start < filled_.size(); ++start) {
      if (states[start] == kNew) path.push_back({start, 0});
      while (!path.empty()) {
        Step& step = path.back();
        Filled& filled = filled_[step.index];
        states[step.index] = kOpen;
        if (step.next == filled.nested.size()) {
          states[step.index] = kDone;
          path.pop_back();
          continue;
        }
        const ItemIndex nested = filled.nested[step.next++];
        const std::size_t index = IndexOf(nested);
        if (states[index] == kOpen) Cut(filled, nested);
        if (states[index] == kNew) path.push_back({index, 0});
      }
    }
  }

  std::size_t IndexOf(ItemIndex item) const {
    const auto found =
        std::lower_bound(filled_.begin(), filled_.end(), item,
                         [](const Filled& a, ItemIndex wanted) { return a.item < wanted; });
    return static_cast<std::size_t>(found - filled_.begin());
  }

  void Cut(Filled& filled, ItemIndex nested) {
    reading_.Warn(
        filled.item, "template-recursive",
        "the template instantiation " + reading_.Describe(filled.item) + " is a part of itself");
    model::Element& cut = values_.Ident(reading_.items.NameOf(nested), kNoItem);
    std::replace(filled.actuals.begin(), filled.actuals.end(), reading_.items[nested].element,
                 &cut);
  }

  Reading& reading_;
  Values& values_;
  std::vector<Filled> filled_;  // in the order of their items
};

}  // namespace

void FindTemplates(Reading& reading) {
  for (std::size_t i = 0; i < reading.bindings.size(); ++i) {
    const Part& binding = reading.bindings[i];
    const Item& item = reading.items[binding.item];
    // A second binding has nothing to say, and a mark says more than any binding.
    const bool isTaken = item.element->Metaclass() == metaclasses::templateInstantiation;
    if (!IsClassifier(item.type) || item.Has(Item::kMarked) || isTaken) continue;
    const ItemIndex generic = TemplateOf(reading, binding);
    if (generic == kNoItem || !IsTemplateName(reading.items.NameOf(generic))) continue;
    item.element->SetMetaclass(metaclasses::templateInstantiation);
    item.element->SetEntity(properties::instanceOf, reading.items[generic].element);
    reading.instantiations.push_back({binding.item, i});
  }
  std::sort(reading.instantiations.begin(), reading.instantiations.end(),
            [](const Instantiation& a, const Instantiation& b) { return a.item < b.item; });
}

void FillTemplates(Reading& reading, Values& values) { Filler(reading, values).Run(); }

}  // namespace xmi
