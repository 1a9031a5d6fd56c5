#include "tests/support/export.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "agent/export_run.h"
#include "tests/support/message_log.h"
#include "tests/support/small_model.h"
#include "tests/support/xmi_files.h"

namespace support {

namespace fs = std::filesystem;

namespace {

/// The text between two others, which must stand at its ends.
std::string Between(const std::string& begin, const std::string& text, const std::string& end) {
  const bool complete =
      text.size() >= begin.size() + end.size() && text.starts_with(begin) && text.ends_with(end);
  EXPECT_TRUE(complete) << "Expected:\n" << begin << "[...]" << end << "Found:\n" << text;
  if (!complete) return text;
  return text.substr(begin.size(), text.size() - begin.size() - end.size());
}

/// The lines without one level of indentation, which each must have.
std::string Outdented(const std::string& text) {
  constexpr std::string_view level = "    ";
  std::string result;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    EXPECT_TRUE(line.starts_with(level)) << "not indented: \"" << line << '"';
    result += "\n" + line.substr(std::min(level.size(), line.size()));
  }
  return result.substr(1);
}

}  // namespace

std::string Exported::Messages() const {
  std::string all;
  for (const std::string& piece : pieces) all += piece;
  return all;
}

std::string Exported::Diagnostics() const {
  std::string found;
  std::istringstream lines(Messages());
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("Error - ") || line.starts_with("Warning - ")) found += line + "\n";
  }
  return found;
}

std::string Exported::Body(const std::string& file) const {
  const auto found = files.find(file);
  if (found == files.end()) {
    ADD_FAILURE() << file << " was not written\n" << Messages();
    return "";
  }
  const std::string guard = Replaced(Replaced(file, "/", "_"), ".", "_");
  return Between(
      "#ifndef " + guard + "\n#define " + guard + "\n\n// CORBA IDL exported from Zentrio\n",
      found->second, "\n\n#endif\n");
}

std::string Exported::Inside(const std::string& module, const std::string& file) const {
  const std::string body = Body(file);
  const std::string opening = "\nmodule " + module + " {\n";
  const std::size_t begin = body.find(opening);
  const std::size_t end = body.rfind("\n};");
  if (begin == body.npos || end < begin + opening.size()) return "";
  const std::size_t first = begin + opening.size();
  return Outdented(body.substr(first, end - first));
}

ExportBench::ExportBench() : previous_(fs::current_path()) { fs::current_path(scratch_.Path()); }

ExportBench::~ExportBench() { fs::current_path(previous_); }

Element& ExportBench::Artifact(std::initializer_list<Element*> elements, Tags settings) {
  // The values of the first application prevail, so the second gives defaults.
  Element& artifact = Mark(Generator("Out", settings), "IDLGenerator",
                           {{"targetDir", "out"}, {"isVerbatim", "true"}});
  for (Element* element : elements) Manifest(artifact, *element);
  return artifact;
}

Exported ExportBench::Run(mdk::IMdeEntity* artifact) const {
  const fs::path directory = Directory() / "out";
  fs::remove_all(directory);
  const MessageLog log;
  mdktoidl::RunExport(artifact);
  Exported result{log.Pieces(), {}};
  if (fs::exists(directory)) result.files = ReadTree(directory);
  return result;
}

void ExpectOutcomes(std::span<const OutcomeCase> cases, Tags settings) {
  for (const OutcomeCase& each : cases) {
    SCOPED_TRACE(each.what);
    ExportBench bench;
    Element& module = bench.Module("M");
    each.build(bench, module);
    EXPECT_EQ(bench.Export({&module}, settings).Outcome(), each.outcome);
  }
}

Exported ExportSmallModel(std::string_view text, const std::string& settings) {
  const ExportBench bench;
  XmiFiles files;
  files.Write("model.uml", SmallModel(text, "targetDir=\"out\" isVerbatim=\"true\" " + settings))
      .Read();
  return bench.Run(&files["out"]);
}

void ExpectOutcomes(std::span<const SmallCase> cases) {
  for (const SmallCase& each : cases) {
    SCOPED_TRACE(each.what);
    const std::string text = "module M { " + std::string(each.members) + " }";
    EXPECT_EQ(ExportSmallModel(text).Outcome(), each.outcome);
  }
}

}  // namespace support
