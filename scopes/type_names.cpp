#include "scopes/type_names.h"

#include <cctype>
#include <ranges>
#include <string_view>

#include "types/text.h"

namespace mdktoidl {
namespace {

struct PredefinedName {
  std::string_view type;
  std::string_view name;
};

/// The names that IDL's own module of predefined types uses for its sequences.
constexpr PredefinedName predefinedNames[] = {
    {"boolean", "Boolean"},
    {"char", "Char"},
    {"wchar", "WChar"},
    {"octet", "Octet"},
    {"short", "Short"},
    {"unsigned short", "UShort"},
    {"long", "Long"},
    {"unsigned long", "ULong"},
    {"long long", "LongLong"},
    {"unsigned long long", "ULongLong"},
    {"float", "Float"},
    {"double", "Double"},
    {"long double", "LongDouble"},
    {"string", "String"},
    {"wstring", "WString"},
    {"any", "Any"},
    {"Object", "Object"},
    {"CORBA::TypeCode", "TypeCode"},
    {"native", "Native"},
    {"fixed", "Fixed"},
};

std::string_view NameOfPredefined(std::string_view type) {
  for (const PredefinedName& row : predefinedNames) {
    if (row.type == type) return row.name;
  }
  return type;
}

bool IsInNumber(char each) { return std::isalnum(static_cast<unsigned char>(each)) != 0; }

/// A text with its numbers as decimals, with `separator` between them, and nothing else of it.
/// Numbers may be written in hexadecimal or octal.
std::string NumbersIn(std::string_view text, char separator) {
  std::string numbers;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at;
    while (end < text.size() && IsInNumber(text[end])) ++end;
    const std::string word(text.substr(at, end - at));
    if (const auto value = IntegerLiteral(word)) {
      if (!numbers.empty()) numbers += separator;
      numbers += std::to_string(*value);
    }
    at = end + 1;
  }
  return numbers;
}

/// "9_2" of "fixed<9, 2>".
std::string BoundsOf(std::string_view predefined, char separator) {
  const std::size_t bracket = predefined.find('<');
  if (bracket == std::string_view::npos) return {};
  return NumbersIn(predefined.substr(bracket), separator);
}

std::string_view WithoutBounds(std::string_view predefined) {
  return predefined.substr(0, predefined.find('<'));
}

std::string NumberOf(const Node& node) { return "#" + std::to_string(node.Serial()); }

/// Calls `visit` with each sequence from the inside out, and with the constant that bounds it by
/// name or null.
template <typename Visit>
void ForEachSequence(const WrittenType& type, Visit visit) {
  const std::span<const SequenceLevel> sequences = type.Sequences();
  for (std::size_t level = sequences.size(); level-- > 0;) {
    visit(sequences[level], level == 0 ? type.BoundConstant() : nullptr);
  }
}

}  // namespace

std::string StructureOf(const WrittenType& type) {
  const std::string_view predefined = type.Predefined();
  std::string structure(WithoutBounds(predefined));
  structure += BoundsOf(predefined, ',');
  if (type.Definition() != nullptr) structure = NumberOf(*type.Definition());
  ForEachSequence(type, [&](const SequenceLevel& level, const Node* bound) {
    structure += '<' + (bound == nullptr ? NumbersIn(level.bound, ',') : NumberOf(*bound)) + '>';
  });
  return structure + '[' + NumbersIn(type.DeclaratorSuffix(), ',') + ']';
}

std::string CoreNameOf(const WrittenType& type) {
  if (type.Definition() != nullptr) return std::string(type.Definition()->Name());
  const std::string_view predefined = type.Predefined();
  return std::string(NameOfPredefined(WithoutBounds(predefined))) + BoundsOf(predefined, '_');
}

std::string TemplatesNameOf(const WrittenType& type) {
  std::string name;
  ForEachSequence(type, [&](const SequenceLevel& level, const Node* bound) {
    name += "Seq";
    if (bound != nullptr) name.append("_").append(bound->Name());
    if (bound == nullptr) name += NumbersIn(level.bound, '_');
  });
  const std::string sizes = NumbersIn(type.DeclaratorSuffix(), 'x');
  return sizes.empty() ? name : name + "Array" + sizes;
}

}  // namespace mdktoidl
