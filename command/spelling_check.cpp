#include "command/spelling_check.h"

#include <vector>

#include "command/idl_identifier.h"
#include "command/idl_keywords.h"
#include "command/one_line.h"

namespace command {
namespace {

/// Tells which declarations share a file with a composition, whose language has further keywords.
class ImplementationFiles {
 public:
  ImplementationFiles(const Declarations& declarations, FileMapping mapping)
      : declarations_(declarations),
        isOneFile_(mapping == FileMapping::kOneFile),
        hasComposition_(declarations.Size() + std::size_t{1}) {
    for (DeclarationIndex index = 0; index < declarations.Size(); ++index) {
      if (declarations[index].kind != DeclarationKind::kComposition) continue;
      hasComposition_[FileOf(index)] = true;
      isEmpty_ = false;
    }
  }

  bool Hold(DeclarationIndex index) const { return !isEmpty_ && hasComposition_[FileOf(index)]; }

 private:
  /// The place of the module whose file a declaration is in, or one behind all for the main file.
  std::size_t FileOf(DeclarationIndex index) const {
    if (isOneFile_) return declarations_.Size();
    while (index != kNoDeclaration && declarations_[index].kind != DeclarationKind::kModule) {
      index = declarations_[index].parent;
    }
    return index == kNoDeclaration ? declarations_.Size() : index;
  }

  const Declarations& declarations_;
  bool isOneFile_;
  bool isEmpty_ = true;
  std::vector<bool> hasComposition_;
};

/// Whether a name is to be looked at no further, however it is spelled and wherever it stands.
bool IsHarmless(std::string_view name) {
  return IsIdentifier(name) && KeywordLike(Unescaped(name), true).empty();
}

void CheckName(const Declarations& declarations, DeclarationIndex index,
               const ImplementationFiles& implementationFiles, NameFindings& findings) {
  const std::string_view name = declarations.Name(index);
  if (name.empty()) {
    findings.Warn("idl-identifier", index, declarations.Describe(index) + " has no name");
  } else if (!IsIdentifier(name)) {
    findings.Warn("idl-identifier", index,
                  declarations.Describe(index) + ": '" + OneLine(name) + "' is no IDL identifier");
  } else if (!IsEscaped(name)) {
    const auto keyword = KeywordLike(name, implementationFiles.Hold(index));
    if (keyword.empty()) return;
    findings.Warn("idl-keyword", index,
                  declarations.Describe(index) + " is named as the IDL keyword '" +
                      std::string(keyword) + (keyword == name ? "'" : "', but for capitals"));
  }
}

}  // namespace

void CheckSpelling(const Declarations& declarations, const DeclaredNames& names,
                   FileMapping mapping, NameFindings& findings) {
  const ImplementationFiles implementationFiles(declarations, mapping);
  std::vector<bool> isHarmless(names.Size());  // by number, as far as known
  for (DeclarationIndex index = 0; index < declarations.Size(); ++index) {
    const NameNumber number = names.Of(index);
    if (number != kUniqueName && isHarmless[number]) continue;
    if (!IsHarmless(declarations.Name(index))) {
      CheckName(declarations, index, implementationFiles, findings);
    } else if (number != kUniqueName) {
      isHarmless[number] = true;
    }
  }
}

}  // namespace command
