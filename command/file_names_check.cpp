#include "command/file_names_check.h"

#include <unordered_map>

#include "command/idl_identifier.h"
#include "command/one_line.h"

namespace command {
namespace {

/// What a name holds that must not be in the name of a file; empty for a harmless name.
std::string_view Danger(std::string_view name) {
  if (name.find('/') != name.npos) return "a slash";
  if (name.find('\\') != name.npos) return "a backslash";
  if (name.find("..") != name.npos) return "'..'";
  return HasControl(name) ? "a control character" : std::string_view();
}

void CheckArtifact(const FileSettings& settings, const std::string& described,
                   NameFindings& findings) {
  const std::pair<const char*, std::string_view> names[] = {{"fileName", settings.fileName},
                                                            {"fileSuffix", settings.fileSuffix}};
  for (const auto& [setting, name] : names) {
    const auto danger = Danger(name);
    if (danger.empty()) continue;
    findings.Err("unsafe-name", kNoDeclaration,
                 described + ": " + setting + " '" + OneLine(name) + "' holds " +
                     std::string(danger) + ", which must not be in the name of a file");
  }
}

void CheckModule(const Declarations& declarations, DeclarationIndex module, FileMapping mapping,
                 NameFindings& findings) {
  const std::string_view name = declarations.Name(module);
  if (const auto danger = Danger(name); !danger.empty()) {
    findings.Err("unsafe-name", module,
                 declarations.Describe(module) + ": '" + OneLine(name) + "' holds " +
                     std::string(danger) + ", which must not be in the name of a file");
  } else if (name.empty() && mapping != FileMapping::kOneFile) {
    findings.Err("unsafe-name", module,
                 declarations.Describe(module) + " has no name to call its file by");
  } else if (name == "." && mapping == FileMapping::kModuleStructured) {
    findings.Err("unsafe-name", module,
                 declarations.Describe(module) + ": '.' is no name for a directory");
  }
}

std::string FileOf(const Declarations& declarations, DeclarationIndex module,
                   const FileSettings& settings) {
  const std::string end = settings.fileSuffix + ".idl";
  if (settings.mapping == FileMapping::kModuleFlat)
    return declarations.ScopedName(module, "_") + end;
  return declarations.ScopedName(module, "/") + "/" + std::string(declarations.Name(module)) + end;
}

/// Files by their paths, to find those that two would write.
class FileOwners {
 public:
  FileOwners(const Declarations& declarations, std::string artifact, NameFindings& findings)
      : declarations_(declarations), artifact_(std::move(artifact)), findings_(findings) {}

  void Add(const std::string& file, DeclarationIndex owner) {
    const auto [first, isNew] = owners_.try_emplace(Folded(file), file, owner);
    if (isNew) return;
    const auto& [firstFile, firstOwner] = first->second;
    if (IsSameModule(firstOwner, owner)) return;
    const std::string both = Describe(owner) + " and " + Describe(firstOwner);
    if (firstFile == file) {
      findings_.Err("file-clash", owner, both + " have the same file '" + OneLine(file) + "'");
    } else {
      findings_.Warn("file-clash", owner,
                     both + " have files that differ only in capitals, '" + OneLine(file) +
                         "' and '" + OneLine(firstFile) + "'");
    }
  }

 private:
  /// What is exported twice is written twice, with the same text.
  bool IsSameModule(DeclarationIndex first, DeclarationIndex second) const {
    return first != kNoDeclaration && declarations_[first].element == declarations_[second].element;
  }

  std::string Describe(DeclarationIndex owner) const {
    return owner == kNoDeclaration ? artifact_ : declarations_.Describe(owner);
  }

  const Declarations& declarations_;
  std::string artifact_;
  NameFindings& findings_;
  std::unordered_map<std::string, std::pair<std::string, DeclarationIndex>> owners_;
};

}  // namespace

void CheckFileNames(const Declarations& declarations, const FileSettings& settings,
                    const std::string& artifactName, bool hasMainFile, NameFindings& findings) {
  const std::string artifact = "artifact " + OneLine(artifactName);
  CheckArtifact(settings, artifact, findings);
  FileOwners owners(declarations, artifact, findings);
  // A main file with nothing in it may give way to a module's.
  if (hasMainFile) owners.Add(settings.fileName + settings.fileSuffix + ".idl", kNoDeclaration);
  for (DeclarationIndex index = 0; index < declarations.Size(); ++index) {
    if (declarations[index].kind != DeclarationKind::kModule) continue;
    CheckModule(declarations, index, settings.mapping, findings);
    if (settings.mapping == FileMapping::kOneFile) continue;
    owners.Add(FileOf(declarations, index, settings), index);
  }
}

}  // namespace command
