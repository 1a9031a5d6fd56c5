// What the reader knows of each element that it made: where it stands and who owns it.
//
// Items stand in document order, owners before what they own; while files are read, file after
// file, then as if all were one.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/element.h"
#include "model/vocabulary.h"
#include "xmi/text/words.h"

namespace xmi {

// The reader speaks of the model all the time.
namespace keywords = model::keywords;
namespace metaclasses = model::metaclasses;
namespace properties = model::properties;
namespace stereotypes = model::stereotypes;
namespace tags = model::tags;
namespace values = model::values;

using ItemIndex = std::uint32_t;
using FileIndex = std::uint16_t;

inline constexpr ItemIndex kNoItem = 0x7FFFFFFF;

struct Item {
  enum Flag : std::uint8_t {
    kConjugated = 1,   ///< `isConjugated` of a port
    kTyped = 2,        ///< names a type, known or not
    kTypedVoid = 4,    ///< names a type "void"
    kHolder = 8,       ///< a class that holds the constants of its package
    kMarked = 16,      ///< a stereotype of the CORBA profile is applied
    kMember = 32,      ///< is one of its owner's members
    kOverridden = 64,  ///< a stereotype decided its metaclass
  };

  model::Element* element = nullptr;  ///< Null for the placeholder of an element of another file.
  ItemIndex owner = kNoItem;
  std::uint32_t offset = 0;  ///< In the file's text.
  FileIndex file = 0;
  Word type = Word::kNone;  ///< The UML type; `kNone` for one without a word.
  std::uint8_t flags = 0;

  bool Has(Flag flag) const { return (flags & flag) != 0; }
};

/// Makes room for so many more entries; if that is asked often, all entries move but a few times.
template <typename Entry>
void ReserveMore(std::vector<Entry>& list, std::size_t more) {
  const std::size_t wanted = list.size() + more;
  if (wanted > list.capacity()) list.reserve(std::max(wanted, 2 * list.capacity()));
}

class Items {
 public:
  ItemIndex Add(const Item& item);
  ItemIndex Size() const { return static_cast<ItemIndex>(items_.size()); }
  /// Makes room for so many more.
  void Reserve(std::size_t more) { ReserveMore(items_, more); }
  Item& operator[](ItemIndex index) { return items_[index]; }
  const Item& operator[](ItemIndex index) const { return items_[index]; }

  std::string_view NameOf(ItemIndex index) const;
  /// The owner in which an element has its name: the package for the constants of a holder.
  ItemIndex ScopeOf(ItemIndex index) const;
  /// The outermost owner; the item itself when it has none.
  ItemIndex RootOf(ItemIndex index) const;
  /// The "::"-qualified name below the root; empty for a root.
  std::string QualifiedName(ItemIndex index) const;
  /// The same for people: the outer names of a deep element and the end of a long name are left
  /// out.
  std::string ShortName(ItemIndex index) const;
  /// Gives every item its new index: `order` holds the old ones in the new order, `numbers` the new
  /// ones by the old.
  void Renumber(const std::vector<ItemIndex>& order, const std::vector<ItemIndex>& numbers);
  /// The item of an element; `kNoItem` for one that stands in no file. Slow when first called.
  ItemIndex Find(const model::Element& element) const;

 private:
  std::vector<Item> items_;
  mutable std::vector<ItemIndex> byAddress_;
  mutable std::size_t sortedSize_ = 0;
};

/// A name, or the beginning of a very long one.
std::string Shortened(std::string_view name);

/// Leaves out what stands in the list already.
void RemoveRepeated(std::vector<ItemIndex>& list);

/// Collects the entries of a multi-valued property of many elements, then stores each list once.
///
/// Entries are put down in any order of owners and keep their order within each owner. So no list
/// grows in the model, and the work is proportional to the entries.
class Lists {
 public:
  void Add(ItemIndex owner, model::Element* entry) { entries_.push_back({owner, entry}); }
  /// Gives every owner its list.
  void Store(const Items& items, model::Symbol property) const;

 private:
  struct Entry {
    ItemIndex owner;
    model::Element* element;
  };
  std::vector<Entry> entries_;
};

}  // namespace xmi
