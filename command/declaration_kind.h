// Which IDL declaration a model element becomes, as far as the command has to know it.
//
// The agent decides this for itself when it exports (tree/); what the command says about a model
// before and after the export has to follow the same tables.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "model/element.h"

namespace command {

enum class DeclarationKind : std::uint8_t {
  kModule,
  kInterface,
  kValue,
  kEvent,
  kHome,
  kComponent,
  kComposition,
  kHomeExecutor,
  kSegment,
  kStruct,
  kUnion,
  kException,
  kEnum,
  kTypedef,
  kSequence,
  kBoxedValue,
  kConstant,
  kAttribute,
  kOperation,
  kFactory,  // and a finder: neither is inherited
  kParameter,
  kField,
  kState,
  kCase,
  kEnumerator,
  kPort,
};

/// What users call it: "struct", "operation".
std::string_view WordFor(DeclarationKind kind);

/// Whether an element carries a stereotype or a keyword of that name.
bool IsMarked(const model::Element& element, model::Symbol name);

/// What a member of a declaration becomes; nothing for one that isn't written.
std::optional<DeclarationKind> KindOfMember(DeclarationKind owner, model::Element& member);

/// What a supplier of one of an artifact's manifestations becomes; nothing for one that isn't
/// written.
std::optional<DeclarationKind> KindAtTop(const model::Element& supplier);

/// The property that lists what stands inside a declaration.
model::Symbol MembersOf(DeclarationKind kind);

/// The property whose first element is a port's type; nothing for a port without a meaning in IDL.
std::optional<model::Symbol> TypingOf(const model::Element& port);

/// Whether an interface, a value or event type, a home or a component.
constexpr bool InheritsMembers(DeclarationKind kind) {
  return kind == DeclarationKind::kInterface || kind == DeclarationKind::kValue ||
         kind == DeclarationKind::kEvent || kind == DeclarationKind::kHome ||
         kind == DeclarationKind::kComponent;
}

}  // namespace command
