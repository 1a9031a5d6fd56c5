#include "scopes/names.h"

#include <vector>

#include "options/options.h"
#include "scopes/declared_names.h"
#include "scopes/name_checks.h"
#include "types/identifier.h"
#include "types/one_line.h"

namespace mdktoidl {
namespace {

/// Tells which declarations share a file with a composition, whose language has further keywords.
class ImplementationFiles {
 public:
  explicit ImplementationFiles(const Root& root) : hasComposition_(root.Nodes().size()) {
    for (const Node* node : root.Nodes()) {
      if (node->Kind().language == Language::idl) continue;
      hasComposition_[FileOf(*node)] = true;
      isEmpty_ = false;
    }
  }

  bool Hold(const Node& node) const { return !isEmpty_ && hasComposition_[FileOf(node)]; }

 private:
  /// The serial of the module whose file a declaration is in, or 0, which is the root's.
  static std::uint32_t FileOf(const Node& node) {
    if (options.Mapping() == ONE_FILE) return 0;
    return node.isModule() ? node.Serial() : Module::GetFileNode(&node)->Serial();
  }

  bool isEmpty_ = true;
  std::vector<bool> hasComposition_;  // by serial
};

void CheckName(const Node& node, const ImplementationFiles& implementationFiles) {
  const std::string_view name = node.WrittenName();
  if (name.empty()) return node.Report(Message::nameMissing, {Describe(node)});
  if (!IsIdentifier(name)) {
    return node.Report(Message::nameNotIdentifier, {Describe(node), OneLine(name)});
  }
  if (IsEscaped(name)) return;
  const auto keyword = KeywordLike(name, implementationFiles.Hold(node));
  if (keyword.empty()) return;
  node.Report(keyword == name ? Message::nameIsKeyword : Message::nameIsKeywordButForCapitals,
              {Describe(node), keyword});
}

void CheckSpelling(const Root& root) {
  if (root.DoubtfulNames().empty()) return;
  const ImplementationFiles implementationFiles(root);
  for (const std::uint32_t serial : root.DoubtfulNames()) {
    const Node& node = *root.Nodes()[serial];
    if (node.isDeclared()) CheckName(node, implementationFiles);
  }
}

}  // namespace

void CheckNames(const Root& root) {
  const DeclaredNames names(root);
  CheckSpelling(root);
  CheckScopes(root, names);
  CheckInheritance(root, names);
  CheckVisibility(root);
}

}  // namespace mdktoidl
