#include "xmi/tables/profile.h"

#include <pugixml.hpp>
#include <utility>

#include "xmi/text/document.h"
#include "xmi/text/start_tag.h"

namespace xmi {

namespace built_in {
extern const std::string_view CORBA_profile_uml;
}  // namespace built_in

namespace {

// The name of the enumeration literal with that id.
std::string NameOfId(pugi::xml_node root, const char* id) {
  for (const pugi::xml_node element : root.children("packagedElement")) {
    const pugi::xml_node literal = element.find_child_by_attribute("ownedLiteral", "xmi:id", id);
    if (literal) return literal.attribute("name").value();
  }
  return "";
}

std::optional<std::string> DefaultOf(pugi::xml_node property, pugi::xml_node root) {
  const pugi::xml_node value = property.child("defaultValue");
  if (!value) return std::nullopt;
  const std::string_view type = value.attribute("xmi:type").value();
  if (type == "uml:InstanceValue") return NameOfId(root, value.attribute("instance").value());
  return value.attribute("value").as_string(type == "uml:LiteralBoolean" ? "false" : "");
}

Profile::Tag ReadTag(pugi::xml_node property, pugi::xml_node root) {
  Profile::Tag tag;
  tag.name = property.attribute("name").value();
  tag.isList = property.child("upperValue").attribute("value").value() == std::string_view("*");
  const std::string_view type = property.child("type").attribute("href").value();
  tag.isText = type.ends_with("#String");
  tag.defaultValue = DefaultOf(property, root);
  return tag;
}

Profile::Stereotype ReadStereotype(pugi::xml_node element, pugi::xml_node root) {
  Profile::Stereotype stereotype;
  stereotype.name = element.attribute("name").value();
  for (const pugi::xml_node generalization : element.children("generalization")) {
    stereotype.generals.push_back(generalization.attribute("general").value());
  }
  for (const pugi::xml_node property : element.children("ownedAttribute")) {
    if (IsBase(property.attribute("name").value())) continue;
    stereotype.tags.push_back(ReadTag(property, root));
  }
  return stereotype;
}

}  // namespace

// The ids of the profile's stereotypes are their names, so "general" holds names. The file is our
// own: what other tools may write instead isn't looked for.
Profile::Profile(std::string text) {
  const auto document = Document::Parse("CORBA.profile.uml", std::move(text));
  const pugi::xml_node root = document->Root();
  for (const pugi::xml_node element : root.children("packagedElement")) {
    if (element.attribute("xmi:type").value() != std::string_view("uml:Stereotype")) continue;
    stereotypes_.push_back(ReadStereotype(element, root));
    byName_.emplace(stereotypes_.back().name, stereotypes_.size() - 1);
  }
}

const Profile& Profile::BuiltIn() {
  static const Profile kProfile{std::string(built_in::CORBA_profile_uml)};
  return kProfile;
}

const Profile::Stereotype* Profile::Find(std::string_view name) const {
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : &stereotypes_[found->second];
}

const Profile::Tag* Profile::FindTag(std::string_view stereotype, std::string_view tag) const {
  const Stereotype* const declared = Find(stereotype);
  if (declared == nullptr) return nullptr;
  for (const Tag& candidate : declared->tags) {
    if (candidate.name == tag) return &candidate;
  }
  for (const std::string& general : declared->generals) {
    if (const Tag* inherited = FindTag(general, tag)) return inherited;
  }
  return nullptr;
}

void Profile::Declare(model::Model& model) const {
  for (const Stereotype& stereotype : stereotypes_) {
    model::Element& element = model.Stereotype(stereotype.name);
    for (const std::string& general : stereotype.generals) {
      model.Specialise(element, model.Stereotype(general));
    }
    for (const Tag& tag : stereotype.tags) {
      if (!tag.defaultValue) continue;
      model.SetTagDefault(element, model::Symbol(tag.name), *tag.defaultValue);
    }
  }
}

}  // namespace xmi
