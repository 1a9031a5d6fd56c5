#include "xmi/passes/dependencies.h"

namespace xmi {
namespace {

// How much a reference says about the supplier of a dependency; 0 for nothing.
int SupplierRank(Word type, Word feature) {
  switch (feature) {
    case Word::kImportedPackage:
      return type == Word::kPackageImport ? 4 : 0;
    case Word::kContract:
      return type == Word::kInterfaceRealization ? 4 : 1;
    case Word::kSupplier:
      return 3;
    case Word::kUtilizedElement:
      return 2;
    default:
      return 0;
  }
}

bool IsSupplier(Word feature) { return feature == Word::kSupplier || feature == Word::kContract; }

}  // namespace

void Dependencies::Set() {
  Lists lists;
  AddDeclared(lists);
  std::size_t next = 0;
  for (std::size_t i = 0; i < reading_.items.Size(); ++i) {
    const auto index = static_cast<ItemIndex>(i);
    const std::span<const Link> links = reading_.LinksOf(index, next);
    if (IsDependency(reading_.items[index].type)) SetOne(index, links, lists);
  }
  lists.Store(reading_, properties::clientDependency);
}

// Those that an element lists itself stand before the others.
void Dependencies::AddDeclared(Lists& lists) {
  for (const Link& link : reading_.links) {
    if (link.feature != Word::kClientDependency || link.to == kNoItem) continue;
    if (IsDependency(reading_.items[link.to].type)) Add(link.from, link.to, lists);
  }
}

void Dependencies::Add(ItemIndex client, ItemIndex dependency, Lists& lists) {
  const std::uint64_t pair = static_cast<std::uint64_t>(client) << 32 | dependency;
  if (known_.insert(pair).second) lists.Add(client, reading_.items[dependency].element);
}

void Dependencies::SetOne(ItemIndex index, std::span<const Link> links, Lists& lists) {
  const Item& item = reading_.items[index];
  ItemIndex client = kNoItem;
  ItemIndex supplier = kNoItem;
  int best = 0;
  bool namesClient = false;
  bool namesSupplier = false;
  for (const Link& link : links) {
    const int rank = SupplierRank(item.type, link.feature);
    namesClient = namesClient || link.feature == Word::kClient;
    namesSupplier = namesSupplier || rank != 0;
    if (link.to == kNoItem || reading_.items[link.to].element == nullptr) continue;
    if (rank > best) {
      best = rank;
      supplier = link.to;
    }
    if (link.feature != Word::kClient) continue;
    if (client == kNoItem) client = link.to;
    Add(link.to, index, lists);
  }
  if (client == kNoItem && item.owner != kNoItem) {
    client = item.owner;
    if (!item.Has(Item::kMember)) Add(client, index, lists);
  }
  if (item.Has(Item::kMember) && (!namesClient || !namesSupplier)) {
    reading_.Warn(index, "dependency-incomplete",
                  reading_.Describe(index) + " names no " + (namesClient ? "supplier" : "client"));
  }
  if (client != kNoItem) {
    item.element->SetEntity(properties::client, reading_.items[client].element);
  }
  if (supplier != kNoItem) {
    item.element->SetEntity(properties::supplier, reading_.items[supplier].element);
  }
  SetKeyword(item);
}

void Dependencies::SetKeyword(const Item& item) {
  if (item.type == Word::kManifestation)
    reading_.model.AddKeyword(*item.element, keywords::manifest.Text());
  if (item.type != Word::kPackageImport) return;
  const std::string_view visibility = item.element->Text(properties::visibility);
  if (visibility.empty() || visibility == values::publicVisibility) {
    reading_.model.AddKeyword(*item.element, keywords::import.Text());
  } else if (visibility == values::privateVisibility) {
    reading_.model.AddKeyword(*item.element, keywords::access.Text());
  }
}

void Dependencies::SetGeneralizations() {
  Lists lists;
  for (std::size_t i = 0; i < reading_.items.Size(); ++i) {
    const auto index = static_cast<ItemIndex>(i);
    const Item& item = reading_.items[index];
    if (item.owner == kNoItem || item.Has(Item::kMember)) continue;
    if (item.type == Word::kGeneralization) lists.Add(item.owner, item.element);
    if (item.type != Word::kInterfaceRealization || !TakesRealizations(item.owner)) continue;
    item.element->SetEntity(properties::parent, item.element->Entity(properties::supplier));
    lists.Add(item.owner, item.element);
  }
  std::size_t next = 0;
  for (std::size_t i = 0; i < reading_.items.Size(); ++i) {
    const auto index = static_cast<ItemIndex>(i);
    AddRealizations(index, reading_.LinksOf(index, next), lists);
  }
  lists.Store(reading_, properties::generalization);
}

// UML lets no class specialise an interface, so these realize the interfaces that they support.
bool Dependencies::TakesRealizations(ItemIndex classifier) const {
  const model::Element* element = reading_.items[classifier].element;
  if (element == nullptr) return false;
  for (const model::Symbol mark :
       {stereotypes::corbaValue, stereotypes::corbaComponent, stereotypes::corbaHome}) {
    if (element->Application(mark) != nullptr) return true;
  }
  return false;
}

// Realizations that stand elsewhere than in their client.
void Dependencies::AddRealizations(ItemIndex index, std::span<const Link> links, Lists& lists) {
  const Item& item = reading_.items[index];
  if (item.type != Word::kRealization && item.type != Word::kInterfaceRealization) return;
  for (const Link& client : links) {
    if (client.feature != Word::kClient || client.to == kNoItem) continue;
    const bool isOwners = client.to == item.owner && !item.Has(Item::kMember);
    if (isOwners || !TakesRealizations(client.to)) continue;
    std::unordered_set<ItemIndex> suppliers;
    for (const Link& supplier : links) {
      const bool isKnown = IsSupplier(supplier.feature) && supplier.to != kNoItem;
      if (isKnown && suppliers.insert(supplier.to).second) {
        AddParent(index, client.to, supplier.to, lists);
      }
    }
  }
}

// One realization can stand for several pairs of client and supplier; those behind the first need
// elements of their own.
void Dependencies::AddParent(ItemIndex realization, ItemIndex client, ItemIndex supplier,
                             Lists& lists) {
  model::Element* element = reading_.items[realization].element;
  model::Element* parent = reading_.items[supplier].element;
  const model::Element* const present = element->Entity(properties::parent);
  if (present != nullptr && present != parent) {
    element = &reading_.model.Create(element->Metaclass());
  }
  element->SetEntity(properties::parent, parent);
  lists.Add(client, element);
}

}  // namespace xmi
