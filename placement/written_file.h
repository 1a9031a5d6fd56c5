// Writes files other than IDL, which the command makes itself.
#pragma once

#include <filesystem>
#include <string_view>

namespace placement {

/// Puts a file in place, whole or not at all. Makes no directories. Throws `Failure`.
void WriteWhole(const std::filesystem::path& file, std::string_view text);

/// Throws `Failure` when it is already clear that the file can't be written.
void CheckWritable(const std::filesystem::path& file);

/// Makes the file if it is missing, and sets its time stamp to now. Throws `Failure`.
void Touch(const std::filesystem::path& file);

}  // namespace placement
