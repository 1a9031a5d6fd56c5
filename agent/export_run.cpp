#include "agent/export_run.h"

#include <fstream>
#include <list>
#include <memory>

#include "agent/diagnostics.h"
#include "agent/idl_exception.h"
#include "agent/message_output.h"
#include "options/options.h"
#include "output/file.h"
#include "tree/include.h"
#include "tree/interface.h"
#include "tree/module.h"
#include "tree/node_registry.h"
#include "tree/node_tag.h"
#include "tree/root.h"
#include "types/constant_value.h"
#include "types/elements.h"
#include "types/markings.h"

namespace mdktoidl {

namespace {

const char* const aborted = "\nIDL exporter aborted.\n";

/// The run's share of the process's globals: clean before, clean after, however the run ends.
class RunState {
 public:
  RunState() { Clear(); }
  ~RunState() { Clear(); }
  RunState(const RunState&) = delete;
  RunState& operator=(const RunState&) = delete;

  void Grow(mdk::IMdeEntity* artifact) {
    tree_ = std::make_unique<Root>(artifact);
    root = tree_.get();
  }

 private:
  void Clear() {
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
  mdk::IMdeEntity* supplier = dependency->GetEntity("Supplier", 0);
  if (supplier == nullptr) return nullptr;
  nodeRegistry.BeginTree(supplier);
  if (!isMarked(dependency, markings::manifest)) {
    const bool isFile = supplier->IsKindOf("Artifact") && isMarked(supplier, markings::idlFile);
    return isFile ? std::make_unique<Include>(supplier, nullptr) : nullptr;
  }
  if (supplier->IsKindOf("Package") && isMarked(supplier, markings::corbaModule)) {
    return std::make_unique<Module>(supplier, nullptr);
  }
  const bool mayBeInterface = supplier->IsKindOf("Class") || supplier->IsKindOf("Interface");
  if (mayBeInterface && isMarked(supplier, markings::corbaInterface)) {
    return std::make_unique<Interface>(supplier, nullptr);
  }
  return nullptr;
}

void Export(mdk::IMdeEntity* artifact, RunState& state, std::ofstream& out) {
  Print("\nIDL exporter started...\n");
  const std::list<mdk::IMdeEntity*> dependencies = Elements(artifact, "ClientDependency");
  if (dependencies.empty()) {
    Print("IDL exporter failed to find root element to export.\n");
    Print(aborted);
    return;
  }
  options.SetOptions(artifact);
  std::string directory = options.RootDir();
  File::CreateDir(directory);  // if it can't be made, opening the file will say so
  if (!File::Open(File::CreateFileName(options.FileName()), out)) return;
  state.Grow(artifact);
  for (mdk::IMdeEntity* dependency : dependencies) {
    if (auto node = MakeTopLevelNode(dependency)) root->AddNode(std::move(node));
  }
  root->EvaluateTypes();
  PrintMessages();
  if (errors.empty()) root->Unparse(out);
  File::Close(out);
  deleteNodeStereotypes(artifact);
  Print("IDL exporter finished.\n");
}

/// What every abort does: the diagnostics gathered so far are still shown, then the reason.
void Abort(std::ofstream& out, const std::string& heading, const std::string& reason) {
  File::Close(out);
  PrintMessages();
  ClearMessages();
  Print(heading);
  Print(reason);
  Print("\n");
  Print(aborted);
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

void RunGuarded(mdk::IMdeEntity* artifact) {
  RunState state;
  std::ofstream out;
  try {
    Export(artifact, state, out);
  } catch (const IDLException& exception) {
    Abort(out, "Internal error in IDL exporter agent: ", exception.what());
  } catch (const char*) {
    const char* reason = nullptr;
    mdk::GetAPIErrorMessage(reason);
    Abort(out, "API Error in IDL exporter agent: ", reason == nullptr ? "" : reason);
  } catch (...) {
    Abort(out, "Error in IDL exporter agent: ", "Unknown exception");
  }
}

}  // namespace

void RunExport(mdk::IMdeEntity* artifact) noexcept {
  if (isRunning) return;
  const RunningMark mark;
  try {
    pOut = mdk::GetModelAccess();
    if (pOut == nullptr || artifact == nullptr) return;
    RunGuarded(artifact);
  } catch (...) {
    // The host failed while an abort was being reported to it: there is nobody left to tell.
  }
}

}  // namespace mdktoidl
