// One export, from the artifact that the user ran the agent on to the written files.
#pragma once

#include "agent/export_observer.h"
#include "host/element.h"

namespace mdktoidl {

/// Runs one export and reports through the host's message output, and to an observer if there is
/// one. Does nothing without an artifact or a model access object. Nothing is thrown, whatever the
/// model or the host does, and nothing is kept between runs but the settings. Runs share the
/// process's globals and must not overlap: one that the host asks for while another goes on, on the
/// same thread, does nothing.
void RunExport(mdk::IMdeEntity* artifact, ExportObserver* whoFollows = nullptr) noexcept;

}  // namespace mdktoidl
