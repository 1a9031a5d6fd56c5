// Reads value specifications: bounds of multiplicities, sizes in templates, default values.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "xmi/passes/constants.h"
#include "xmi/passes/resolver.h"
#include "xmi/tables/reading.h"

namespace xmi {

/// A bound or size.
struct Bound {
  enum Kind {
    kNumber,
    kUnbounded,
    kName,        ///< Names a constant, or what should be one.
    kUnreadable,  ///< Neither.
  };
  Kind kind = kUnreadable;
  std::string text;              ///< The number or the name.
  ItemIndex constant = kNoItem;  ///< That the name means; `kNoItem` when it means nothing.
};

class Values {
 public:
  Values(Reading& reading, Resolver& resolver)
      : reading_(reading), resolver_(resolver), constants_(reading) {}

  Bound ReadBound(const ValueNode& value);
  /// The element of a default value; null for none. `value.item` is the property.
  model::Element* ReadDefault(const ValueNode& value);

  /// The "IntegerValue" of a number or "*"; "Ident" of a name. Equal values share their element.
  model::Element& Integer(std::string_view text);
  model::Element& Ident(std::string_view name, ItemIndex definition);
  /// The element of a bound that is readable.
  model::Element& ElementOf(const Bound& bound);

 private:
  model::Element& Shared(model::Symbol metaclass, std::string_view text);
  model::Element* ReadString(const ValueNode& value);
  model::Element* ReadInstance(const ValueNode& value);
  model::Element* ReadOpaque(const ValueNode& value, std::string_view text);
  ItemIndex InstanceOf(const ValueNode& value);
  Bound BoundOfText(const ValueNode& value, std::string_view text, bool mayBeName);
  Bound BoundOfInstance(const ValueNode& value);
  const ValueNode* SpecificationOf(ItemIndex instance);

  Reading& reading_;
  Resolver& resolver_;
  Constants constants_;
  std::unordered_map<std::string, model::Element*> shared_;
  std::optional<std::unordered_map<ItemIndex, std::size_t>> specifications_;
};

/// A value that stands somewhere below `item`, in the file of `source`, perhaps as its root.
ValueNode MakeValueNode(ItemIndex item, ItemIndex source, pugi::xml_node node);

}  // namespace xmi
