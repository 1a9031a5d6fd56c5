#include "options/options.h"

#include "agent/idl_exception.h"
#include "agent/messages.h"
#include "agent/vocabulary.h"
#include "options/path.h"

namespace mdktoidl {

Options options;

namespace {

/// The element that holds a setting. Throws `IDLException` when the artifact lacks it; `shownAs`
/// is what the message then calls it.
mdk::IMdeEntity* Setting(mdk::IMdeEntity* element, const Tag& tag, const std::string& shownAs) {
  mdk::IMdeEntity* value = element->EvalExpression(tag.Expression(), 0);
  if (value == nullptr) throw IDLException({Message::settingMissing, element, {shownAs}});
  return value;
}

std::string TextSetting(mdk::IMdeEntity* element, const Tag& tag, const std::string& shownAs) {
  return Setting(element, tag, shownAs)->GetValue(properties::valueString, 0);
}

std::string LiteralSetting(mdk::IMdeEntity* element, const Tag& tag) {
  return Setting(element, tag, tag.Name())->GetValue(properties::name, 0);
}

/// False when the artifact lacks it: models are older than the setting.
bool BooleanSetting(mdk::IMdeEntity* element, const Tag& tag) {
  mdk::IMdeEntity* value = element->EvalExpression(tag.Expression(), 0);
  return value != nullptr && value->GetValue(properties::name, 0) == "true";
}

}  // namespace

// What the messages call them is irregular ("fileFname", full stops in three of five); users
// search for the messages as they are.
void Options::SetOptions(mdk::IMdeEntity* generator) {
  element = generator;
  verbatim = BooleanSetting(element, tags::isVerbatim);
  SetVerbatim(verbatim);
  targetDir = TextSetting(element, tags::targetDir, tags::targetDir.Name() + ".");
  fileName = TextSetting(element, tags::fileName, "IDLGenerator::fileFname.");
  if (fileName.empty()) fileName = element->GetValue(properties::name, 0);
  fileSuffix = TextSetting(element, tags::fileSuffix, tags::fileSuffix.Name() + ".");
  artifactDir = element->GetValue(properties::uri, 0);
  Path::NormalizePath(artifactDir);
  Path::RemoveFileOrDir(artifactDir, 1);
  isAsyncDefault = LiteralSetting(element, tags::isAsyncDefault);
  fileMapping = LiteralSetting(element, tags::fileMapping);
  rootDir = targetDir.empty() ? artifactDir + "/" + fileName : targetDir;
}

FileMapping Options::Mapping() const {
  if (fileMapping == "MODULE_FLAT") return MODULE_FLAT;
  if (fileMapping == "MODULE_STRUCTURED") return MODULE_STRUCTURED;
  return ONE_FILE;
}

}  // namespace mdktoidl
