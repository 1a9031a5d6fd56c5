#include "command/agent_library.h"

#include <dlfcn.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "command/failure.h"
#include "model/model.h"

namespace command {
namespace {

/// The agent stands beside the model's library, which the loader has found already.
std::filesystem::path LibraryPath() {
  Dl_info host{};
  dladdr(reinterpret_cast<const void*>(&model::SetMessageSink), &host);
  std::error_code error;
  const std::filesystem::path library = std::filesystem::canonical(host.dli_fname, error);
  if (error) throw Failure(kBadInput, "can't find the model's library: " + error.message());
  return library.parent_path() / "libidlexport.so";
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
