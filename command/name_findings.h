// What the checks of names have found, by declaration.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "command/declarations.h"
#include "command/diagnostic.h"
#include "xmi/reader.h"

namespace command {

class NameFindings {
 public:
  void Warn(std::string_view rule, DeclarationIndex declaration, std::string text) {
    findings_.push_back({declaration, Severity::kWarning, rule, std::move(text)});
  }
  void Err(std::string_view rule, DeclarationIndex declaration, std::string text) {
    findings_.push_back({declaration, Severity::kError, rule, std::move(text)});
  }

  /// In the order of the declarations, those about the artifact itself (`kNoDeclaration`) first.
  std::vector<Diagnostic> Diagnostics(const xmi::Reader& reader, const Declarations& declarations,
                                      const model::Element& artifact);

 private:
  struct Finding {
    DeclarationIndex declaration;
    Severity severity;
    std::string_view rule;  // a literal
    std::string text;
  };

  std::vector<Finding> findings_;
};

}  // namespace command
