// Exports of built models: what the agent says and writes, in a form that tests can compare.
#pragma once

#include <filesystem>
#include <initializer_list>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/element.h"
#include "tests/support/file_tree.h"
#include "tests/support/model_builder.h"

namespace support {

/// What one run left behind.
struct Exported {
  std::vector<std::string> pieces;           ///< one for each print
  std::map<std::string, std::string> files;  ///< by path below the directory "out"

  /// All that was printed.
  std::string Messages() const;

  /// The lines about the model, each with its line end, without the summary.
  std::string Diagnostics() const;

  /// What is written into a file between its head and its foot, which must be complete.
  std::string Body(const std::string& file = "Out.idl") const;

  /// The declarations of a module that shares its file with nothing else, without the module's
  /// indentation and its braces' line ends. Empty when there is no such module.
  std::string Inside(const std::string& module = "M", const std::string& file = "Out.idl") const;

  /// The diagnostics, and behind them the declarations of the module "M", if they were written.
  std::string Outcome() const { return Diagnostics() + Inside(); }
};

/// A model in the making and an empty directory, which is the current one while the bench lives.
/// Nothing else is kept from one export to the next.
class ExportBench : public ModelBuilder {
 public:
  ExportBench();
  ~ExportBench();

  /// An artifact named "Out" that manifests `elements`. Its files go under "out", in the plain
  /// form, unless the settings say something else.
  Element& Artifact(std::initializer_list<Element*> elements, Tags settings = {});

  /// Runs the agent on an artifact, which may be none of this model, or null.
  Exported Run(mdk::IMdeEntity* artifact) const;

  Exported Export(std::initializer_list<Element*> elements, Tags settings = {}) {
    return Run(&Artifact(elements, settings));
  }

  const std::filesystem::path& Directory() const { return scratch_.Path(); }

 private:
  ScratchDirectory scratch_;
  std::filesystem::path previous_;
};

/// A module "M" with something in it, and what its export comes to.
struct OutcomeCase {
  std::string_view what;
  void (*build)(ExportBench& bench, Element& module);
  std::string_view outcome;
};

/// Exports each case, by itself.
void ExpectOutcomes(std::span<const OutcomeCase> cases, Tags settings = {});

/// Exports a small model, told as in "small_model.h".
Exported ExportSmallModel(std::string_view text, const std::string& settings = "");

/// The same as an outcome case with a module "M" that holds what the text of a small model says.
struct SmallCase {
  std::string_view what;
  std::string_view members;
  std::string_view outcome;
};

void ExpectOutcomes(std::span<const SmallCase> cases);

}  // namespace support
