#include "xmi/reader.h"

#include <utility>

#include "xmi/passes/dependencies.h"
#include "xmi/passes/multiplicities.h"
#include "xmi/passes/ports.h"
#include "xmi/passes/relations.h"
#include "xmi/passes/remote_parts.h"
#include "xmi/passes/resolver.h"
#include "xmi/passes/stereotypes.h"
#include "xmi/passes/templates.h"
#include "xmi/passes/types.h"
#include "xmi/passes/values.h"
#include "xmi/passes/walker.h"
#include "xmi/tables/reading.h"

namespace xmi {

namespace {

/// Gives back a list's memory, which clearing it would keep.
template <typename Entry>
void Release(std::vector<Entry>& list) {
  std::vector<Entry>().swap(list);
}

}  // namespace

struct Reader::Impl {
  explicit Impl(model::Model& model) : reading(model) {}

  void SetDefaults(const std::string& path);
  void Walk();
  void Connect();
  void Finish();

  Reading reading;
  std::map<std::string, std::size_t> passedOver;
};

void Reader::Impl::SetDefaults(const std::string& path) {
  model::Model& model = reading.model;
  model.SetDefaultText(properties::uri, UriOf(path));
  model.SetDefaultText(properties::visibility, values::noVisibility);
  model.SetDefaultText(properties::changeability, values::unfrozen);
  model.SetDefaultText(properties::isAbstract, "false");
  model.SetDefaultText(properties::isAbstractInSmall, "false");
  model.SetDefaultText(properties::direction, values::in);
}

// Files are opened while others are walked; the loop gets to them all.
void Reader::Impl::Walk() {
  Walker walker(reading);
  for (std::size_t file = 0; file < reading.files.Size(); ++file) {
    walker.Walk(static_cast<FileIndex>(file));
  }
}

// What later steps ask for, earlier steps have set: stereotypes decide what is a template and what
// a constant, templates what a type answers. What has been worked off is let go: its memory serves
// the next steps.
void Reader::Impl::Connect() {
  Resolver resolver(reading);
  Types types(reading);
  Values values(reading, resolver);
  Templates templates(reading, resolver);
  Relations relations(reading, types);
  Dependencies dependencies(reading);

  resolver.FillPlaces();
  RemoteParts(reading, resolver).Fetch();
  Stereotypes(reading, resolver).Apply();
  Release(reading.applications);
  relations.NamePrimitives();
  templates.Find();
  resolver.ResolveReferences();
  Release(reading.references);
  relations.SetLinks();
  relations.SetMembers();
  relations.SetComments();
  dependencies.Set();
  dependencies.SetGeneralizations();
  templates.Fill(values, types);
  Multiplicities(reading, values).Set();
  Ports(reading).Set();
}

// From here on only the elements, their places and the texts that they point into are needed.
void Reader::Impl::Finish() {
  for (std::size_t file = 0; file < reading.files.Size(); ++file) {
    Files::File& read = reading.files[static_cast<FileIndex>(file)];
    reading.model.Keep(read.document->Text());
    read.document->DropTree();
    Release(read.extensions);
  }
  Release(reading.values);
  Release(reading.bindings);
  Release(reading.links);
  for (const auto& [kind, count] : reading.passedOver) passedOver[kind] = count;
}

Reader::Reader(model::Model& model) : impl_(std::make_unique<Impl>(model)) {}

Reader::~Reader() = default;

void Reader::Map(const std::string& prefix, const std::string& directory) {
  impl_->reading.files.Map(prefix, directory);
}

void Reader::Read(const std::string& path) {
  impl_->SetDefaults(path);
  impl_->reading.files.Open(path);
  impl_->Walk();
  impl_->Connect();
  impl_->Finish();
}

const ReadingProgress& Reader::Progress() const { return impl_->reading.progress; }

const std::vector<Diagnostic>& Reader::Diagnostics() const {
  return impl_->reading.diagnostics.All();
}

const std::map<std::string, std::size_t>& Reader::PassedOver() const { return impl_->passedOver; }

const std::vector<std::string>& Reader::Files() const { return impl_->reading.files.Paths(); }

model::Element* Reader::FindById(std::string_view id) const {
  const Reading& reading = impl_->reading;
  for (std::size_t file = 0; file < reading.files.Size(); ++file) {
    if (reading.files[static_cast<FileIndex>(file)].isLibrary) continue;
    const IdTarget* entry = reading.ids.Find(static_cast<FileIndex>(file), id);
    if (entry != nullptr && !entry->inner) return reading.items[entry->item].element;
  }
  return nullptr;
}

std::vector<model::Element*> Reader::FindByName(std::string_view qualifiedName) const {
  std::vector<model::Element*> found;
  const Items& items = impl_->reading.items;
  const std::string_view last = qualifiedName.substr(
      qualifiedName.rfind(':') == std::string_view::npos ? 0 : qualifiedName.rfind(':') + 1);
  for (std::size_t i = 0; i < items.Size(); ++i) {
    const auto index = static_cast<ItemIndex>(i);
    const Item& item = items[index];
    if (item.element == nullptr || items.NameOf(index) != last) continue;
    if (impl_->reading.files[item.file].isLibrary) continue;
    ItemIndex root = index;
    while (items[root].owner != kNoItem) root = items[root].owner;
    const std::string name = items.QualifiedName(index);
    const std::string rootName(items.NameOf(root));
    const std::string full = name.empty() ? rootName : rootName + "::" + name;
    if (qualifiedName == name || qualifiedName == full) found.push_back(item.element);
  }
  return found;
}

std::vector<model::Element*> Reader::Artifacts() const {
  std::vector<model::Element*> artifacts;
  const Items& items = impl_->reading.items;
  for (std::size_t i = 0; i < items.Size(); ++i) {
    const Item& item = items[static_cast<ItemIndex>(i)];
    const bool isArtifact =
        item.type == Word::kArtifact || item.type == Word::kDeploymentSpecification;
    if (isArtifact) artifacts.push_back(item.element);
  }
  return artifacts;
}

std::string Reader::QualifiedName(const model::Element& element) const {
  const ItemIndex item = impl_->reading.items.Find(element);
  return item == kNoItem ? "" : impl_->reading.items.QualifiedName(item);
}

std::string Reader::IdOf(const model::Element& element) const {
  const ItemIndex item = impl_->reading.items.Find(element);
  return item == kNoItem ? "" : std::string(impl_->reading.ids.IdOf(item));
}

Location Reader::Locate(const model::Element& element) const {
  const ItemIndex item = impl_->reading.items.Find(element);
  return item == kNoItem ? Location() : impl_->reading.Locate(item);
}

}  // namespace xmi
