#include "xmi/start_tag.h"

namespace xmi {
namespace {

// A name and the place of its colon, found in one pass; names are short and there are millions.
QualifiedName Scan(const char* name) {
  const char* local = name;
  const char* end = name;
  for (; *end != '\0'; ++end) {
    if (*end == ':' && local == name) local = end + 1;
  }
  const auto prefixSize = static_cast<std::size_t>(local == name ? 0 : local - name - 1);
  return {{name, prefixSize}, {local, static_cast<std::size_t>(end - local)}};
}

void BindDeclared(pugi::xml_node element, Namespaces& namespaces) {
  for (const pugi::xml_attribute attribute : element.attributes()) {
    const QualifiedName name = Scan(attribute.name());
    if (name.prefix.empty() && name.local == "xmlns") namespaces.Bind({}, attribute.value());
    if (name.prefix == "xmlns") namespaces.Bind(name.local, attribute.value());
  }
}

}  // namespace

Word TypeOf(std::string_view name) {
  const Word word = FindWord(name);
  return word >= Word::kPackage ? word : Word::kNone;
}

void StartTag::Clear() {
  id = idref = href = typeName = {};
  nil = hasBase = false;
  typeSpace = Space::kNone;
  type = Word::kNone;
  features.clear();
}

void StartTag::Read(pugi::xml_node element, Namespaces& namespaces) {
  if (!ReadAttributes(element, namespaces)) {
    // Prefixes may be used before they are declared in the same tag.
    BindDeclared(element, namespaces);
    ReadAttributes(element, namespaces);
  }
  const QualifiedName split = Scan(element.name());
  name = element.name();
  tag = FindWord(split.local);
  space = split.prefix.empty() ? Space::kNone : namespaces.Find(split.prefix);
}

void StartTag::ReadRoot(pugi::xml_node element, Namespaces& namespaces) {
  Read(element, namespaces);
  if (space != Space::kNone) return;
  const Space standard = namespaces.Find({});
  if (standard == Space::kUml || (standard == Space::kXmi && tag == Word::kXmi)) space = standard;
}

bool StartTag::ReadAttributes(pugi::xml_node element, const Namespaces& namespaces) {
  Clear();
  bool declares = false;
  for (auto attribute = element.first_attribute(); attribute;
       attribute = attribute.next_attribute()) {
    const QualifiedName split = Scan(attribute.name());
    if (!split.prefix.empty()) {
      declares = declares || split.prefix == "xmlns";
      ReadPrefixed(split, attribute.value(), namespaces);
      continue;
    }
    const Word word = FindWord(split.local);
    if (word == Word::kHref) {
      href = attribute.value();
    } else if (word != Word::kNone) {
      features.push_back({word, attribute.value()});
    } else if (split.local[0] == 'b' && split.local.substr(0, 5) == "base_") {
      hasBase = true;
    } else if (split.local == "xmlns") {
      declares = true;
    }
  }
  return !declares;
}

void StartTag::ReadPrefixed(QualifiedName attribute, std::string_view value,
                            const Namespaces& namespaces) {
  const Space attributeSpace = namespaces.Find(attribute.prefix);
  if (attributeSpace != Space::kXmi && attributeSpace != Space::kXsi) return;
  switch (FindWord(attribute.local)) {
    case Word::kId:
      id = value;
      break;
    case Word::kIdref:
      idref = value;
      break;
    case Word::kNil:
      nil = value == "true" || value == "1";
      break;
    case Word::kType: {
      const QualifiedName split = SplitName(value);
      typeName = split.local;
      type = TypeOf(split.local);
      typeSpace = namespaces.Find(split.prefix);
      if (typeSpace == Space::kNone) typeSpace = Space::kUml;
      break;
    }
    default:
      break;
  }
}

std::string_view LocalAttribute(pugi::xml_node element, std::string_view local, bool prefixed) {
  for (const pugi::xml_attribute attribute : element.attributes()) {
    const QualifiedName split = SplitName(attribute.name());
    if (split.local == local && split.prefix.empty() != prefixed) return attribute.value();
  }
  return {};
}

}  // namespace xmi
