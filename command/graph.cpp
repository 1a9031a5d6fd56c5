#include "command/graph.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "command/child_process.h"
#include "command/declarations.h"
#include "command/dependency_graph.h"
#include "command/dot_text.h"
#include "command/failure.h"
#include "command/whole_file.h"

namespace command {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& file, const std::string& reason) {
  throw Failure(kExportFailed, "can't draw '" + file.string() + "': " + reason);
}

/// Has Graphviz draw a text into a file that exists.
void Draw(const std::string& dotFile, const std::string& svgFile, const fs::path& file) {
  const int status = RunProgram({"dot", "-Tsvg", "-o", svgFile, dotFile}, STDERR_FILENO);
  if (status == -ENOENT) {
    Fail(file,
         "there is no program 'dot'; install Graphviz (Debian: apt-get install graphviz), or give "
         "a file that ends in .dot");
  }
  if (status < 0) Fail(file, std::string("can't run 'dot': ") + std::strerror(-status));
  if (status != 0) Fail(file, "'dot' failed");
}

}  // namespace

void CheckGraphFile(const fs::path& file) {
  if (file.extension() == ".dot" || file.extension() == ".svg") return;
  throw Failure(kBadInput, "can't draw '" + file.string() + "': its name must end in .dot or .svg");
}

void WriteGraph(std::span<model::Element* const> artifacts, const fs::path& file) {
  CheckGraphFile(file);
  const std::string text = DotText(MakeDependencyGraph(Declarations(artifacts)));
  WholeFile result(file);
  if (file.extension() == ".dot") {
    result.Write(text);
  } else {
    const WholeFile source(file.string() + ".dot");
    source.Write(text);
    Draw(source.Temporary().string(), result.Temporary().string(), file);
  }
  result.PutInPlace();
}

}  // namespace command
