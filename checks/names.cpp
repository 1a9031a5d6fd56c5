#include "checks/names.h"

#include <vector>

#include "checks/declared_names.h"
#include "checks/name_checks.h"
#include "diagnostics/one_line.h"
#include "options/options.h"
#include "types/identifier.h"

namespace checks {
namespace {

using mdktoidl::IsEscaped;
using mdktoidl::IsIdentifier;
using mdktoidl::KeywordLike;

/// Tells which declarations share a file with a composition, whose language has further keywords.
class ImplementationFiles {
 public:
  explicit ImplementationFiles(const Root& root) : hasComposition_(root.Nodes().size()) {
    for (const Node* node : root.Nodes()) {
      if (node->Kind().language == mdktoidl::Language::idl) continue;
      hasComposition_[FileOf(*node)] = true;
      isEmpty_ = false;
    }
  }

  bool Hold(const Node& node) const { return !isEmpty_ && hasComposition_[FileOf(node)]; }

 private:
  /// The serial of the module whose file a declaration is in, or 0, which is the root's.
  static std::uint32_t FileOf(const Node& node) {
    if (mdktoidl::options.Mapping() == mdktoidl::ONE_FILE) return 0;
    return node.isModule() ? node.Serial() : mdktoidl::Module::GetFileNode(&node)->Serial();
  }

  bool isEmpty_ = true;
  std::vector<bool> hasComposition_;  // by serial
};

void CheckName(const Node& node, const ImplementationFiles& implementationFiles,
               DiagnosticList& found) {
  const std::string_view name = node.WrittenName();
  if (name.empty()) return found.Report(node, Message::nameMissing, {Describe(node)});
  if (!IsIdentifier(name)) {
    return found.Report(node, Message::nameNotIdentifier,
                        {Describe(node), diagnostics::OneLine(name)});
  }
  if (IsEscaped(name)) return;
  const auto keyword = KeywordLike(name, implementationFiles.Hold(node));
  if (keyword.empty()) return;
  found.Report(node,
               keyword == name ? Message::nameIsKeyword : Message::nameIsKeywordButForCapitals,
               {Describe(node), keyword});
}

void CheckSpelling(const Root& root, DiagnosticList& found) {
  if (root.DoubtfulNames().empty()) return;
  const ImplementationFiles implementationFiles(root);
  for (const std::uint32_t serial : root.DoubtfulNames()) {
    const Node& node = *root.Nodes()[serial];
    if (node.isDeclared()) CheckName(node, implementationFiles, found);
  }
}

}  // namespace

void CheckNames(const Root& root, DiagnosticList& found) {
  const DeclaredNames names(root);
  CheckSpelling(root, found);
  CheckScopes(root, names, found);
  CheckInheritance(root, names, found);
  CheckVisibility(root, found);
}

}  // namespace checks
