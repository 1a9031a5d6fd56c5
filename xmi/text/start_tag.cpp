#include "xmi/text/start_tag.h"

#include "model/short_text.h"

namespace xmi {
namespace {

void BindDeclared(pugi::xml_node element, Namespaces& namespaces) {
  for (const pugi::xml_attribute attribute : element.attributes()) {
    const QualifiedName name = SplitName(attribute.name());
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

const StartTag::Known& StartTag::Look(std::string_view qualified, const Namespaces& namespaces) {
  const std::size_t size = qualified.size();
  const auto letter = [&](std::size_t i) { return static_cast<unsigned char>(qualified[i]); };
  const std::size_t mixed = size == 0 ? 0 : letter(0) + 5 * letter(size / 2) + 7 * letter(size - 1);
  Known& known = known_[(mixed + 3 * size) % known_.size()];
  if (!model::SameText(known.text, qualified) || known.namespaces != namespaces.Version()) {
    const QualifiedName split = SplitName(qualified);
    const Space space = split.prefix.empty() ? Space::kNone : namespaces.Find(split.prefix);
    known = {qualified, split.local,         FindWord(split.local), !split.prefix.empty(),
             space,     namespaces.Version()};
  }
  return known;
}

void StartTag::Read(pugi::xml_node element, Namespaces& namespaces) {
  if (!ReadAttributes(element, namespaces)) {
    // Prefixes may be used before they are declared in the same tag.
    BindDeclared(element, namespaces);
    ReadAttributes(element, namespaces);
  }
  name = element.name();
  const Known& known = Look(name, namespaces);
  tag = known.word;
  space = known.space;
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
    const Known& known = Look(attribute.name(), namespaces);
    if (known.hasPrefix) {
      declares = declares || known.text.substr(0, 6) == "xmlns:";
      ReadPrefixed(known, attribute.value(), namespaces);
    } else if (known.word == Word::kHref) {
      href = attribute.value();
    } else if (known.word != Word::kNone) {
      features.push_back({known.word, attribute.value()});
    } else if (known.local.substr(0, 5) == "base_") {
      hasBase = true;
    } else if (known.local == "xmlns") {
      declares = true;
    }
  }
  return !declares;
}

void StartTag::ReadPrefixed(const Known& attribute, std::string_view value,
                            const Namespaces& namespaces) {
  if (attribute.space != Space::kXmi && attribute.space != Space::kXsi) return;
  switch (attribute.word) {
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
      const Known& known = Look(value, namespaces);
      typeName = known.local;
      type = known.word >= Word::kPackage ? known.word : Word::kNone;
      typeSpace = known.space;
      if (!known.hasPrefix) typeSpace = namespaces.Find({});
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
