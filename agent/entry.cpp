// The two functions that a host looks up by name.

#include "agent/export_run.h"
#include "agent/message_output.h"

extern "C" {

/// Prepares the message output; hosts call it once after loading.
__attribute__((visibility("default"))) void SetPortSymbol() {
  try {
    mdktoidl::pOut = mdk::GetModelAccess();
  } catch (...) {
    mdktoidl::pOut = nullptr;  // an export asks again, and reports what then fails
  }
}

/// Exports the artifact that the user ran the agent on. The first two arguments are ignored.
__attribute__((visibility("default"))) void CORBAIDLExporter(void*, void*,
                                                             mdk::IMdeEntity* artifact) {
  mdktoidl::RunExport(artifact);
}

}  // extern "C"
