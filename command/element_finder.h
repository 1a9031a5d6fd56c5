// Finds the model element that a message of the agent names.
//
// The agent names declarations by where they stand in the IDL: below the modules and interfaces
// that the artifact manifests, wherever these stand in the model. So names are followed from there.
// Not for names that users give; see artifact_choice.h.
#pragma once

#include <deque>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "command/diagnostic.h"
#include "command/message_patterns.h"
#include "model/element.h"
#include "xmi/reader.h"

namespace command {

/// Tells where an element stands and what it is called.
void PointAt(const xmi::Reader& reader, const model::Element& element, Diagnostic& diagnostic);

/// Looks at the members of a scope when the first name in it is sought, and but once. The model
/// must keep its members and their names meanwhile.
class ElementFinder {
 public:
  /// Finds what an export of the artifact says; borrows the artifact.
  explicit ElementFinder(const model::Element& artifact);

  /// The element that the message is about. Among several of the name the first of the kind that
  /// the message speaks of, a stereotyped one if there is one. When no element has the name, the
  /// innermost scope on the way to it, and the artifact when there is none.
  const model::Element& Find(const MessageMeaning& message);

 private:
  struct Member {
    std::string_view name;
    const model::Element* element;
  };
  /// By name, and in the model's order among equals.
  using Members = std::vector<Member>;
  using SameNamed = std::span<const Member>;

  /// What all elements that share a scoped name have below them.
  struct Scope {
    Members members;
    std::unordered_map<const Member*, Scope*> inner;  ///< By the first member of a name.
  };

  static Members SortedByName(const std::vector<const model::Element*>& elements);
  static SameNamed Find(const Members& members, std::string_view name);
  static SameNamed Take(const Members& members, std::optional<std::string_view>& path);

  static const model::Element* Fittest(SameNamed found, Named named);

  const model::Element* FindScoped(std::string_view name, Named named);
  const model::Element* FindPort(std::string_view name);
  Scope& Inner(Scope& scope, SameNamed owners);

  const model::Element& artifact_;
  std::deque<Scope> scopes_;  ///< The first is the top of the IDL.
  std::optional<Members> ports_;
};

}  // namespace command
