#include "diagnostics/rules.h"

#include <algorithm>

namespace diagnostics {
namespace {

constexpr Rule rules[] = {
    // Modules and ordering
    {"module-empty", "A module holds at least one declaration"},
    {"member-declared-twice", "An element is a member of one scope only"},
    {"module-too-deep", "Modules are nested at most 256 deep"},
    {"forward-impossible",
     "A cycle of declarations needs forward declarations, which IDL has for "
     "interfaces, value types, structs, unions and components alone"},
    {"order-circle", "No declarations need each other complete"},
    {"file-circle", "No files of modules need each other complete"},
    {"repaired-order", "Declarations are written where compilers want them"},

    // Types, whatever they are the type of
    {"type-unknown", "Every typed declaration has a type"},
    {"type-anonymous", "Template types are best given a name by a typedef"},
    {"added-typedef", "A type that IDL wants a name for gets one by a typedef"},
    {"named-type", "A type that IDL wants a name for is written as the model's own typedef of it"},
    {"type-not-exported", "A type that is used is marked and part of the export"},
    {"template-unknown", "A type definition is of a template that IDL has"},
    {"template-parameter", "The parameters of a template are those that IDL allows"},
    {"name-unresolved", "A name that stands for an element leads to one"},

    // Structs and constants
    {"struct-no-members", "A struct has members"},
    {"constant-member", "A struct or a union holds no constants"},
    {"constant-multiplicity", "A constant is a single value"},
    {"constant-template-type", "The type of a constant is no template"},
    {"constant-no-value", "A constant has a value"},
    {"constant-value-not-exported", "A constant's value is a constant that is exported, too"},
    {"constant-value-unsupported", "A constant's value fits its type"},
    {"constant-circular", "No constant is defined by itself"},

    // Interfaces and value types
    {"supertype-not-exported", "A supertype is marked and part of the export"},
    {"value-abstract-custom", "A value type is not both abstract and custom"},
    {"value-custom-truncatable", "A custom value type has no truncatable base"},
    {"value-supports-other", "A value type supports interfaces only"},

    // Boxed values, type definitions and sequences
    {"base-type-missing", "A type definition, sequence or boxed value names its base type"},
    {"base-type-ambiguous", "A type definition, sequence or boxed value names one base type only"},
    {"base-type-multiplicity", "The attribute that names a base type has no multiplicity"},
    {"base-type-array", "The base type of a sequence or boxed value is no array"},

    // Unions
    {"union-no-case", "A union has a case"},
    {"union-no-discriminator", "A union has a discriminator"},
    {"union-more-discriminators", "A union has one discriminator only"},
    {"discriminator-multiplicity", "A discriminator is a single value"},
    {"discriminator-unknown", "A discriminator has a type"},
    {"discriminator-template", "The type of a discriminator is no template"},
    {"discriminator-not-exported", "The type of a discriminator is marked and part of the export"},
    {"discriminator-type", "A discriminator is an integer, a char, a boolean or an enumeration"},
    {"case-label-ignored", "The cases of a simple union need no labels"},
    {"case-label-unknown", "A case label is an enumerator of the discriminator's type"},
    {"case-label-missing", "A case has a label, or is the default"},

    // Components, homes and compositions
    {"component-operation", "A component has no operations of its own"},
    {"component-more-bases", "A component inherits one component at most"},
    {"port-type-missing", "A port has the interface or event type that its kind asks for"},
    {"port-type-forbidden", "A port has no interface or event type of the other direction"},
    {"port-type-ambiguous", "A port has one interface or event type only"},
    {"home-more-bases", "A home inherits one home at most"},
    {"home-supertype", "A home's supertypes are homes and interfaces"},
    {"home-manages-more", "A home manages one component only"},
    {"home-manages-none", "A home manages a component that is part of the export"},
    {"home-more-keys", "A home has one primary key at most"},
    {"composition-no-executor", "A component implementation has a complete home executor"},
    {"composition-more-executors", "A component implementation has one home executor only"},
    {"composition-implements-more", "A component implementation implements one component only"},
    {"composition-segmented", "A segmented component implementation is a process or an entity"},
    {"executor-implements-more", "A home executor implements one home only"},
    {"executor-manages-more", "A home executor manages one component implementation only"},
    {"segment-no-artifact", "A segment provides a facet"},

    // Operations
    {"operation-creates", "Factories and finders stand in homes and value types"},
    {"oneway-raises", "A oneway operation raises no exceptions"},
    {"oneway-returns", "A oneway operation gives nothing back"},
    {"exception-undefined", "A raised exception is marked and part of the export"},

    // Multiplicities
    {"bound-unknown", "A bound that is a constant is part of the export"},
    {"bound-missing", "A multiplicity has both its bounds"},
    {"bound-not-understood", "An upper bound is a positive number"},
    {"bound-not-allowed", "A bound is an integer or a constant"},
    {"bound-circular", "No bound depends on itself"},
    {"bound-of-array", "An array type has no multiplicity besides"},

    // What compilers demand of each construct
    {"enum-no-enumerators", "An enumeration has enumerators"},
    {"type-native", "No type is `native`"},
    {"bound-too-large", "Sizes are positive integers of 32 bits"},
    {"fixed-digits", "A fixed-point number has at most 31 digits"},
    {"wrong-kind", "What is used is of the kind that its place wants"},
    {"constant-type", "A constant has a type that IDL has constants of"},
    {"constant-value", "A constant's value is one of its type"},
    {"repaired-value", "A value is written as IDL wants it"},
    {"interface-base", "What an interface inherits is no more constrained than itself"},
    {"local-type", "Local interfaces are used by local interfaces alone"},
    {"value-base", "A value type has at most one base that is not abstract"},
    {"value-supports", "A value type supports at most one interface that is not abstract"},
    {"value-abstract-state", "An abstract value type has no state and no factories"},
    {"repaired-bases", "Bases are written in the order that IDL wants"},
    {"repaired-size", "The size of an array is written"},
    {"boxed-value-type", "A boxed value boxes no value"},
    {"boxed-value-place", "A boxed value stands in a module"},
    {"case-label", "A label is a value of the discriminator's type"},
    {"case-label-twice", "Each label stands for another value"},
    {"case-default-twice", "A union has at most one default"},
    {"case-default-impossible", "A default has values left"},
    {"composition-category", "A composition is an entity, a process, a service or a session"},
    {"segment-facet", "A segment provides facets of its component"},
    {"repaired-segment", "A segment is written as its language has it"},
    {"context-string", "A context string is a name in quotes"},
    {"repaired-context", "A context is written as IDL wants it"},
    {"parameter-direction", "A parameter has a direction"},
    {"repaired-comment", "A comment doesn't swallow what follows it"},

    // The course of an export
    {"setting-missing", "The artifact carries the settings of the generator"},
    {"nothing-to-export", "The artifact manifests what it exports"},
    {"file-not-opened", "The files can be written"},
    {"export-aborted", "The export comes to its end"},
    {"model-unreadable", "The model file can be read, and holds a model"},
    {"failure", "The command can do what it was asked to"},

    // The names that would be written
    {"idl-identifier", "A name is an identifier of IDL"},
    {"idl-keyword", "A name is no keyword of IDL"},
    {"repaired-name", "A name is written so that it means what it should"},
    {"name-clash", "Names in a scope differ in more than capitals"},
    {"name-hides-scope", "A declaration does not have the name of the scope around it"},
    {"enumerator-clash",
     "An enumerator's name is the only one in the scope around its enumeration"},
    {"use-clash", "A declaration does not have the name of something that its scope uses"},
    {"name-not-visible", "A name that is written without its scope is found where it stands"},
    {"unsafe-name", "A name that makes up a file's path leads to no other place"},
    {"file-clash", "Every module with a file of its own has a file name of its own"},

    // The model's files
    {"dangling-reference", "A reference leads to an element"},
    {"reference-not-local", "Files that a model refers to are on the local disk"},
    {"file-unreadable", "Files that a model refers to can be read"},
    {"file-not-a-model", "Files that a model refers to are models"},
    {"duplicate-id", "An id stands once in a file"},
    {"misplaced-element", "An element stands in one place"},
    {"dependency-incomplete", "A dependency has a client and a supplier"},
    {"stereotype-twice", "A stereotype is applied once to an element"},
    {"stereotype-dangling", "A stereotype is applied to an element of the model"},
    {"bound-unreadable", "A bound is a number or a name"},
    {"template-parameter-unreadable", "A template parameter is a number or a name"},
    {"template-recursive", "A template is no part of itself"},
    {"value-unknown", "A property has one of the values that UML gives it"},
};

}  // namespace

std::span<const Rule> Rules() { return rules; }

const Rule* FindRule(std::string_view id) {
  const auto* const found = std::find_if(std::begin(rules), std::end(rules),
                                         [id](const Rule& rule) { return rule.id == id; });
  return found == std::end(rules) ? nullptr : found;
}

}  // namespace diagnostics
