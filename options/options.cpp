#include "options/options.h"

#include "agent/idl_exception.h"
#include "options/path.h"

namespace mdktoidl {

Options options;

namespace {

/// The text of a generator setting. Throws `IDLException` with `complaint` when it is absent.
std::string Setting(mdk::IMdeEntity* element, const std::string& tag, const std::string& property,
                    const std::string& complaint) {
  mdk::IMdeEntity* value = element->EvalExpression("IDLGenerator (. " + tag + " .)", 0);
  if (value == nullptr) throw IDLException(complaint);
  return value->GetValue(property, 0);
}

}  // namespace

// The complaints are irregular ("fileFname", full stops in three of five); users search for them
// as they are.
void Options::SetOptions(mdk::IMdeEntity* generator) {
  element = generator;
  targetDir = Setting(element, "targetDir", "ValueString",
                      "Failed to find value for IDLGenerator::targetDir.");
  fileName = Setting(element, "fileName", "ValueString",
                     "Failed to find value for IDLGenerator::fileFname.");
  if (fileName.empty()) fileName = element->GetValue("Name", 0);
  fileSuffix = Setting(element, "fileSuffix", "ValueString",
                       "Failed to find value for IDLGenerator::fileSuffix.");
  artifactDir = element->GetValue("Uri", 0);
  Path::NormalizePath(artifactDir);
  Path::RemoveFileOrDir(artifactDir, 1);
  isAsyncDefault = Setting(element, "isAsyncDefault", "Name",
                           "Failed to find value for IDLGenerator::isAsyncDefault");
  fileMapping =
      Setting(element, "fileMapping", "Name", "Failed to find value for IDLGenerator::fileMapping");
  rootDir = targetDir.empty() ? artifactDir + "/" + fileName : targetDir;
}

FileMapping Options::Mapping() const {
  if (fileMapping == "MODULE_FLAT") return MODULE_FLAT;
  if (fileMapping == "MODULE_STRUCTURED") return MODULE_STRUCTURED;
  return ONE_FILE;
}

}  // namespace mdktoidl
