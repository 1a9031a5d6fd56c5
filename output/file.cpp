#include "output/file.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "agent/diagnostics.h"
#include "options/options.h"

namespace mdktoidl {

bool File::AbsolutePath(std::string& path, std::string& base) {
  NormalizePath(path);
  const int climbs = EatDotDotSlashes(path);
  if (climbs == 0) return true;
  if (base.empty()) base = options.ArtifactDir();
  NormalizePath(base);
  RemoveFileOrDir(base, climbs);
  path = base + "/" + path;
  return true;
}

bool File::CreateSubDir(const std::string& path) {
  constexpr mode_t mode = 0777;
  const auto make = [](const std::string& directory) {
    return mkdir(directory.c_str(), mode) == 0 || errno == EEXIST;
  };
  for (std::size_t slash = path.find('/'); slash != std::string::npos;
       slash = path.find('/', slash + 1)) {
    if (!make(path.substr(0, slash))) return false;
  }
  return make(path);
}

bool File::CreateDir(std::string& path) {
  std::string base;
  return AbsolutePath(path, base) && CreateSubDir(path);
}

std::string File::CreateFileName(const std::string& name) {
  return name + options.FileSuffix() + ".idl";
}

std::string File::GetFileProtectionName(std::string fileName) {
  std::replace(fileName.begin(), fileName.end(), '/', '_');
  std::replace(fileName.begin(), fileName.end(), '.', '_');
  return fileName;
}

bool File::Open(const std::string& fileName, Writer& out) {
  std::string path = options.RootDir() + "/" + fileName;
  NormalizePath(path);
  if (!out.Open(path)) {
    Tell({Message::fileNotOpened, options.Element(), {path}});
    return false;
  }
  const std::string guard = GetFileProtectionName(fileName);
  out << "#ifndef " << guard;
  newline(out);
  out << "#define " << guard;
  newline(out);
  newline(out);
  out << "// CORBA IDL exported from Zentrio";
  newline(out);
  return true;
}

void File::Close(Writer& out) {
  if (!out.IsOpen()) return;
  newline(out);
  newline(out);
  out << "#endif";
  newline(out);
  out.Close();
}

}  // namespace mdktoidl
