#include "types/identifier.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cstring>
#include <vector>

namespace mdktoidl {
namespace {

// Not those of <cctype>: the user's locale has no say in what IDL allows.
constexpr bool IsLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

constexpr bool IsDigit(char character) { return character >= '0' && character <= '9'; }

constexpr bool MayFollow(char character) {
  return IsLetter(character) || IsDigit(character) || character == '_';
}

/// By character, whether it may follow in a name: each of a million names is looked through.
constexpr auto follows = [] {
  std::array<bool, 256> result{};
  for (int character = 0; character < 128; ++character) {
    result[character] = MayFollow(static_cast<char>(character));
  }
  return result;
}();

char Small(char character) {
  const bool isCapital = character >= 'A' && character <= 'Z';
  return isCapital ? static_cast<char>(character - 'A' + 'a') : character;
}

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
  std::uint32_t hash;
  std::string_view text;
  bool isImplementation;
};

/// By their hashes, with a bit for each in a table that tells most names apart from all of them.
struct Keywords {
  Keywords() {
    for (const auto text : implementationKeywords) Add(text, true);
    for (const auto text : idlKeywords) Add(text, false);
    std::ranges::sort(sorted, {}, &Keyword::hash);
  }

  void Add(std::string_view text, bool isImplementation) {
    sorted.push_back({HashOfName(text), text, isImplementation});
    bits.set(sorted.back().hash % bits.size());
  }

  std::vector<Keyword> sorted;
  std::bitset<4096> bits;
};

const Keywords& AllKeywords() {
  static const Keywords keywords;
  return keywords;
}

}  // namespace

bool IsIdentifier(std::string_view name) {
  name = Unescaped(name);
  if (name.empty() || !IsLetter(name.front())) return false;
  for (const unsigned char each : name) {
    if (!follows[each]) return false;
  }
  return true;
}

std::string Folded(std::string_view text) {
  std::string folded(text);
  for (char& character : folded) character = Small(character);
  return folded;
}

bool MayBeKeyword(std::string_view name, std::uint32_t hash) {
  static const Keywords& keywords = AllKeywords();
  return name.size() <= longest + 1 && keywords.bits[hash % keywords.bits.size()];
}

std::string_view KeywordLike(std::string_view name, bool isImplementation) {
  const std::uint32_t hash = HashOfName(name);
  if (!MayBeKeyword(name, hash)) return {};
  const std::vector<Keyword>& sorted = AllKeywords().sorted;
  auto each = std::ranges::lower_bound(sorted, hash, {}, &Keyword::hash);
  for (; each != sorted.end() && each->hash == hash; ++each) {
    const bool isKeyword = isImplementation || !each->isImplementation;
    if (isKeyword && IsSameName(each->text, name)) return each->text;
  }
  return {};
}

bool IsSameName(std::string_view left, std::string_view right) {
  left = Unescaped(left);
  right = Unescaped(right);
  return left == right || std::ranges::equal(left, right, {}, Small, Small);
}

// Eight bytes at a time, each without the bit that tells capitals from small letters. That makes
// one of some other characters, too, which only makes their names share a hash.
std::uint32_t HashOfName(std::string_view name) {
  name = Unescaped(name);
  std::uint64_t hash = name.size();
  while (!name.empty()) {
    std::uint64_t word = 0;
    const std::size_t size = std::min(name.size(), sizeof word);
    std::memcpy(&word, name.data(), size);
    hash = (hash ^ (word & 0xDFDFDFDFDFDFDFDFU)) * 0x9E3779B97F4A7C15U;
    hash ^= hash >> 29;
    name.remove_prefix(size);
  }
  return static_cast<std::uint32_t>(hash * 0x9E3779B97F4A7C15U >> 32);
}

}  // namespace mdktoidl
