#include "xmi/tables/files.h"

#include <cctype>
#include <cstdlib>
#include <filesystem>

#include "xmi/tables/built_in.h"
#include "xmi/tables/libraries.h"

namespace xmi {

std::string PercentDecoded(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escape = text[i] == '%' && i + 2 < text.size() &&
                        std::isxdigit(static_cast<unsigned char>(text[i + 1])) != 0 &&
                        std::isxdigit(static_cast<unsigned char>(text[i + 2])) != 0;
    if (!escape) {
      result += text[i];
      continue;
    }
    const std::string digits(text.substr(i + 1, 2));
    result += static_cast<char>(std::strtol(digits.c_str(), nullptr, 16));
    i += 2;
  }
  return result;
}

namespace {

std::string_view LastPart(std::string_view path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

// "http:", "pathmap:" and the like; a relative path has none.
std::string_view SchemeOf(std::string_view address) {
  const std::size_t end = address.find_first_of(":/\\");
  if (end == std::string_view::npos || address[end] != ':') return {};
  return address.substr(0, end + 1);
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
  std::string_view id = hash == std::string_view::npos ? std::string_view() : href.substr(hash + 1);
  id = id.substr(0, id.find('?'));
  if (address.empty()) return {from, id};
  const std::string_view name = LastPart(address);
  if (name == kLibraryFile) return InLibrary(id);
  const LibraryReference reference = FindInLibrary(name, id);
  if (!reference.type.empty()) return InLibrary(reference.type);
  if (reference.known && !SchemeOf(address).empty()) return {};
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
  const std::string mapped = MappedPath(address);
  if (!mapped.empty()) return OpenPath(mapped, files_[from]->document->Locate(offset));
  const std::string_view scheme = SchemeOf(address);
  const bool local = scheme == "file:";
  if (!scheme.empty() && !local) {
    if (byAddress_.emplace(address, Target::kNoFile).second) {
      diagnostics_->Add(
          files_[from]->document->Locate(offset), "reference-not-local",
          "\"" + std::string(address) + "\" is not on the local disk and is not read");
    }
    return Target::kNoFile;
  }
  if (local) {
    address.remove_prefix(scheme.size());
    if (address.substr(0, 2) == "//") address.remove_prefix(2);
    if (address.substr(0, 10) == "localhost/") address.remove_prefix(9);
  }
  const std::filesystem::path base = std::filesystem::path(files_[from]->document->Path());
  const std::string path =
      (base.parent_path() / PercentDecoded(address)).lexically_normal().string();
  return OpenPath(path, files_[from]->document->Locate(offset));
}

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
  } catch (const ReadError& problem) {
    diagnostics_->Add(location, "file-unreadable", std::string("can't read ") + problem.what());
  }
  return entry->second;
}

}  // namespace xmi
