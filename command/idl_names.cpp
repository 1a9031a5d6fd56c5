#include "command/idl_names.h"

#include "command/declaration_uses.h"
#include "command/declarations.h"
#include "command/declared_names.h"
#include "command/file_names_check.h"
#include "command/generator_settings.h"
#include "command/inheritance_check.h"
#include "command/name_findings.h"
#include "command/scope_check.h"
#include "command/spelling_check.h"

namespace command {
namespace {

/// Whether the main file holds more than the modules, if these have files of their own.
bool HasMainFile(const Declarations& declarations, const model::Element& artifact) {
  bool hasOthers = IncludesFiles(artifact);
  declarations.ForEachChild(kNoDeclaration, [&](DeclarationIndex top) {
    hasOthers = hasOthers || declarations[top].kind != DeclarationKind::kModule;
  });
  return hasOthers;
}

std::string NameToShow(const xmi::Reader& reader, const model::Element& artifact) {
  std::string name = reader.QualifiedName(artifact);
  return name.empty() ? reader.IdOf(artifact) : name;
}

}  // namespace

NameCheck CheckNames(const xmi::Reader& reader, model::Element& artifact) {
  model::Element* const artifacts[] = {&artifact};
  const Declarations declarations(artifacts);
  const FileSettings settings = FileSettingsOf(artifact);
  NameFindings findings;
  CheckFileNames(declarations, settings, NameToShow(reader, artifact),
                 HasMainFile(declarations, artifact), findings);
  const DeclaredNames names(declarations);
  CheckSpelling(declarations, names, settings.mapping, findings);
  const DeclarationUses uses(declarations);
  CheckScopes(declarations, names, uses, findings);
  CheckInheritance(declarations, names, uses, findings);
  return {findings.Diagnostics(reader, declarations, artifact), declarations.Size()};
}

}  // namespace command
