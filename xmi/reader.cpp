#include "xmi/reader.h"

#include "xmi/passes/passes.h"

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
  void RunPasses();
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

// What later passes ask for, earlier ones have set: stereotypes decide what is a template and what
// a constant, templates what a type answers. What has been worked off is let go: its memory serves
// the next passes.
void Reader::Impl::RunPasses() {
  Values values(reading);
  WalkFiles(reading);
  PlaceFragments(reading);
  FetchParts(reading);
  ApplyStereotypes(reading);
  Release(reading.applications);
  NamePrimitives(reading);
  FindTemplates(reading);
  ResolveReferences(reading);
  Release(reading.references);
  SetLinks(reading);
  SetMembers(reading);
  SetComments(reading);
  SetDependencies(reading);
  SetGeneralizations(reading);
  FillTemplates(reading, values);
  SetMultiplicities(reading, values);
  SetPorts(reading);
}

// From here on only the elements, their locations and the texts that they point into are needed.
void Reader::Impl::Finish() {
  for (FileIndex file = 0; file < reading.files.Size(); ++file) {
    Files::File& read = reading.files[file];
    reading.model.Keep(read.document->Text());
    read.document->DropTree();
    Release(read.extensions);
  }
  Release(reading.values);
  Release(reading.bindings);
  Release(reading.instantiations);
  Release(reading.links);
  Release(reading.idents);
  passedOver.insert(reading.passedOver.begin(), reading.passedOver.end());
}

Reader::Reader(model::Model& model) : impl_(std::make_unique<Impl>(model)) {}

Reader::~Reader() = default;

void Reader::Map(const std::string& prefix, const std::string& directory) {
  impl_->reading.files.Map(prefix, directory);
}

void Reader::Read(const std::string& path) {
  impl_->SetDefaults(path);
  impl_->reading.files.Open(path);
  impl_->RunPasses();
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
  for (FileIndex file = 0; file < reading.files.Size(); ++file) {
    if (reading.files[file].isLibrary) continue;
    const IdTarget* target = reading.ids.Find(file, id);
    if (target != nullptr && !target->inner) return reading.items[target->item].element;
  }
  return nullptr;
}

std::vector<model::Element*> Reader::FindByName(std::string_view qualifiedName) const {
  std::vector<model::Element*> found;
  const Items& items = impl_->reading.items;
  const std::string_view last = qualifiedName.substr(qualifiedName.rfind(':') + 1);
  for (ItemIndex index = 0; index < items.Size(); ++index) {
    const Item& item = items[index];
    if (item.element == nullptr || items.NameOf(index) != last) continue;
    if (impl_->reading.files[item.file].isLibrary) continue;
    const std::string name = items.QualifiedName(index);
    const std::string rootName(items.NameOf(items.RootOf(index)));
    const std::string full = name.empty() ? rootName : rootName + "::" + name;
    if (qualifiedName == name || qualifiedName == full) found.push_back(item.element);
  }
  return found;
}

std::vector<model::Element*> Reader::Artifacts() const {
  std::vector<model::Element*> artifacts;
  const Items& items = impl_->reading.items;
  for (ItemIndex index = 0; index < items.Size(); ++index) {
    const Word type = items[index].type;
    const bool isArtifact = type == Word::kArtifact || type == Word::kDeploymentSpecification;
    if (isArtifact) artifacts.push_back(items[index].element);
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
