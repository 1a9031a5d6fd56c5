#include "xmi/text/start_tag.h"

#include "model/short_text.h"

namespace xmi {
namespace {

Space SpaceOf(std::string_view uri) {
  if (uri.starts_with("http://www.eclipse.org/uml2/") && uri.ends_with("/UML")) return Space::kUml;
  if (uri.starts_with("http://www.omg.org/spec/UML/")) return Space::kUml;
  if (uri.starts_with("http://schema.omg.org/spec/UML/")) return Space::kUml;
  for (const std::string_view family : {"http://www.omg.org/XMI", "http://www.omg.org/spec/XMI",
                                        "http://schema.omg.org/spec/XMI"}) {
    if (uri == family || (uri.starts_with(family) && uri[family.size()] == '/')) return Space::kXmi;
  }
  if (uri == "http://www.w3.org/2001/XMLSchema-instance") return Space::kXsi;
  return uri.empty() ? Space::kNone : Space::kForeign;
}

void BindDeclared(pugi::xml_node element, Namespaces& namespaces) {
  for (const pugi::xml_attribute attribute : element.attributes()) {
    const QualifiedName name = SplitName(attribute.name());
    if (name.prefix.empty() && name.local == "xmlns") namespaces.Bind({}, attribute.value());
    if (name.prefix == "xmlns") namespaces.Bind(name.local, attribute.value());
  }
}

std::string_view AttributeOf(pugi::xml_node element, std::string_view local, bool hasPrefix) {
  for (const pugi::xml_attribute attribute : element.attributes()) {
    const QualifiedName name = SplitName(attribute.name());
    if (name.local == local && name.prefix.empty() != hasPrefix) return attribute.value();
  }
  return {};
}

}  // namespace

// Some files leave out the declarations of these two prefixes.
Namespaces::Namespaces() {
  Bind("xmi", "http://www.omg.org/XMI");
  Bind("xsi", "http://www.w3.org/2001/XMLSchema-instance");
}

void Namespaces::Bind(std::string_view prefix, std::string_view uri) {
  bindings_.push_back({prefix, uri, SpaceOf(uri)});
  last_ = bindings_.size() - 1;
  ++version_;
}

const Namespaces::Binding* Namespaces::Lookup(std::string_view prefix) const {
  if (last_ != 0 && bindings_[last_].prefix == prefix) return &bindings_[last_];
  for (std::size_t i = bindings_.size(); i-- > 0;) {
    if (bindings_[i].prefix != prefix) continue;
    last_ = i;
    return &bindings_[i];
  }
  return nullptr;
}

Space Namespaces::Find(std::string_view prefix) const {
  if (const Binding* binding = Lookup(prefix)) return binding->space;
  return prefix.empty() ? Space::kNone : Space::kForeign;
}

std::string_view Namespaces::UriOf(std::string_view prefix) const {
  const Binding* binding = Lookup(prefix);
  return binding == nullptr ? std::string_view() : binding->uri;
}

QualifiedName SplitName(std::string_view name) {
  const std::size_t colon = name.find(':');
  if (colon == std::string_view::npos) return {{}, name};
  return {name.substr(0, colon), name.substr(colon + 1)};
}

void StartTag::Clear() {
  id = idref = href = typeName = {};
  isNil = hasBase = false;
  typeSpace = Space::kNone;
  type = Word::kNone;
  features.clear();
}

// What is in the cell may be of another name or of older namespaces; then it is looked up anew.
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
      declares = declares || known.text.starts_with("xmlns:");
      ReadPrefixed(known, attribute.value(), namespaces);
    } else if (known.word == Word::kHref) {
      href = attribute.value();
    } else if (known.word != Word::kNone) {
      features.push_back({known.word, attribute.value()});
    } else if (IsBase(known.local)) {
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
      isNil = value == "true" || value == "1";
      break;
    case Word::kType: {
      const Known& known = Look(value, namespaces);
      typeName = known.local;
      type = IsType(known.word) ? known.word : Word::kNone;
      typeSpace = known.space;
      if (!known.hasPrefix) typeSpace = namespaces.Find({});
      if (typeSpace == Space::kNone) typeSpace = Space::kUml;  // what else could be meant?
      break;
    }
    default:
      break;
  }
}

std::string_view PlainAttribute(pugi::xml_node element, std::string_view name) {
  return AttributeOf(element, name, false);
}

std::string_view PrefixedAttribute(pugi::xml_node element, std::string_view local) {
  return AttributeOf(element, local, true);
}

IdOrHref ReferenceOf(pugi::xml_node element) {
  const std::string_view href = PlainAttribute(element, "href");
  if (!href.empty()) return {href, true};
  return {PrefixedAttribute(element, "idref"), false};
}

}  // namespace xmi
