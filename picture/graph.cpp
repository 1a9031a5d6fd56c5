#include "picture/graph.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "picture/dot_text.h"
#include "placement/child_process.h"
#include "placement/failure.h"
#include "placement/whole_file.h"

namespace picture {
namespace {

namespace fs = std::filesystem;
using placement::Failure;
using placement::kBadInput;
using placement::kExportFailed;

[[noreturn]] void Fail(const fs::path& file, const std::string& reason) {
  throw Failure(kExportFailed, "can't draw '" + file.string() + "': " + reason);
}

/// Has Graphviz draw a text into a file that exists.
void Draw(const std::string& dotFile, const std::string& svgFile, const fs::path& file) {
  const int status = placement::RunProgram({"dot", "-Tsvg", "-o", svgFile, dotFile}, STDERR_FILENO);
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

void WriteGraph(const Graph& graph, const fs::path& file) {
  CheckGraphFile(file);
  const std::string text = DotText(graph);
  placement::WholeFile result(file);
  if (file.extension() == ".dot") {
    result.Write(text);
  } else {
    const placement::WholeFile source(file.string() + ".dot");
    source.Write(text);
    Draw(source.Temporary().string(), result.Temporary().string(), file);
  }
  result.PutInPlace();
}

}  // namespace picture
