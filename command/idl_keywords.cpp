#include "command/idl_keywords.h"

#include <algorithm>
#include <unordered_map>

#include "command/idl_identifier.h"

namespace command {
namespace {

// The words of components are in force everywhere: a compiler that knows components refuses them as
// names, and others warn of them.
constexpr std::string_view idlKeywords[] = {
    "abstract",   "any",       "attribute", "boolean",    "case",        "char",      "component",
    "const",      "consumes",  "context",   "custom",     "default",     "double",    "emits",
    "enum",       "eventtype", "exception", "factory",    "FALSE",       "finder",    "fixed",
    "float",      "getraises", "home",      "import",     "in",          "inout",     "interface",
    "local",      "long",      "manages",   "module",     "multiple",    "native",    "Object",
    "octet",      "oneway",    "out",       "primarykey", "private",     "provides",  "public",
    "publishes",  "raises",    "readonly",  "sequence",   "setraises",   "short",     "string",
    "struct",     "supports",  "switch",    "TRUE",       "truncatable", "typedef",   "typeid",
    "typeprefix", "union",     "unsigned",  "uses",       "ValueBase",   "valuetype", "void",
    "wchar",      "wstring"};

constexpr std::string_view implementationKeywords[] = {
    "as",          "bindsTo",     "catalog",  "composition", "delegatesTo", "entity",  "executor",
    "facet",       "implements",  "key",      "of",          "primary",     "process", "proxy",
    "ref",         "scope",       "segment",  "service",     "session",     "state",   "storage",
    "storagehome", "storagetype", "storedOn", "stores",      "strict"};

constexpr std::size_t longest =
    std::max(std::ranges::max(idlKeywords, {}, &std::string_view::size).size(),
             std::ranges::max(implementationKeywords, {}, &std::string_view::size).size());

struct Keyword {
  std::string_view text;
  bool isImplementation;
};

using Keywords = std::unordered_map<std::string_view, Keyword, NameHash, NameEqual>;

Keywords MakeKeywords() {
  Keywords keywords;
  for (const auto text : implementationKeywords) keywords[text] = {text, true};
  for (const auto text : idlKeywords) keywords[text] = {text, false};
  return keywords;
}

}  // namespace

std::string_view KeywordLike(std::string_view name, bool isImplementation) {
  if (name.size() > longest) return {};
  static const Keywords keywords = MakeKeywords();
  const auto found = keywords.find(name);
  if (found == keywords.end()) return {};
  return isImplementation || !found->second.isImplementation ? found->second.text
                                                             : std::string_view();
}

}  // namespace command
