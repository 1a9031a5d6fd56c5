// Labels of union cases as IDL writes them for a discriminator.
#pragma once

#include <cstddef>
#include <list>
#include <string>

#include "tree/node.h"

namespace mdktoidl {

class Case;

/// Gives the cases of one union their labels, case by case in their order.
class CaseLabels {
 public:
  /// `place` is the union, whose scope decides how enumerators are spelled.
  CaseLabels(const Node& place, const Alias& discriminatorType, bool isSimpleUnion);

  /// Sets the labels of the next case; reports what is wrong with those that it has.
  void Label(Case& next);

 private:
  std::list<std::string> TakeEnumerator();
  std::string Spell(const std::string& given, const Case& labelled) const;
  std::string SpellEnumerator(const std::string& given, const Case& labelled) const;

  const Node& place_;
  const Enumeration* enumeration_;  // null for a discriminator of another type
  const std::string& primitive_;
  bool isSimpleUnion_;
  std::size_t taken_ = 0;  // how many enumerators the cases of a simple union have taken
};

}  // namespace mdktoidl
