// Finds the constants and enumerators that names in values and bounds mean.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

#include "xmi/tables/reading.h"

namespace xmi {

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
  ItemIndex FindQualified(std::string_view name);

  const Reading& reading_;
  bool isIndexed_ = false;
  bool isQualifiedIndexed_ = false;
  std::unordered_map<Key, ItemIndex, KeyHash> constants_;  // by owner and name
  std::unordered_map<Key, ItemIndex, KeyHash> literals_;   // by enumeration and name
  std::unordered_map<std::string, ItemIndex> qualified_;
};

}  // namespace xmi
