#include "command/message_patterns.h"

#include <optional>
#include <utility>

namespace command {
namespace {

/// The fixed parts of a message, and what they mean.
struct Pattern {
  /// `text` has "{}" for each of the pieces that differ, two at most; the first is the name.
  constexpr Pattern(std::string_view text, std::string_view itsRule, Named itsNamed = Named::kAny)
      : rule(itsRule), named(itsNamed) {
    constexpr std::string_view gap = "{}";
    const std::size_t first = text.find(gap);
    const std::size_t last = text.rfind(gap);
    head = text.substr(0, first);
    pieces = first == text.npos ? 0 : first == last ? 1 : 2;
    if (pieces > 0) tail = text.substr(last + gap.size());
    if (pieces > 1) middle = text.substr(first + gap.size(), last - first - gap.size());
  }

  std::string_view head;
  std::string_view middle;
  std::string_view tail;
  std::string_view rule;
  Named named;
  int pieces = 0;
};

/// A text that another pattern fits as well stands before it.
constexpr Pattern patterns[] = {
    // Modules and ordering
    {"module {} is empty", "module-empty"},
    {"Definition{} cannot be a forward declaration", "forward-impossible"},

    // Structs
    {"struct {} has no members", "struct-no-members"},
    {"Constant not allowed in struct {}; generating non-constant member instead",
     "constant-member"},

    // Attributes, fields and state members; a parameter's bound is an attribute's but for a blank
    {"attribute {} has a multiplicity constant that could not be identified", "bound-unknown",
     Named::kAttribute},
    {"attribute {}has a multiplicity constant that could not be identified", "bound-unknown",
     Named::kParameter},
    {"attribute {} has a type that could not be identified", "type-unknown", Named::kAttribute},
    {"attribute {} has an anonymous template type; consider using a typedef instead",
     "type-anonymous", Named::kAttribute},
    {"attribute {} has a type that is not marked as a CORBA type or not included in the generation",
     "type-not-exported", Named::kAttribute},

    // Constants
    {"constant {} cannot have a multiplicity", "constant-multiplicity", Named::kAttribute},
    {"constant {} has a type that could not be identified", "type-unknown", Named::kAttribute},
    {"constant {} cannot have a template type", "constant-template-type", Named::kAttribute},
    {"constant {} has a type that is not marked as a CORBA type or not included in the generation",
     "type-not-exported", Named::kAttribute},
    {"constant {} has no value", "constant-no-value", Named::kAttribute},
    {"constant {} has a value that is not marked as a CORBA type or not included in the generation",
     "constant-value-not-exported", Named::kAttribute},
    {"constant {} has a value that is not supported", "constant-value-unsupported",
     Named::kAttribute},
    {"constant {}: Circular references between constant values are not allowed",
     "constant-circular", Named::kAttribute},

    // Interfaces and value types
    {"a supertype of interface{} is not marked as a CORBA type", "supertype-not-exported"},
    {"a supertype of value type{} is not marked as a CORBA type", "supertype-not-exported"},
    {"a supertype of event type{} is not marked as a CORBA type", "supertype-not-exported"},
    {"A value type {} cannot be both abstract and custom", "value-abstract-custom"},
    {"A event type {} cannot be both abstract and custom", "value-abstract-custom"},
    {"a custom value type {} cannot have a truncated generalization", "value-custom-truncatable"},
    {"a custom event type {} cannot have a truncated generalization", "value-custom-truncatable"},
    {"a value type{} can only support interfaces", "value-supports-other"},
    {"a event type{} can only support interfaces", "value-supports-other"},

    // Boxed values
    {"boxed value {} should contain one attribute indicating the base type", "base-type-missing"},
    {"boxed value {} should only contain one attribute indicating the base type",
     "base-type-ambiguous"},
    {"boxed value {} cannot have a multiplicity on its type specification",
     "base-type-multiplicity"},
    {"boxed value {} has a type that could not be identified", "type-unknown"},
    {"boxed value {} has a type that is not marked as a CORBA type or not included in the "
     "generation",
     "type-not-exported"},
    {"boxed value {} cannot have an array type; box a typedef of it instead", "base-type-array"},

    // Typedefs
    {"typedef {} should contain either one attribute or a single generalization indicating the "
     "base type",
     "base-type-missing"},
    {"typedef {} should only contain one attribute indicating the base type",
     "base-type-ambiguous"},
    {"typedef {} cannot have a multiplicity on its type specification", "base-type-multiplicity"},
    {"Typedef {} has a type that could not be identified", "type-unknown"},
    {"Typedef {} has a type that could not be identified (template)", "template-unknown"},
    {"Typedef {} has a type that is not marked as a CORBA type or not included in the generation",
     "type-not-exported"},

    // Sequences
    {"sequence {} should contain one attribute indicating the base type", "base-type-missing"},
    {"sequence {} should only contain one attribute indicating the base type",
     "base-type-ambiguous"},
    {"sequence {} cannot have a multiplicity on its base type", "base-type-multiplicity"},
    {"sequence {} has a type that could not be identified", "type-unknown"},
    {"sequence {} has an anonymous template type; consider using a typedef instead",
     "type-anonymous"},
    {"sequence {} has a type that is not marked as a CORBA type or not included in the generation",
     "type-not-exported"},
    {"sequence {} cannot have an array as its base type; use a typedef of it instead",
     "base-type-array"},

    // Unions and their cases
    {"union {} should contain at least one case", "union-no-case"},
    {"union {} must have one attribute specifying its discriminator", "union-no-discriminator"},
    {"union {} has too many attributes specified as discriminator", "union-more-discriminators"},
    {"Constant not allowed in union {}; generating non-constant member instead", "constant-member"},
    {"discriminator of union {} cannot have a multiplicity", "discriminator-multiplicity"},
    {"union {} has a discriminator that could not be identified", "discriminator-unknown"},
    {"union {} cannot have a discriminator that is a template type", "discriminator-template"},
    {"union {} has a discriminator that is not marked as a CORBA type or not included in the "
     "generation",
     "discriminator-not-exported"},
    {"union {} has a discriminator that is no integer, char, boolean or enum",
     "discriminator-type"},
    {"union case {}has a multiplicity constant that could not be identified", "bound-unknown",
     Named::kAttribute},
    {"union case {} has a type that could not be identified", "type-unknown", Named::kAttribute},
    {"union case {} has an anonymous template type; consider using a typedef instead",
     "type-anonymous", Named::kAttribute},
    {"union case {} has a type that is not marked as a CORBA type or not included in the "
     "generation",
     "type-not-exported", Named::kAttribute},
    {"union case {} has a case label that is ignored due to isSimple being set",
     "case-label-ignored", Named::kAttribute},
    {"union case {} has a case label {} that is not present in the union's discriminator type",
     "case-label-unknown", Named::kAttribute},
    {"union case {} has no case label", "case-label-missing", Named::kAttribute},

    // Components and their ports
    {"Component {} cannot have operations", "component-operation"},
    {"Component {} inherits more than one component", "component-more-bases"},
    {"Facet {} lacks realized interface", "port-type-missing"},
    {"Facet {} cannot require interfaces", "port-type-forbidden"},
    {"Facet {} lacks required interface", "port-type-missing"},
    {"Receptacle {} cannot realize interfaces", "port-type-forbidden"},
    {"Facet {} lacks required type", "port-type-missing"},
    {"Event source {} cannot realize types", "port-type-forbidden"},
    {"Facet {} lacks realized type", "port-type-missing"},
    {"Event sink {} cannot require types", "port-type-forbidden"},
    {"Port {} has too many realizes relationships", "port-type-ambiguous", Named::kPort},
    {"Port {} has too many requires relationships", "port-type-ambiguous", Named::kPort},

    // Homes
    {"Home interface {} inherits more than one home interface", "home-more-bases"},
    {"Home interface {} has a supertype (generalization) that is not marked with a proper CORBA "
     "stereotype",
     "home-supertype"},
    {"home interface {} manages more than one component", "home-manages-more"},
    {"home interface {} manages no component that is included in the generation",
     "home-manages-none"},
    {"home interface {} has more than one primary key", "home-more-keys"},

    // Compositions
    {"Component implementation {} has no valid home executor", "composition-no-executor"},
    {"Component implementation {} has more than one home executor", "composition-more-executors"},
    {"Component implementation {} implements more than one component",
     "composition-implements-more"},
    {"A segmented component implementation ({}) can only be a process or entity",
     "composition-segmented"},
    {"Home implementation {} implements more than one home interface", "executor-implements-more"},
    {"Home implementation {} manages more than one component implementation",
     "executor-manages-more"},
    {"Segment {} provides no artifact (no dependencies have been defined)", "segment-no-artifact"},
    {"Segment {} provides no artifact", "segment-no-artifact"},

    // Operations and parameters
    {"operation {} cannot be a factory or finder operation", "operation-creates",
     Named::kOperation},
    {"operation {} is oneway and cannot raise exceptions", "oneway-raises", Named::kOperation},
    {"operation {} raises an undefined exception {}", "exception-undefined", Named::kOperation},
    {"operation {} has a return type that could not be identified", "type-unknown",
     Named::kOperation},
    {"operation {} has an anonymous return template type; consider using a typedef instead",
     "type-anonymous", Named::kOperation},
    {"operation {} has a return type that is not marked as a CORBA type or not included in the "
     "generation",
     "type-not-exported", Named::kOperation},
    {"operation {} has a value-returning parameter (inout, out, or return kind)", "oneway-returns",
     Named::kOperation},
    {"parameter {} has a type that could not be identified", "type-unknown", Named::kParameter},
    {"parameter {} has an anonymous template type; consider using a typedef instead",
     "type-anonymous", Named::kParameter},
    {"parameter {} has a type that is not marked as a CORBA type or not included in the generation",
     "type-not-exported", Named::kParameter},

    // Any container
    {"{} has a member that is declared elsewhere and left out here: {}", "member-declared-twice"},

    // What ends an export, and mentions no element by its scoped name
    {"module {} is nested too deeply", "module-too-deep", Named::kNothing},
    {"Failed to find value for {}", "setting-missing", Named::kNothing},
    {"Failed to interpret ident correctly", "name-unresolved", Named::kNothing},
    {"A parameter of {} template has incorrect type", "template-parameter", Named::kNothing},
    {"Circular references between constant values are not allowed", "bound-circular",
     Named::kNothing},
    {"IDL exporter failed to find root element to export", "nothing-to-export", Named::kNothing},
    {"IDL exporter failed to open file {}", "file-not-opened", Named::kNothing},
};

/// Messages about a multiplicity, which begin with the construct and the name.
constexpr Pattern boundPatterns[] = {
    {"{}: Failed to obtain lower bound of multiplicity", "bound-missing"},
    {"{}: Failed to obtain upper bound of multiplicity", "bound-missing"},
    {"{}: Failed to correctly interpret multiplicity", "bound-not-understood"},
    {"{}: Only integer literals and constants are allowed as multiplicitiy boundaries",
     "bound-not-allowed"},
    {"{}: Circular references between constant values are not allowed", "bound-circular"},
    {"{} cannot have a multiplicity on an array type", "bound-of-array"},
};

constexpr std::pair<std::string_view, Named> constructs[] = {
    {"attribute ", Named::kAttribute},  {"constant ", Named::kAttribute},
    {"operation ", Named::kOperation},  {"parameter ", Named::kParameter},
    {"union case ", Named::kAttribute}, {"union ", Named::kAny},
    {"boxed value ", Named::kAny},      {"sequence ", Named::kAny},
    {"typedef ", Named::kAny},
};

/// The first piece when the text fits the pattern; empty for a pattern without pieces.
std::optional<std::string_view> Fit(std::string_view text, const Pattern& pattern) {
  const std::size_t fixed = pattern.head.size() + pattern.tail.size();
  if (text.size() < fixed || !text.starts_with(pattern.head) || !text.ends_with(pattern.tail)) {
    return std::nullopt;
  }
  const std::string_view pieces = text.substr(pattern.head.size(), text.size() - fixed);
  if (pattern.pieces == 0 && !pieces.empty()) return std::nullopt;
  if (pattern.pieces < 2) return pieces;
  const std::size_t cut = pieces.find(pattern.middle);
  return cut == pieces.npos ? std::nullopt : std::optional(pieces.substr(0, cut));
}

/// Cuts the construct's word off.
MessageMeaning MeaningOfConstruct(std::string_view rule, std::string_view described) {
  for (const auto& [word, named] : constructs) {
    if (described.starts_with(word)) return {rule, named, described.substr(word.size())};
  }
  return {rule, Named::kAny, described};
}

}  // namespace

MessageMeaning MeaningOf(std::string_view message) {
  for (const Pattern& pattern : patterns) {
    const auto piece = Fit(message, pattern);
    if (!piece) continue;
    const bool names = pattern.named != Named::kNothing;
    return {pattern.rule, pattern.named, names ? *piece : std::string_view()};
  }
  for (const Pattern& pattern : boundPatterns) {
    if (const auto piece = Fit(message, pattern)) {
      return MeaningOfConstruct(pattern.rule, *piece);
    }
  }
  return {"unclassified"};
}

}  // namespace command
