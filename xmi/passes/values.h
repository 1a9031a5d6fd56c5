// Reads value specifications: bounds of multiplicities, sizes in templates, default values; and
// finds the constants and enumerators that names in them mean.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "xmi/tables/reading.h"

namespace xmi {

/// Finds constants by name. The model isn't gone through before it is first asked.
class Constants {
 public:
  explicit Constants(const Reading& reading) : reading_(reading) {}

  /// The constant that a name means where `from` stands: it is looked for in each of the owners
  /// outward; a "::"-qualified name starts below the root. `kNoItem` when there is none.
  ItemIndex Find(ItemIndex from, std::string_view name);
  /// The literal of an enumeration, by its name or its qualified name.
  ItemIndex FindLiteral(ItemIndex enumeration, std::string_view name);
  /// True for an attribute that is a constant.
  bool IsConstant(ItemIndex item) const;

 private:
  struct Key {
    ItemIndex scope;
    std::string_view name;
    bool operator==(const Key&) const = default;
  };
  struct KeyHash {
    std::size_t operator()(const Key& key) const {
      return std::hash<std::string_view>()(key.name) + key.scope * 0x9E3779B97F4A7C15u;
    }
  };

  void Index();
  void IndexQualified();

  const Reading& reading_;
  bool isIndexed_ = false;
  bool isQualifiedIndexed_ = false;
  std::unordered_map<Key, ItemIndex, KeyHash> constants_;  // by owner and name
  std::unordered_map<Key, ItemIndex, KeyHash> literals_;   // by enumeration and name
  std::unordered_map<std::string, ItemIndex> qualified_;
};

/// A bound or size.
struct Bound {
  enum Kind {
    kNumber,
    kUnbounded,
    kName,        ///< Names a constant, or what should be one.
    kUnreadable,  ///< None of these.
  };
  Kind kind = kUnreadable;
  std::string text;              ///< The number or the name.
  ItemIndex constant = kNoItem;  ///< That the name means; `kNoItem` when it means nothing.
};

class Values {
 public:
  explicit Values(Reading& reading) : reading_(reading), constants_(reading) {}

  Bound ReadBound(const ValueSpec& value);
  /// The element of a default value; null for none. `value.item` is the property.
  model::Element* ReadDefault(const ValueSpec& value);

  // Equal values share their element.

  /// The "Ident" of a name; of a constant unless `definition` is `kNoItem`.
  model::Element& Ident(std::string_view name, ItemIndex definition);
  /// The element of a bound that is readable.
  model::Element& ElementOf(const Bound& bound);

 private:
  model::Element& Shared(model::Symbol metaclass, std::string_view text);
  model::Element* ReadString(const ValueSpec& value);
  model::Element* ReadInstance(const ValueSpec& value);
  model::Element* ReadOpaque(const ValueSpec& value, std::string_view text);
  ItemIndex InstanceOf(const ValueSpec& value);
  Bound BoundOfText(const ValueSpec& value, std::string_view text, bool mayBeName);
  Bound BoundOfInstance(const ValueSpec& value);
  const ValueSpec* SpecificationOf(ItemIndex instance);

  Reading& reading_;
  Constants constants_;
  std::unordered_map<std::string, model::Element*> shared_;
  std::optional<std::unordered_map<ItemIndex, std::size_t>> specifications_;
};

/// A value that stands somewhere below `item`, in the file of `source`, perhaps as its root.
ValueSpec MakeValueSpec(ItemIndex item, ItemIndex source, pugi::xml_node node);

}  // namespace xmi
