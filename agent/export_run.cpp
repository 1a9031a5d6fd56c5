#include "agent/export_run.h"

#include <list>
#include <memory>
#include <utility>

#include "agent/diagnostics.h"
#include "agent/export_observer.h"
#include "agent/idl_exception.h"
#include "agent/message_output.h"
#include "options/options.h"
#include "output/file.h"
#include "scopes/added_typedefs.h"
#include "scopes/names.h"
#include "tree/arrangement.h"
#include "tree/interfaces.h"
#include "tree/legality.h"
#include "tree/module.h"
#include "tree/node_registry.h"
#include "types/constant_value.h"
#include "types/elements.h"

namespace mdktoidl {

namespace {

/// The run's share of the process's globals: clean before, clean after, however the run ends.
class RunState {
 public:
  explicit RunState(ExportObserver* whoFollows) {
    Clear();
    observer = whoFollows;
  }
  ~RunState() { Clear(); }
  RunState(const RunState&) = delete;
  RunState& operator=(const RunState&) = delete;

  void Grow(mdk::IMdeEntity* artifact) {
    tree_ = std::make_unique<Root>(artifact);
    root = tree_.get();
  }

 private:
  void Clear() {
    observer = nullptr;
    SetVerbatim(false);
    root = nullptr;
    tree_.reset();
    nodeRegistry.Clear();
    ForgetConstants();
    ClearMessages();
  }

  std::unique_ptr<Root> tree_;
};

/// The node that a dependency of the artifact asks for; null for one that asks for none.
std::unique_ptr<Node> MakeTopLevelNode(mdk::IMdeEntity* dependency) {
  mdk::IMdeEntity* supplier = dependency->GetEntity(properties::supplier, 0);
  if (supplier == nullptr) return nullptr;
  nodeRegistry.BeginTree(supplier);
  if (!isMarked(dependency, stereotypes::manifest)) {
    const bool isFile =
        supplier->IsKindOf(metaclasses::artifact) && isMarked(supplier, stereotypes::idlFile);
    return isFile ? std::make_unique<Include>(supplier, nullptr) : nullptr;
  }
  if (supplier->IsKindOf(metaclasses::package) && isMarked(supplier, stereotypes::corbaModule)) {
    return std::make_unique<Module>(supplier, nullptr);
  }
  const bool mayBeInterface =
      supplier->IsKindOf(metaclasses::classifier) || supplier->IsKindOf(metaclasses::interface);
  if (mayBeInterface && isMarked(supplier, stereotypes::corbaInterface)) {
    return std::make_unique<Interface>(supplier, nullptr);
  }
  return nullptr;
}

void Build(mdk::IMdeEntity* artifact, const std::list<mdk::IMdeEntity*>& dependencies,
           RunState& state) {
  state.Grow(artifact);
  for (mdk::IMdeEntity* dependency : dependencies) {
    if (auto node = MakeTopLevelNode(dependency)) root->AddNode(std::move(node));
  }
}

/// An observer hears of the evaluation also when that is broken off: what was found out so far is
/// of use to it.
void Evaluate() {
  try {
    root->EvaluateTypes();
  } catch (...) {
    if (observer != nullptr) observer->Evaluated(*root);
    throw;
  }
  if (observer != nullptr) observer->Evaluated(*root);
}

// What the plain form has that no compiler takes is repaired, unless it is wanted as it is; what
// can't be repaired is told.
// Types are named after the declarations are checked, so that what is wrong with one is told of the
// declaration that has it; before the order, since that is of the typedefs as well; and before the
// names, since the order decides what they mean.
void MakeLegal(Root& tree) {
  const bool mayRepair = !options.isVerbatim();
  if (mayRepair) RepairDeclarations(tree);
  CheckDeclarations(tree);
  if (mayRepair) {
    NameTypes(tree);
    Arrange(tree);
  }
  MakeNamesLegal(tree, mayRepair);
}

bool OpenMainFile(Writer& out) {
  std::string directory = options.RootDir();
  File::CreateDir(directory);  // if it can't be made, opening the file will say so
  return File::Open(File::CreateFileName(options.FileName()), out);
}

// The tree is there before the first file is touched: an observer may find names in it that would
// lead a file elsewhere. An export that it refuses is evaluated nevertheless, so that all is known
// that is wrong with it.
void Export(mdk::IMdeEntity* artifact, RunState& state, Writer& out) {
  Print("\nIDL exporter started...\n");
  const std::list<mdk::IMdeEntity*> dependencies = Elements(artifact, properties::clientDependency);
  if (dependencies.empty()) {
    Tell({Message::nothingToExport, artifact, {}});
    Print(headings::aborted);
    return;
  }
  options.SetOptions(artifact);
  Build(artifact, dependencies, state);
  const bool isRefused = observer != nullptr && !observer->Built(*root);
  if (!isRefused && !OpenMainFile(out)) return;
  Evaluate();
  MakeLegal(*root);
  if (!isRefused) root->MakeDirectories();
  PrintMessages();
  if (isRefused) return Print(headings::aborted);
  if (errors.empty()) root->Unparse(out);
  File::Close(out);
  deleteNodeStereotypes(artifact);
  Print("IDL exporter finished.\n");
}

/// What every abort does: the diagnostics gathered so far are still shown, then the reason.
void Abort(Writer& out, const std::string& heading, const Diagnostic& reason) {
  File::Close(out);
  PrintMessages();
  ClearMessages();
  Print(heading);
  Print(TextOf(reason));
  Print("\n");
  Print(headings::aborted);
  if (observer != nullptr) observer->Told(reason);
}

/// Set while a run goes on: a host may answer a message by asking for another export.
bool isRunning = false;

class RunningMark {
 public:
  RunningMark() { isRunning = true; }
  ~RunningMark() { isRunning = false; }
  RunningMark(const RunningMark&) = delete;
  RunningMark& operator=(const RunningMark&) = delete;
};

void RunGuarded(mdk::IMdeEntity* artifact, ExportObserver* whoFollows) {
  RunState state(whoFollows);
  Writer out;
  try {
    Export(artifact, state, out);
  } catch (const IDLException& exception) {
    Abort(out, headings::internalError, exception.Reason());
  } catch (const char*) {
    const char* reason = nullptr;
    mdk::GetAPIErrorMessage(reason);
    Abort(out, headings::hostError,
          {Message::hostFailed, artifact, {reason == nullptr ? "" : reason}});
  } catch (...) {
    Abort(out, headings::otherError, {Message::hostFailed, artifact, {"Unknown exception"}});
  }
}

}  // namespace

void RunExport(mdk::IMdeEntity* artifact, ExportObserver* whoFollows) noexcept {
  if (isRunning) return;
  const RunningMark mark;
  try {
    pOut = mdk::GetModelAccess();
    if (pOut == nullptr || artifact == nullptr) return;
    RunGuarded(artifact, whoFollows);
  } catch (...) {
    // The host failed while an abort was being reported to it: there is nobody left to tell.
  }
}

}  // namespace mdktoidl
