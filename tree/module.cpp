#include "tree/module.h"

#include <algorithm>

#include "agent/diagnostics.h"
#include "agent/idl_exception.h"
#include "options/options.h"
#include "output/file.h"
#include "output/layout.h"
#include "tree/artifact.h"
#include "tree/boxed_value.h"
#include "tree/classification.h"
#include "tree/component.h"
#include "tree/component_impl.h"
#include "tree/constant.h"
#include "tree/enumeration.h"
#include "tree/exception.h"
#include "tree/home.h"
#include "tree/interface.h"
#include "tree/root.h"
#include "tree/segment.h"
#include "tree/sequence.h"
#include "tree/struct.h"
#include "tree/typedef.h"
#include "tree/union.h"
#include "tree/value.h"
#include "types/elements.h"
#include "types/markings.h"
#include "types/properties.h"

namespace mdktoidl {

namespace {

const Classification moduleMembers = {
    {"Attribute", {{isPublicConstant, Make<Constant>}}},
    {"Class",
     {{Carries<markings::corbaInterface>, Make<Interface>},
      {Carries<markings::corbaStruct>, Make<Struct>},
      {Carries<markings::corbaUnion>, Make<Union>},
      {Carries<markings::corbaException>, Make<Exception>},
      {Carries<markings::corbaTypedef>, Make<Typedef>},
      {Carries<markings::corbaBoxedValue>, Make<BoxedValue>},
      {Carries<markings::corbaSequence>, Make<Sequence>},
      {Carries<markings::corbaComponent>, Make<Component>},
      {Carries<markings::corbaComponentImpl>, Make<ComponentImpl>},
      {Carries<markings::corbaSegment>, Make<Segment>},
      {Carries<markings::corbaArtifact>, Make<Artifact>}}},
    {"DataType",
     {{Carries<markings::corbaEnum>, Make<Enumeration>},
      {Carries<markings::corbaTypedef>, Make<Typedef>}}},
    {"Interface",
     {{Carries<markings::corbaInterface>, Make<Interface>},
      {Carries<markings::corbaHome>, Make<Home>},
      {Carries<markings::corbaEvent>, Make<Value>},
      {Carries<markings::corbaValue>, Make<Value>},
      {Carries<markings::corbaTypedef>, Make<Typedef>}}},
    {"Package", {{Carries<markings::corbaModule>, Make<Module>}}},
    {"Syntype",
     {{Carries<markings::corbaTypedef>, Make<Typedef>},
      {Carries<markings::corbaBoxedValue>, Make<BoxedValue>}}},
    {"Signal", {}},
    {"Artifact", {{Carries<markings::corbaArtifact>, Make<Artifact>}}},
};

/// Modules are the only declarations that nest without an end, and the tree is walked recursively.
constexpr int deepest = 256;

void WriteInclude(const std::string& fileName, std::ofstream& out) {
  newline(out);
  out << "#include \"" << fileName << '"';
}

std::string FileName(const Node* fileNode) {
  if (fileNode->isModule()) return static_cast<const Module*>(fileNode)->ScopedFileName();
  return File::CreateFileName(options.FileName());
}

}  // namespace

Module::Module(mdk::IMdeEntity* element, Container* parent)
    : OrderedScope(element, parent),
      depth(parent == nullptr ? 1 : static_cast<const Module*>(parent)->depth + 1) {
  if (depth > deepest) throw IDLException("module " + Name() + " is nested too deeply");
  CreateNodeRef();
  Init();
  if (children.empty()) Report(Message::moduleIsEmpty, {ScopedName("::")});
}

void Module::Init() { AdoptMembers(moduleMembers); }

void Module::EvaluateTypes(NodeList& deps) {
  NodeList outside;
  EvaluateChildren(outside);
  for (const auto& child : children) onlyModules = onlyModules && child->isModule();
  JoinList(outside, deps);
  external = std::move(outside);
  NameFile();
  Sort();
}

void Module::ObserveReferences(const Node& child, const NodeList& references) {
  if (options.Mapping() == ONE_FILE || child.isModule()) return;
  for (Node* reference : references) {
    if (ChildEnclosing(*reference) != nullptr && GetFileNode(reference) != this) {
      nested.push_back(reference);
    }
  }
}

void Module::NameFile() {
  if (options.Mapping() == MODULE_FLAT) {
    fileName = File::CreateFileName(ScopedName("_"));
  } else if (options.Mapping() == MODULE_STRUCTURED) {
    const std::string path = ScopedName("/");
    std::string directory = options.RootDir() + "/" + path;
    File::CreateDir(directory);
    fileName = path + "/" + File::CreateFileName(Name());
  }
}

const Node* Module::GetFileNode(const Node* node) {
  for (const Definition* each = node->Scope(); each != nullptr; each = each->Scope()) {
    const Node* enclosing = static_cast<const Node*>(each);
    if (enclosing->isModule()) return enclosing;
  }
  return root;
}

void Module::Unparse(std::ofstream& out) {
  if (options.Mapping() == ONE_FILE) {
    UnparseBlock(out);
    return;
  }
  File::Close(out);
  if (!File::Open(ScopedFileName(), out)) return;
  UnparsePackageRelationships(out);
  if (!onlyModules) {
    UnparseModuleScope(out);
    UnparseBlock(out);
    UnparseModuleScopeEnd(out);
  }
  for (Node* child : sorted) {
    if (child->isModule()) child->Unparse(out);
  }
}

void Module::UnparseBlock(std::ofstream& out) const {
  UnparseHeading(out);
  out << "module " << Name();
  UnparseBody(out);
}

void Module::UnparseMembers(std::ofstream& out) const {
  const bool oneFile = options.Mapping() == ONE_FILE;
  UnparseForwards(out);
  for (Node* child : sorted) {
    if (oneFile || !child->isModule()) child->Unparse(out);
  }
}

// The innermost enclosing module is opened first, so three levels come out in the wrong order; that
// is deliberate, files in use are written so.
void Module::UnparseModuleScope(std::ofstream& out) const {
  newline(out);
  for (const Definition* each = Scope(); each != nullptr; each = each->Scope()) {
    newline(out);
    out << "module " << each->Name() << " {";
    indent(out);
  }
}

void Module::UnparseModuleScopeEnd(std::ofstream& out) const {
  for (const Definition* each = Scope(); each != nullptr; each = each->Scope()) {
    redent(out);
    newline(out);
    out << "};";
  }
}

void Module::UnparsePackageRelationships(std::ofstream& out) const {
  NodeList used = external;
  JoinList(nested, used);
  SortByCreation(used);
  std::vector<const Node*> files;
  for (const Node* node : used) files.push_back(GetFileNode(node));
  const auto earlier = [](const Node* left, const Node* right) {
    return left->Serial() < right->Serial();
  };
  std::sort(files.begin(), files.end(), earlier);
  files.erase(std::unique(files.begin(), files.end()), files.end());
  for (const Node* file : files) WriteInclude(FileName(file), out);
  // A file that is imported, too, stands here once more for each import. That is deliberate: every
  // file guards itself against being included twice.
  for (mdk::IMdeEntity* dependency : Elements(Entity(), properties::clientDependency)) {
    if (!dependency->HasStereotype("access", 0) && !dependency->HasStereotype("import", 0))
      continue;
    mdk::IMdeEntity* supplier = dependency->GetEntity(properties::supplier, 0);
    if (supplier == nullptr || !supplier->HasStereotype("CORBA", 0)) continue;
    const Node* node = GetNodeRef(supplier);
    if (node == nullptr) continue;  // not part of this export, so it has no file to include
    WriteInclude(FileName(node->isModule() ? node : GetFileNode(node)), out);
  }
}

}  // namespace mdktoidl
