// Turns what was read into what elements answer about each other: members, parameters, parents,
// comments.
#pragma once

#include <span>

#include "xmi/passes/types.h"
#include "xmi/tables/lists.h"
#include "xmi/tables/reading.h"

namespace xmi {

class Relations {
 public:
  Relations(Reading& reading, Types& types) : reading_(reading), types_(types) {}

  /// Gives the model's own primitive types the names that the agent knows.
  void NamePrimitives();
  /// Works off the links that answer by themselves: types, parents, exceptions and signals.
  void SetLinks();
  /// Roots, members, parameters and literals. After `SetLinks`.
  void SetMembers();
  void SetComments();

 private:
  void SetLink(const Link& link, Lists& exceptions);
  void AddMember(ItemIndex index, Lists& members);
  void AddComment(ItemIndex index, std::span<const Link> links, Lists& comments);
  bool IsParameter(const Item& item) const;

  Reading& reading_;
  Types& types_;
};

}  // namespace xmi
