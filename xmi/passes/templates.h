// Turns classifiers that bind one of the known templates into "TemplateInstantiation"s.
#pragma once

#include <cstdint>
#include <vector>

#include "xmi/passes/resolver.h"
#include "xmi/passes/types.h"
#include "xmi/passes/values.h"
#include "xmi/tables/reading.h"

namespace xmi {

class Templates {
 public:
  Templates(Reading& reading, Resolver& resolver) : reading_(reading), resolver_(resolver) {}

  /// Finds the instantiations. Before any element is given its type.
  void Find();
  /// Gives them their actual parameters.
  void Fill(Values& values, Types& types);

 private:
  struct Instantiation {
    ItemIndex item;
    const Part* binding;
    std::vector<model::Element*> actuals;
    std::vector<ItemIndex> nested;  // the actuals that are instantiations themselves
  };

  ItemIndex TemplateOf(const Part& binding);
  void FillOne(Instantiation& instantiation, Values& values, Types& types);
  /// `source` is an item of the file in which the substitution stands.
  void AddActuals(Instantiation& instantiation, pugi::xml_node substitution, ItemIndex source,
                  Values& values, Types& types);
  void AddOwned(Instantiation& instantiation, pugi::xml_node actual, ItemIndex source,
                Values& values);
  void AddReferred(Instantiation& instantiation, ItemIndex actual, std::string_view text,
                   Values& values, Types& types);
  void CutCycles(Values& values);
  void Cut(Instantiation& instantiation, ItemIndex nested, Values& values);

  Reading& reading_;
  Resolver& resolver_;
  std::vector<Instantiation> instantiations_;  // in the order of their items
};

}  // namespace xmi
