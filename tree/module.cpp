#include "tree/module.h"

#include <algorithm>

#include "agent/idl_exception.h"
#include "agent/message_output.h"
#include "options/options.h"
#include "output/file.h"
#include "tree/components.h"
#include "tree/data_types.h"
#include "tree/homes.h"
#include "tree/interfaces.h"
#include "tree/node_registry.h"
#include "tree/openings.h"
#include "tree/type_definitions.h"
#include "tree/unions.h"
#include "types/elements.h"

namespace mdktoidl {

namespace {

const Classification moduleMembers = {
    {metaclasses::attribute, {{isPublicConstant, Make<Constant>}}},
    {metaclasses::classifier,
     {{Carries<stereotypes::corbaInterface>, Make<Interface>},
      {Carries<stereotypes::corbaStruct>, Make<Struct>},
      {Carries<stereotypes::corbaUnion>, Make<Union>},
      {Carries<stereotypes::corbaException>, Make<Exception>},
      {Carries<stereotypes::corbaTypedef>, Make<Typedef>},
      {Carries<stereotypes::corbaBoxedValue>, Make<BoxedValue>},
      {Carries<stereotypes::corbaSequence>, Make<Sequence>},
      {Carries<stereotypes::corbaComponent>, Make<Component>},
      {Carries<stereotypes::corbaComponentImpl>, Make<ComponentImpl>},
      {Carries<stereotypes::corbaSegment>, Make<Segment>},
      {Carries<stereotypes::corbaArtifact>, Make<Artifact>}}},
    {metaclasses::dataType,
     {{Carries<stereotypes::corbaEnum>, Make<Enumeration>},
      {Carries<stereotypes::corbaTypedef>, Make<Typedef>}}},
    {metaclasses::interface,
     {{Carries<stereotypes::corbaInterface>, Make<Interface>},
      {Carries<stereotypes::corbaHome>, Make<Home>},
      {Carries<stereotypes::corbaEvent>, Make<Value>},
      {Carries<stereotypes::corbaValue>, Make<Value>},
      {Carries<stereotypes::corbaTypedef>, Make<Typedef>}}},
    {metaclasses::package, {{Carries<stereotypes::corbaModule>, Make<Module>}}},
    {metaclasses::syntype,
     {{Carries<stereotypes::corbaTypedef>, Make<Typedef>},
      {Carries<stereotypes::corbaBoxedValue>, Make<BoxedValue>}}},
    {metaclasses::signal, {}},
    {metaclasses::artifact, {{Carries<stereotypes::corbaArtifact>, Make<Artifact>}}},
};

/// Modules are the only declarations that nest without an end, and the tree is walked recursively.
constexpr int deepest = 256;

void WriteInclude(std::string_view fileName, Writer& out) {
  newline(out);
  out << "#include \"" << fileName << '"';
}

void WriteIncludes(const std::vector<std::string>& files, Writer& out) {
  for (const std::string& file : files) WriteInclude(file, out);
}

bool holdsOnlyModules(const Container::Children& children) {
  return std::ranges::all_of(children, [](const auto& child) { return child->isModule(); });
}

}  // namespace

Root* root = nullptr;

// What is declared elsewhere, and used here before the includes lead to it, comes first.
void FileScope::UnparseFrameBefore(Writer& out) const {
  if (!isFramed()) {
    for (const Node* file : Included()) {
      WriteInclude(static_cast<const FileScope*>(file)->ScopedFileName(), out);
    }
    return;
  }
  WriteForwards(*root, frame_->forwards, out);
  WriteIncludes(frame_->before, out);
}

void FileScope::UnparseFrameBehind(Writer& out) const {
  if (isFramed()) WriteIncludes(frame_->behind, out);
}

/// Modules are left out when they have files of their own.
void FileScope::UnparseChild(const Node& child, Writer& out) const {
  if (options.Mapping() == ONE_FILE || !child.isModule()) child.Unparse(out);
}

std::string Root::ScopedFileName() const { return File::CreateFileName(options.FileName()); }

bool Root::hasOwnFile() const {
  return options.Mapping() == ONE_FILE || !holdsOnlyModules(children);
}

void Root::NumberAnew() {
  NodeList order;
  order.reserve(Nodes().size());
  Number(order);
  nodeRegistry.Reorder(std::move(order));
}

void Root::EvaluateTypes() {
  NodeList deps;
  OrderedScope::EvaluateTypes(deps);
}

void Root::MakeDirectories() const {
  if (options.Mapping() != MODULE_STRUCTURED) return;
  for (const Node* node : Nodes()) {
    if (!node->isModule()) continue;
    std::string directory = options.RootDir() + "/" + node->ScopedName("/");
    File::CreateDir(directory);  // if it can't be made, opening the file will say so
  }
}

void Root::Unparse(Writer& out) const {
  if (hasOwnFile() || isFramed()) {
    newline(out);
    UnparseFrameBefore(out);
    UnparseMembers(out);
    UnparseFrameBehind(out);
  }
  if (options.Mapping() == ONE_FILE) return;
  for (const Node* child : sorted) {
    if (child->isModule()) child->Unparse(out);
  }
}

// Users' scripts know the stray "3" for a declaration outside all modules; it is deliberate.
void Root::UnparseChild(const Node& child, Writer& out) const {
  if (options.Mapping() != ONE_FILE && !child.isModule()) Print("3");
  FileScope::UnparseChild(child, out);
}

Module::Module(mdk::IMdeEntity* element, Container* parent)
    : FileScope(element, parent),
      depth(parent == nullptr ? 1 : static_cast<const Module*>(parent)->depth + 1) {
  if (depth > deepest) {
    throw IDLException({Message::moduleTooDeep, element, {std::string(Name())}});
  }
  CreateNodeRef();
  Init();
  if (children.empty()) Report(Message::moduleIsEmpty);
}

void Module::Init() { AdoptMembers(moduleMembers); }

// Compilers refuse a module without declarations.
bool Module::declaresNothing() const {
  return std::ranges::all_of(children, [](const auto& child) {
    if (!child->isModule()) return !child->isDeclared();
    return static_cast<const Module&>(*child).declaresNothing();
  });
}

void Module::ResolveTypes(NodeList& deps) {
  EvaluateAndSort(external);
  deps.insert(deps.end(), external.begin(), external.end());
}

void Module::ObserveReferences(const Node& child, const NodeList& references) {
  if (options.Mapping() == ONE_FILE || child.isModule()) return;
  for (Node* reference : references) {
    if (ChildEnclosing(*reference) != nullptr && GetFileNode(reference) != this) {
      nested.push_back(reference);
    }
  }
}

std::string Module::ScopedFileName() const {
  switch (options.Mapping()) {
    case MODULE_FLAT:
      return File::CreateFileName(ScopedName("_"));
    case MODULE_STRUCTURED:
      return ScopedName("/") + "/" + File::CreateFileName(std::string(Name()));
    default:
      return "";
  }
}

const Node* Module::GetFileNode(const Node* node) {
  for (const Node* each = node->Enclosing(); each != nullptr; each = each->Enclosing()) {
    if (each->isModule()) return each;
  }
  return root;
}

void Module::Unparse(Writer& out) const {
  if (options.Mapping() == ONE_FILE) {
    if (!isLeftOut) UnparseBlock(out);
    return;
  }
  File::Close(out);
  if (!File::Open(ScopedFileName(), out)) return;
  UnparseFrameBefore(out);
  if (!isLeftOut && !holdsOnlyModules(children)) {
    UnparseModuleScope(out);
    UnparseBlock(out);
    UnparseModuleScopeEnd(out);
  }
  UnparseFrameBehind(out);
  for (const Node* child : sorted) {
    if (child->isModule()) child->Unparse(out);
  }
}

void Module::UnparseBlock(Writer& out) const {
  UnparseOpening(true, out);
  UnparseMembers(out);
  UnparseClosing(out);
}

void Module::UnparseOpening(bool isFirst, Writer& out) const {
  newline(out);
  if (isFirst) UnparseComment(Entity(), out);
  newline(out);
  out << "module " << Written() << " {";
  indent(out);
}

void Module::UnparseClosing(Writer& out) const {
  redent(out);
  newline(out);
  out << "};";
}

// In the plain form the innermost enclosing module is opened first, so three levels come out in the
// wrong order; that is deliberate, files in use are written so.
void Module::UnparseModuleScope(Writer& out) const {
  newline(out);
  std::vector<const Definition*> around;
  for (const Definition* each = Scope(); each != nullptr; each = each->Scope()) {
    around.push_back(each);
  }
  if (isFramed()) std::ranges::reverse(around);
  for (const Definition* each : around) {
    newline(out);
    out << "module " << each->Written() << " {";
    indent(out);
  }
}

void Module::UnparseModuleScopeEnd(Writer& out) const {
  for (const Definition* each = Scope(); each != nullptr; each = each->Scope()) {
    redent(out);
    newline(out);
    out << "};";
  }
}

void Module::NoteUse(const Node& user, Node& used) {
  const Node* file = GetFileNode(&user);
  if (!file->isModule() || GetFileNode(&used) == file) return;
  static_cast<Module*>(nodeRegistry.Nodes()[file->Serial()])->external.push_back(&used);
}

std::vector<const Node*> Module::Included() const {
  NodeList used = external;
  used.insert(used.end(), nested.begin(), nested.end());
  SortByCreation(used);
  std::vector<const Node*> files;
  for (const Node* node : used) files.push_back(GetFileNode(node));
  std::ranges::sort(files, {}, &Node::Serial);
  files.erase(std::unique(files.begin(), files.end()), files.end());
  // A file that is imported, too, stands here once more for each import. That is deliberate: every
  // file guards itself against being included twice.
  for (mdk::IMdeEntity* dependency : Elements(Entity(), properties::clientDependency)) {
    if (!hasStereotype(dependency, stereotypes::access) &&
        !hasStereotype(dependency, stereotypes::import)) {
      continue;
    }
    mdk::IMdeEntity* supplier = dependency->GetEntity(properties::supplier, 0);
    if (supplier == nullptr || !hasStereotype(supplier, stereotypes::corba)) continue;
    const Node* node = GetNodeRef(supplier);
    if (node == nullptr) continue;  // not part of this export, so it has no file to include
    files.push_back(node->isModule() ? node : GetFileNode(node));
  }
  return files;
}

std::string Include::ExtractFile() const {
  mdk::IMdeEntity* value = Entity()->EvalExpression(tags::file.Expression(), 0);
  if (value == nullptr) {
    throw IDLException({Message::settingMissing, Entity(), {tags::file.Name() + "."}});
  }
  return value->GetValue(properties::valueString, 0);
}

void Include::ResolveTypes(NodeList&) { fileName = ExtractFile(); }

void Include::Unparse(Writer& out) const { WriteInclude(fileName, out); }

}  // namespace mdktoidl
