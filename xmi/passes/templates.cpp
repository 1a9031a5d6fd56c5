#include "xmi/passes/templates.h"

#include <algorithm>

#include "xmi/text/start_tag.h"

namespace xmi {
namespace {

bool IsTemplateName(std::string_view name) {
  return name == "sequence" || name == "string" || name == "wstring" || name == "fixed" ||
         name == "array";
}

// Calls `visit(text, isHref)` for the targets of a reference: an attribute of ids or child
// elements.
template <typename Visitor>
void ForEachTarget(pugi::xml_node node, const char* feature, const Visitor& visit) {
  ForEachWord(node.attribute(feature).value(), [&](std::string_view id) { visit(id, false); });
  for (const pugi::xml_node child : node.children(feature)) {
    const std::string_view href = LocalAttribute(child, "href", false);
    const std::string_view idref = LocalAttribute(child, "idref", true);
    if (!href.empty()) visit(href, true);
    if (href.empty() && !idref.empty()) visit(idref, false);
  }
}

}  // namespace

void Templates::Find() {
  for (const Part& binding : reading_.bindings) {
    const Item& item = reading_.items[binding.item];
    const bool taken = item.element->Metaclass() == metaclasses::templateInstantiation;
    if (!IsClassifier(item.type) || item.Has(Item::kMarked) || taken) continue;
    const ItemIndex generic = TemplateOf(binding);
    if (generic == kNoItem || !IsTemplateName(reading_.items.NameOf(generic))) continue;
    item.element->SetMetaclass(metaclasses::templateInstantiation);
    item.element->SetEntity(properties::instanceOf, reading_.items[generic].element);
    instantiations_.push_back({binding.item, &binding, {}, {}});
  }
  std::sort(instantiations_.begin(), instantiations_.end(),
            [](const Instantiation& a, const Instantiation& b) { return a.item < b.item; });
}

// A signature's id is an id inside of the template.
ItemIndex Templates::TemplateOf(const Part& binding) {
  ItemIndex generic = kNoItem;
  const FileIndex file = reading_.items[binding.source].file;
  ForEachTarget(binding.node, "signature", [&](std::string_view text, bool isHref) {
    const IdTarget* entry = resolver_.FindEntry(file, text, isHref);
    if (entry == nullptr) {
      resolver_.Find(binding.source, "signature", text, isHref);  // for its warning
    } else if (generic == kNoItem) {
      generic = entry->item;
    }
  });
  return generic;
}

void Templates::Fill(Values& values, Types& types) {
  for (Instantiation& instantiation : instantiations_) FillOne(instantiation, values, types);
  CutCycles(values);
  for (const Instantiation& instantiation : instantiations_) {
    reading_.items[instantiation.item].element->SetEntities(properties::actualTemplateParameter,
                                                            instantiation.actuals);
  }
}

void Templates::FillOne(Instantiation& instantiation, Values& values, Types& types) {
  const Part& binding = *instantiation.binding;
  for (const pugi::xml_node given : binding.node.children("parameterSubstitution")) {
    const std::string_view href = LocalAttribute(given, "href", false);
    if (href.empty()) {
      AddActuals(instantiation, given, binding.source, values, types);
      continue;
    }
    const ItemIndex root = resolver_.FindRoot(binding.source, "parameterSubstitution", href,
                                              Word::kTemplateParameterSubstitution);
    if (root != kNoItem) {
      AddActuals(instantiation, reading_.RootNode(root), root, values, types);
    }
  }
}

void Templates::AddActuals(Instantiation& instantiation, pugi::xml_node substitution,
                           ItemIndex source, Values& values, Types& types) {
  const pugi::xml_node owned = substitution.child("ownedActual");
  if (owned && LocalAttribute(owned, "href", false).empty()) {
    for (const pugi::xml_node actual : substitution.children("ownedActual")) {
      AddOwned(instantiation, actual, source, values);
    }
    return;
  }
  ForEachTarget(substitution, owned ? "ownedActual" : "actual",
                [&](std::string_view text, bool isHref) {
                  const ItemIndex actual = resolver_.Find(source, "actual", text, isHref);
                  const pugi::xml_node root = reading_.RootNode(actual);
                  if (root && IsValue(reading_.items[actual].type)) {
                    AddOwned(instantiation, root, actual, values);
                  } else {
                    AddReferred(instantiation, actual, text, values, types);
                  }
                });
}

void Templates::AddOwned(Instantiation& instantiation, pugi::xml_node actual, ItemIndex source,
                         Values& values) {
  const ValueNode value = MakeValueNode(instantiation.item, source, actual);
  const Bound bound = values.ReadBound(value);
  model::Element* element = nullptr;
  if (bound.kind != Bound::kUnreadable) {
    element = &values.ElementOf(bound);
  } else if (!IsClassifier(value.type)) {
    reading_.Warn(instantiation.item, "template-parameter-unreadable",
                  "a template parameter of " + reading_.Describe(instantiation.item) +
                      " is neither a number nor a name");
    element = values.ReadDefault(value);
  }
  if (element == nullptr) element = &values.Ident(LocalAttribute(actual, "name", false), kNoItem);
  instantiation.actuals.push_back(element);
}

void Templates::AddReferred(Instantiation& instantiation, ItemIndex actual, std::string_view text,
                            Values& values, Types& types) {
  if (actual == kNoItem || reading_.items[actual].element == nullptr) {
    instantiation.actuals.push_back(&values.Ident(text, kNoItem));
    return;
  }
  model::Element& element = *reading_.items[actual].element;
  if (element.Metaclass() == metaclasses::templateInstantiation) {
    instantiation.actuals.push_back(&element);
    instantiation.nested.push_back(actual);
  } else {
    instantiation.actuals.push_back(&types.IdentOf(actual));
  }
}

// A template that is its own parameter would have no end: there it is cut.
void Templates::CutCycles(Values& values) {
  enum State : std::uint8_t { kNew, kOpen, kDone };
  std::vector<State> states(instantiations_.size(), kNew);
  const auto indexOf = [this](ItemIndex item) {
    const auto found =
        std::lower_bound(instantiations_.begin(), instantiations_.end(), item,
                         [](const Instantiation& a, ItemIndex wanted) { return a.item < wanted; });
    return static_cast<std::size_t>(found - instantiations_.begin());
  };
  struct Step {
    std::size_t index;
    std::size_t next;
  };
  std::vector<Step> path;
  for (std::size_t start = 0; start < instantiations_.size(); ++start) {
    if (states[start] == kNew) path.push_back({start, 0});
    while (!path.empty()) {
      Step& step = path.back();
      Instantiation& instantiation = instantiations_[step.index];
      states[step.index] = kOpen;
      if (step.next == instantiation.nested.size()) {
        states[step.index] = kDone;
        path.pop_back();
        continue;
      }
      const ItemIndex nested = instantiation.nested[step.next++];
      const std::size_t index = indexOf(nested);
      if (states[index] == kOpen) Cut(instantiation, nested, values);
      if (states[index] == kNew) path.push_back({index, 0});
    }
  }
}

void Templates::Cut(Instantiation& instantiation, ItemIndex nested, Values& values) {
  reading_.Warn(instantiation.item, "template-recursive",
                "the template instantiation " + reading_.Describe(instantiation.item) +
                    " is a part of itself");
  model::Element& cut = values.Ident(reading_.items.NameOf(nested), kNoItem);
  std::replace(instantiation.actuals.begin(), instantiation.actuals.end(),
               reading_.items[nested].element, &cut);
}

}  // namespace xmi
