#include "checks/file_names.h"

#include <unordered_map>
#include <utility>

#include "agent/vocabulary.h"
#include "options/options.h"
#include "output/file.h"
#include "types/identifier.h"
#include "types/one_line.h"

namespace checks {
namespace {

using mdktoidl::Describe;
using mdktoidl::ForEachChild;
using mdktoidl::Module;
using mdktoidl::OneLine;
using mdktoidl::options;
using mdktoidl::Root;

/// What a name holds that must not be in the name of a file; empty for a harmless name.
std::string_view Danger(std::string_view name) {
  if (name.find('/') != name.npos) return "a slash";
  if (name.find('\\') != name.npos) return "a backslash";
  if (name.find("..") != name.npos) return "'..'";
  return mdktoidl::HasControl(name) ? "a control character" : std::string_view();
}

void CheckArtifact(const Root& root, const std::string& described, DiagnosticList& found) {
  const std::pair<std::string_view, std::string> names[] = {{"fileName", options.FileName()},
                                                            {"fileSuffix", options.FileSuffix()}};
  for (const auto& [setting, name] : names) {
    const auto danger = Danger(name);
    if (danger.empty()) continue;
    found.Report(root, Message::fileNameUnsafe, {described, setting, OneLine(name), danger});
  }
}

void CheckModule(const Node& module, DiagnosticList& found) {
  const std::string_view name = module.Name();
  if (const auto danger = Danger(name); !danger.empty()) {
    found.Report(module, Message::fileNameOfModuleUnsafe,
                 {Describe(module), OneLine(name), danger});
  } else if (name.empty() && options.Mapping() != mdktoidl::ONE_FILE) {
    found.Report(module, Message::fileNameOfModuleEmpty, {Describe(module)});
  } else if (name == "." && options.Mapping() == mdktoidl::MODULE_STRUCTURED) {
    found.Report(module, Message::fileNameIsNoDirectory, {Describe(module)});
  }
}

/// Files by their paths, to find those that two would write.
class FileOwners {
 public:
  FileOwners(const Root& root, std::string artifact, DiagnosticList& found)
      : root_(root), artifact_(std::move(artifact)), found_(found) {}

  void Add(const std::string& file, const Node& owner) {
    const auto [first, isNew] = owners_.try_emplace(mdktoidl::Folded(file), file, &owner);
    const auto& [firstFile, firstOwner] = first->second;
    // What is exported twice is written twice, with the same text.
    if (isNew || firstOwner->Entity() == owner.Entity()) return;
    if (firstFile == file) {
      found_.Report(owner, Message::fileNamesSame, {Name(owner), Name(*firstOwner), OneLine(file)});
    } else {
      found_.Report(owner, Message::fileNamesDifferInCapitals,
                    {Name(owner), Name(*firstOwner), OneLine(file), OneLine(firstFile)});
    }
  }

 private:
  std::string Name(const Node& owner) const {
    return &owner == &root_ ? artifact_ : Describe(owner);
  }

  const Root& root_;
  std::string artifact_;
  DiagnosticList& found_;
  std::unordered_map<std::string, std::pair<std::string, const Node*>> owners_;
};

}  // namespace

bool CheckFileNames(const mdktoidl::Root& root, const std::string& artifactName,
                    DiagnosticList& found) {
  const std::string artifact = "artifact " + OneLine(artifactName);
  CheckArtifact(root, artifact, found);
  FileOwners owners(root, artifact, found);
  // A main file with nothing in it may give way to a module's.
  if (root.hasOwnFile()) {
    owners.Add(mdktoidl::File::CreateFileName(options.FileName()), root);
  }
  for (const Node* node : root.Nodes()) {
    if (!node->isModule()) continue;
    CheckModule(*node, found);
    const std::string file = static_cast<const Module*>(node)->ScopedFileName();
    if (!file.empty()) owners.Add(file, *node);
  }
  return !found.HasErrors();
}

}  // namespace checks
