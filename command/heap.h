// The memory of the process, prepared for a model of a certain size.
//
// A large model takes hundreds of megabytes in small pieces, and having the kernel hand them out in
// pages of four kilobytes costs a sixth of a run. Where it has larger pages, it is asked for these.
#pragma once

#include <filesystem>

namespace command {

/// Prepares for reading a file. Only a matter of speed: it does nothing where it can't.
void PrepareHeap(const std::filesystem::path& file);

}  // namespace command
