#include "tree/node_tag.h"

#include <list>
#include <string>

#include "host/model.h"
#include "host/model_access.h"
#include "types/text.h"

namespace mdktoidl {

namespace {

const std::string tagExpression = "Node (. node .)";
const std::string tagStereotype = "@CORBA@Node";
const std::string application = "StereotypeInstance";

/// The stereotype of the tags; null when the host has none.
mdk::IMdeEntity* TagStereotype(mdk::IMdeEntity* element) {
  mdk::IMdeEntity* session = element->GetEntity("Session", 0);
  if (session == nullptr) return nullptr;
  void* model = nullptr;
  session->QueryInterface(mdk::IMdeModel::guid, &model);
  if (model == nullptr) return nullptr;
  return static_cast<mdk::IMdeModel*>(model)->FindEntity(tagStereotype);
}

}  // namespace

void WriteNodeTag(mdk::IMdeEntity* element, long serial) {
  mdk::IMdeEntity* stereotype = TagStereotype(element);
  if (stereotype == nullptr) return;
  element->AddEntity(application, stereotype->GetDefinitionRef(), 0, mdkdll::defaultChanger);
  element->SetExpression(tagExpression, std::to_string(serial), 1, mdkdll::defaultChanger);
}

long ReadNodeTag(mdk::IMdeEntity* element) {
  mdk::IMdeEntity* value = element->EvalExpression(tagExpression, 0);
  return value == nullptr ? 0 : GetLong(value->GetValue("ValueString", 0));
}

void deleteNodeStereotypes(mdk::IMdeEntity* element) {
  mdk::IMdeEntity* stereotype = TagStereotype(element);
  if (stereotype == nullptr) return;
  std::list<mdk::IMdeEntity*> instances;
  stereotype->GetReferrers("InstanceOf", instances);
  instances.remove(nullptr);
  for (mdk::IMdeEntity* instance : instances) {
    instance->Delete(mdkdll::defaultChanger);
  }
}

}  // namespace mdktoidl
