#include "placement/manifest.h"

#include <algorithm>
#include <fstream>

namespace placement {
namespace {

constexpr std::string_view heading =
    "# Written by idlexport: which artifact made which file. \"idlexport --prune\" reads it.\n";

/// Somebody may have changed the manifest, and files that it names may get removed.
bool LeadsOutside(const std::string& file) {
  const std::filesystem::path path(file);
  return file.empty() || path.is_absolute() || path.lexically_normal() != path ||
         *path.begin() == ".." || file == Manifest::kFileName;
}

}  // namespace

Manifest::Manifest(const std::filesystem::path& directory) {
  std::ifstream in(directory / kFileName);
  for (std::string line; std::getline(in, line);) {
    const std::size_t tab = line.rfind('\t');
    if (heading.starts_with(line) || tab == std::string::npos) continue;
    const std::string file = line.substr(tab + 1);
    if (!LeadsOutside(file)) files_[line.substr(0, tab)].insert(file);
  }
}

const std::set<std::string>& Manifest::FilesOf(const std::string& artifact) const {
  static const std::set<std::string> none;
  const auto found = files_.find(artifact);
  return found == files_.end() ? none : found->second;
}

bool Manifest::IsOfAnother(const std::string& artifact, const std::string& file) const {
  return std::any_of(files_.begin(), files_.end(), [&](const auto& entry) {
    return entry.first != artifact && entry.second.contains(file);
  });
}

void Manifest::Set(const std::string& artifact, std::set<std::string> files) {
  files_[artifact] = std::move(files);
}

std::string Manifest::Text() const {
  std::string text(heading);
  for (const auto& [artifact, files] : files_) {
    for (const std::string& file : files) text.append(artifact).append("\t").append(file) += '\n';
  }
  return text;
}

}  // namespace placement
