#include "scopes/names.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "options/options.h"
#include "scopes/clashes.h"
#include "scopes/declarations.h"
#include "scopes/spelling.h"
#include "types/identifier.h"
#include "types/one_line.h"

namespace mdktoidl {
namespace {

/// Tells which declarations a compiler reads together with a composition, whose language has
/// further keywords: those of its file, and of all files that this includes.
class ImplementationFiles {
 public:
  explicit ImplementationFiles(const Root& root) : isOne_(root.Nodes().size()) {
    for (const Node* node : root.Nodes()) {
      if (node->Kind().language != Language::idl && node->isDeclared()) Add(FileOf(*node));
    }
    if (files_.empty() || options.Mapping() == ONE_FILE) return;
    const auto includes = IncludesIn(root);
    for (std::size_t i = 0; i < files_.size(); ++i) {
      auto include = std::ranges::lower_bound(includes, files_[i], {}, &Include::first);
      for (; include != includes.end() && include->first == files_[i]; ++include) {
        Add(include->second);
      }
    }
  }

  bool Hold(const Node& node) const { return !files_.empty() && isOne_[FileOf(node)]; }

 private:
  using Include = std::pair<std::uint32_t, std::uint32_t>;

  /// The serial of the module whose file a declaration is in, or 0, which is the root's.
  static std::uint32_t FileOf(const Node& node) {
    if (options.Mapping() == ONE_FILE) return 0;
    return node.isModule() ? node.Serial() : Module::GetFileNode(&node)->Serial();
  }

  /// Which file uses what in which other, sorted.
  static std::vector<Include> IncludesIn(const Root& root) {
    std::vector<Include> includes;
    for (const Node* node : root.Nodes()) {
      for (const Use& use : node->Used()) includes.emplace_back(FileOf(*node), FileOf(*use.used));
    }
    std::ranges::sort(includes);
    return includes;
  }

  void Add(std::uint32_t file) {
    if (!isOne_[file]) files_.push_back(file);
    isOne_[file] = true;
  }

  std::vector<std::uint32_t> files_;
  std::vector<bool> isOne_;  // by serial
};

/// A name like a given one that can be written.
std::string Proposal(std::string_view name) {
  std::string proposed;
  for (const char each : name) {
    const std::string longer = proposed + each;
    if (IsIdentifier(longer) && !IsEscaped(longer)) {
      proposed = longer;
    } else if (!proposed.empty() && !proposed.ends_with('_')) {
      proposed += '_';
    }
  }
  while (proposed.ends_with('_')) proposed.pop_back();
  return proposed;
}

void CheckIdentifier(const Node& node) {
  const std::string_view name = node.WrittenName();
  if (name.empty()) return node.Report(Message::nameMissing, {Describe(node)});
  const std::string proposal = Proposal(name);
  const std::string advice = proposal.empty() ? "" : "; '" + proposal + "' would be one";
  if (!IsIdentifier(name)) {
    node.Report(Message::nameNotIdentifier, {Describe(node), OneLine(name), advice});
  } else if (IsEscaped(name)) {
    node.Report(Message::nameIsEscaped, {Describe(node), proposal});
  }
}

void TreatKeyword(Node& node, bool isImplementation, bool mayRepair) {
  const std::string_view name = node.WrittenName();
  const auto keyword = KeywordLike(name, isImplementation);
  if (keyword.empty() || IsEscaped(name)) return;
  if (!mayRepair) {
    return node.Report(
        keyword == name ? Message::nameIsKeyword : Message::nameIsKeywordButForCapitals,
        {Describe(node), keyword});
  }
  node.Escape();
  node.Report(Message::nameEscaped, {Describe(node), name});
}

void MakeIdentifiersLegal(const Root& root, bool mayRepair) {
  if (root.DoubtfulNames().empty()) return;
  const ImplementationFiles implementationFiles(root);
  for (const std::uint32_t serial : root.DoubtfulNames()) {
    Node& node = *root.Nodes()[serial];
    if (!node.isDeclared()) continue;
    CheckIdentifier(node);
    TreatKeyword(node, implementationFiles.Hold(node), mayRepair);
  }
}

}  // namespace

void MakeNamesLegal(Root& root, bool mayRepair) {
  const DeclaredNames names(root);
  const Places places(root);
  LookUp lookUp(root, names, places);
  MakeIdentifiersLegal(root, mayRepair);
  CheckDeclaredNames(root, names, lookUp.Table());
  CheckInheritedNames(root, names);
  SpellNames(root, lookUp, mayRepair);
}

}  // namespace mdktoidl
