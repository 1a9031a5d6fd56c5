#include "command/graph.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

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

/// Runs a program to its end; what it prints goes to standard error. Returns an `errno`, or 0 with
/// what `waitpid` says.
int RunToEnd(const std::vector<std::string>& words, int& status) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, STDERR_FILENO, STDOUT_FILENO);
  pid_t process = 0;
  const int error =
      posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) return error;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) return errno;
  }
  return 0;
}

/// Has Graphviz draw a text into a file that exists.
void Draw(const std::string& dotFile, const std::string& svgFile, const fs::path& file) {
  int status = 0;
  const int error = RunToEnd({"dot", "-Tsvg", "-o", svgFile, dotFile}, status);
  if (error == ENOENT) {
    Fail(
        file,
        "there is no program 'dot'; install Graphviz (Debian: apt-get install graphviz), or give a "
        "file that ends in .dot");
  }
  if (error != 0) Fail(file, std::string("can't run 'dot': ") + std::strerror(error));
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) Fail(file, "'dot' failed");
}

}  // namespace

void CheckGraphFile(const fs::path& file) {
  if (file.extension() == ".dot" || file.extension() == ".svg") return;
  throw Failure(kBadInput, "can't draw '" + file.string() + "': its name must end in .dot or .svg");
}

void WriteGraph(const xmi::Reader&, std::span<model::Element* const> artifacts,
                const fs::path& file) {
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
