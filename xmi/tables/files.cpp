#include "xmi/tables/files.h"

#include <filesystem>

#include "xmi/tables/libraries.h"
#include "xmi/text/scanning.h"

namespace xmi {
namespace {

// "http:", "pathmap:" and the like; a relative path has none.
std::string_view SchemeOf(std::string_view address) {
  const std::size_t end = address.find_first_of(":/\\");
  const bool isScheme = end != address.npos && address[end] == ':';
  return isScheme ? address.substr(0, end + 1) : std::string_view();
}

std::string CanonicalOf(const std::string& path) {
  std::error_code error;
  const auto canonical = std::filesystem::weakly_canonical(path, error);
  return error ? path : canonical.string();
}

}  // namespace

void Files::Map(const std::string& prefix, const std::string& directory) {
  directories_[prefix] = directory;
}

void Files::Open(const std::string& path) {
  byPath_.emplace(CanonicalOf(path), Add(Document::Load(path)));
  paths_.push_back(path);
}

FileIndex Files::Add(std::unique_ptr<Document> document) {
  const auto index = static_cast<FileIndex>(files_.size());
  if (index == Target::kNoFile) throw ReadError({document->Path()}, "too many files");
  files_.push_back(std::make_unique<File>());
  files_.back()->document = std::move(document);
  return index;
}

Target Files::Follow(FileIndex from, std::string_view href, std::uint32_t offset) {
  const auto known = files_[from]->targets.find(href);
  if (known != files_[from]->targets.end()) return known->second;
  const Target target = Resolve(from, href, offset);
  files_[from]->targets.emplace(href, target);
  return target;
}

Target Files::Resolve(FileIndex from, std::string_view href, std::uint32_t offset) {
  const std::size_t hash = href.find('#');
  const std::string_view address = href.substr(0, hash);
  std::string_view id = hash == href.npos ? std::string_view() : href.substr(hash + 1);
  id = id.substr(0, id.find('?'));  // some tools put a hint for readers behind the id
  if (address.empty()) return {from, id};
  const std::string_view name = address.substr(address.find_last_of("/\\") + 1);
  if (name == kLibraryFile) return InLibrary(id);
  const LibraryReference reference = FindInLibrary(name, id);
  if (!reference.type.empty()) return InLibrary(reference.type);
  // What no type here stands for isn't worth a warning, unless it's a file beside the model.
  if (reference.isKnown && !SchemeOf(address).empty()) return {};
  return {OpenReferred(from, address, offset), id};
}

Target Files::InLibrary(std::string_view id) {
  if (library_ == Target::kNoFile) {
    library_ =
        Add(Document::Parse(std::string(kLibraryFile), std::string(built_in::CORBA_library_uml)));
    files_[library_]->isLibrary = true;
  }
  return {library_, id};
}

std::string Files::MappedPath(std::string_view address) const {
  std::string_view longest;
  std::string path;
  for (const auto& [prefix, directory] : directories_) {
    if (!address.starts_with(prefix) || prefix.size() < longest.size()) continue;
    longest = prefix;
    path = directory + "/" + PercentDecoded(address.substr(prefix.size()));
  }
  return std::filesystem::path(path).lexically_normal().string();
}

FileIndex Files::OpenReferred(FileIndex from, std::string_view address, std::uint32_t offset) {
  const Location location = files_[from]->document->Locate(offset);
  const std::string mapped = MappedPath(address);
  if (!mapped.empty()) return OpenPath(mapped, location);
  const std::string_view scheme = SchemeOf(address);
  const bool isLocal = scheme == "file:";
  if (!scheme.empty() && !isLocal) {
    if (notLocal_.emplace(address).second) {
      diagnostics_->Add(
          location, "reference-not-local",
          "\"" + std::string(address) + "\" is not on the local disk and is not read");
    }
    return Target::kNoFile;
  }
  if (isLocal) {
    address.remove_prefix(scheme.size());  // "file:/a", "file:///a" or "file://localhost/a"
    if (address.starts_with("//")) address.remove_prefix(2);
    if (address.starts_with("localhost/")) address.remove_prefix(9);
  }
  const std::filesystem::path base(files_[from]->document->Path());
  const auto path = (base.parent_path() / PercentDecoded(address)).lexically_normal();
  return OpenPath(path.string(), location);
}

// A file that can't be read is remembered, too: it is told of once.
FileIndex Files::OpenPath(const std::string& path, const Location& location) {
  const auto [entry, isNew] = byPath_.emplace(CanonicalOf(path), Target::kNoFile);
  if (!isNew) return entry->second;
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    diagnostics_->Add(location, "file-unreadable", "can't read " + path + ": is not a file");
    return Target::kNoFile;
  }
  try {
    entry->second = Add(Document::Load(path));
    paths_.push_back(path);
  } catch (const ReadError& error) {
    diagnostics_->Add(location, "file-unreadable", std::string("can't read ") + error.what());
  }
  return entry->second;
}

}  // namespace xmi
