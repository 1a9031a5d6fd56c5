#include "tests/support/file_tree.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace support {

namespace fs = std::filesystem;

ScratchDirectory::ScratchDirectory() {
  std::string name = (fs::canonical(fs::temp_directory_path()) / "idlexport-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("can't make " + name);
  path_ = name;
}

ScratchDirectory::~ScratchDirectory() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string ReadFile(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::runtime_error("can't read " + file.string());
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void WriteFile(const fs::path& file, std::string_view text) {
  fs::create_directories(file.parent_path());
  std::ofstream stream(file, std::ios::binary);
  stream << text;
  if (!stream.flush()) throw std::runtime_error("can't write " + file.string());
}

std::map<std::string, std::string> ReadTree(const fs::path& directory) {
  std::map<std::string, std::string> files;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(directory)) {
    if (!entry.is_regular_file()) continue;
    files[entry.path().lexically_relative(directory).string()] = ReadFile(entry.path());
  }
  return files;
}

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  for (auto at = text.find(from); at != text.npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

}  // namespace support
