#include "tree/node_registry.h"

#include <algorithm>
#include <cassert>
#include <list>
#include <string>
#include <utility>

#include "agent/vocabulary.h"
#include "host/model.h"
#include "host/model_access.h"
#include "tree/node.h"
#include "types/identifier.h"

namespace mdktoidl {

NodeRegistry nodeRegistry;

// Elements that lie in one stretch of memory, a page, keep their order in the table; where the page
// itself goes is as good as random.
std::size_t ElementTable::PlaceOf(const mdk::IMdeEntity* element) const {
  constexpr int pageBits = 12;
  constexpr int placeBits = 6;
  const auto address = reinterpret_cast<std::uintptr_t>(element);
  const std::uint64_t page = (address >> pageBits) * 0x9E3779B97F4A7C15U;
  const std::size_t inPage = (address >> placeBits) & ((1U << (pageBits - placeBits)) - 1);
  return ((page >> 26) + inPage) & (entries_.size() - 1);
}

const ElementEntry* ElementTable::Find(const mdk::IMdeEntity* element) const {
  if (entries_.empty()) return nullptr;
  std::size_t place = PlaceOf(element);
  while (entries_[place].element != nullptr && entries_[place].element != element) {
    place = (place + 1) & (entries_.size() - 1);
  }
  return entries_[place].element == nullptr ? nullptr : &entries_[place];
}

ElementEntry& ElementTable::Make(const mdk::IMdeEntity* element) {
  if (2 * used_ >= entries_.size()) Grow();
  std::size_t place = PlaceOf(element);
  while (entries_[place].element != nullptr && entries_[place].element != element) {
    place = (place + 1) & (entries_.size() - 1);
  }
  if (entries_[place].element == nullptr) {
    entries_[place].element = element;
    ++used_;
  }
  return entries_[place];
}

void ElementTable::Grow() {
  constexpr std::size_t least = 64;
  std::vector<ElementEntry> before(std::max(least, 2 * entries_.size()));
  before.swap(entries_);
  for (const ElementEntry& entry : before) {
    if (entry.element == nullptr) continue;
    std::size_t place = PlaceOf(entry.element);
    while (entries_[place].element != nullptr) place = (place + 1) & (entries_.size() - 1);
    entries_[place] = entry;
  }
}

std::uint32_t NodeRegistry::Enter(Node* node, std::string_view name) {
  const auto serial = static_cast<std::uint32_t>(nodes_.size());
  nodes_.push_back(node);
  nameHashes_.push_back(0);
  Rename(serial, name);
  return serial;
}

void NodeRegistry::Rename(std::uint32_t serial, std::string_view name) {
  nameHashes_[serial] = HashOfName(name);
  if (!IsIdentifier(name) || IsEscaped(name) || MayBeKeyword(name, nameHashes_[serial])) {
    doubtfulNames_.push_back(serial);
  }
}

void NodeRegistry::Reorder(std::vector<Node*> order) {
  assert(order.size() == nodes_.size());
  std::vector<std::uint32_t> hashes(nameHashes_.size());
  for (std::size_t before = 0; before < nodes_.size(); ++before) {
    hashes[nodes_[before]->Serial()] = nameHashes_[before];
  }
  for (std::uint32_t& doubtful : doubtfulNames_) doubtful = nodes_[doubtful]->Serial();
  for (ElementEntry& entry : elements_.Entries()) {
    if (entry.node != 0) entry.node = nodes_[entry.node - 1]->Serial() + 1;
  }
  nodes_ = std::move(order);
  nameHashes_ = std::move(hashes);
}

void NodeRegistry::Register(const mdk::IMdeEntity* element, std::uint32_t serial) {
  elements_.Make(element).node = serial + 1;
}

Node* NodeRegistry::Find(const mdk::IMdeEntity* element) const {
  const ElementEntry* entry = elements_.Find(element);
  return entry == nullptr || entry->node == 0 ? nullptr : nodes_[entry->node - 1];
}

void NodeRegistry::BeginTree(const mdk::IMdeEntity* element) {
  ++tree_;
  Take(element);
}

bool NodeRegistry::Take(const mdk::IMdeEntity* element) {
  return std::exchange(elements_.Make(element).tree, tree_) != tree_;
}

std::string_view NodeRegistry::Store(std::string_view text) {
  if (text.empty()) return {};
  auto* copy = static_cast<char*>(memory_.allocate(text.size(), 1));
  return {copy, text.copy(copy, text.size())};
}

// An empty list in braces would leave a vector its memory.
void NodeRegistry::Clear() {
  uses_.clear();
  elements_ = ElementTable();
  nodes_ = decltype(nodes_)();
  nameHashes_ = decltype(nameHashes_)();
  doubtfulNames_ = decltype(doubtfulNames_)();
  memory_.release();
  tree_ = 0;
}

namespace {

/// The stereotype of the tags; null when the host has none.
mdk::IMdeEntity* TagStereotype(mdk::IMdeEntity* element) {
  mdk::IMdeEntity* session = element->GetEntity(properties::session, 0);
  if (session == nullptr) return nullptr;
  void* model = nullptr;
  session->QueryInterface(mdk::IMdeModel::guid, &model);
  if (model == nullptr) return nullptr;
  return static_cast<mdk::IMdeModel*>(model)->FindEntity("@CORBA@Node");
}

}  // namespace

void deleteNodeStereotypes(mdk::IMdeEntity* element) {
  mdk::IMdeEntity* stereotype = TagStereotype(element);
  if (stereotype == nullptr) return;
  std::list<mdk::IMdeEntity*> instances;
  stereotype->GetReferrers(properties::instanceOf, instances);
  instances.remove(nullptr);
  for (mdk::IMdeEntity* instance : instances) instance->Delete(mdkdll::defaultChanger);
}

}  // namespace mdktoidl
