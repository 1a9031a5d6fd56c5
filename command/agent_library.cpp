#include "command/agent_library.h"

#include <dlfcn.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "command/failure.h"

namespace command {
namespace {

std::filesystem::path LibraryPath() {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) throw Failure(kBadInput, "can't find the command's own place: " + error.message());
  return self.parent_path().parent_path() / "lib" / "libidlexport.so";
}

/// `dlerror` names the file or the symbol that is to blame.
[[noreturn]] void FailToLoad() {
  throw Failure(kBadInput, std::string("can't load the export agent: ") + dlerror());
}

void* Find(void* library, const char* symbol) {
  void* address = dlsym(library, symbol);
  if (address == nullptr) FailToLoad();
  return address;
}

}  // namespace

AgentLibrary::AgentLibrary() {
  void* library = dlopen(LibraryPath().c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) FailToLoad();
  setPort_ = reinterpret_cast<PortSetter*>(Find(library, "SetPortSymbol"));
  export_ = reinterpret_cast<Exporter*>(Find(library, "CORBAIDLExporter"));
}

void AgentLibrary::Export(mdk::IMdeEntity& artifact) const {
  setPort_();
  export_(nullptr, nullptr, &artifact);
}

}  // namespace command
