#include "tree/node_tag.h"

#include <list>
#include <string>

#include "host/model.h"
#include "host/model_access.h"
#include "types/properties.h"

namespace mdktoidl {

namespace {

const std::string tagStereotype = "@CORBA@Node";

/// The stereotype of the tags; null when the host has none.
mdk::IMdeEntity* TagStereotype(mdk::IMdeEntity* element) {
  mdk::IMdeEntity* session = element->GetEntity(properties::session, 0);
  if (session == nullptr) return nullptr;
  void* model = nullptr;
  session->QueryInterface(mdk::IMdeModel::guid, &model);
  if (model == nullptr) return nullptr;
  return static_cast<mdk::IMdeModel*>(model)->FindEntity(tagStereotype);
}

}  // namespace

void deleteNodeStereotypes(mdk::IMdeEntity* element) {
  mdk::IMdeEntity* stereotype = TagStereotype(element);
  if (stereotype == nullptr) return;
  std::list<mdk::IMdeEntity*> instances;
  stereotype->GetReferrers(properties::instanceOf, instances);
  instances.remove(nullptr);
  for (mdk::IMdeEntity* instance : instances) {
    instance->Delete(mdkdll::defaultChanger);
  }
}

}  // namespace mdktoidl
