// The artifact's settings, and the texts of paths and numbers that are made from them.
//
// An input is a row of texts, each ended by a zero. No file is touched.
#include <array>
#include <cstdint>
#include <string>

#include "agent/idl_exception.h"
#include "fuzz/scratch.h"
#include "model/model.h"
#include "options/options.h"
#include "output/file.h"
#include "types/text.h"

namespace {

using mdktoidl::Path;
using model::Symbol;

void Require(bool holds, const std::string& what, const std::string& text) {
  if (!holds) fuzz::Fail(what + ": " + text);
}

void CheckPath(const std::string& given) {
  std::string path = given;
  Path::NormalizePath(path);
  Require(path.find('\\') == path.npos && path.find("//") == path.npos, "not normal", path);
  std::string again = path;
  Path::NormalizePath(again);
  Require(again == path, "normal forms differ", again);

  const std::size_t size = path.size();
  const int climbs = Path::EatDotDotSlashes(path);
  Require(path.find("../") == path.npos, "still climbs", path);
  Require(path.size() + 3 * static_cast<std::size_t>(climbs) == size, "lost a part", path);
  for (const int count : {-1, 0, 1, climbs, 1000}) {
    std::string shorter = path;
    Path::RemoveFileOrDir(shorter, count);
    Require(path.starts_with(shorter), "another path", shorter);
  }
  std::string base;
  std::string absolute = given;
  mdktoidl::File::AbsolutePath(absolute, base);
  const std::string guard = mdktoidl::File::GetFileProtectionName(given);
  Require(guard.size() == given.size() && guard.find_first_of("./") == guard.npos, "guard", guard);
}

void CheckTexts(const std::string& given) {
  Require(given.starts_with(mdktoidl::TrimEndOfString(given)), "trimmed", given);
  const auto literal = mdktoidl::IntegerLiteral(given);
  const bool isDecimal = literal && given.find_first_not_of("123456789") == given.npos;
  Require(!isDecimal || mdktoidl::GetLong(given) == *literal, "two numbers", given);
}

void CheckOptions(const std::array<std::string, 6>& texts) {
  model::Model model;
  model::Element& artifact = model.Create(Symbol("Artifact"));
  model::Element& settings = model.Apply(artifact, model.Stereotype("IDLGenerator"));
  artifact.SetText(Symbol("Name"), texts[0]);
  artifact.SetText(Symbol("Uri"), texts[5]);
  constexpr const char* tags[] = {"targetDir", "fileName", "fileSuffix", "fileMapping"};
  for (std::size_t i = 0; i < std::size(tags); ++i) {
    if (texts[i] != "-") model.SetTag(settings, Symbol(tags[i]), texts[i]);
  }
  model.SetTag(settings, Symbol("isAsyncDefault"), texts[4]);
  mdktoidl::Options options;
  try {
    options.SetOptions(&artifact);
  } catch (const mdktoidl::IDLException& exception) {
    Require(std::string(exception.what()).starts_with("Failed to find value for "), "text", "");
    return;
  }
  const bool hasFallback = texts[0].empty();
  Require(options.RootDir() == texts[0] || hasFallback, "directory", options.RootDir());
  Require(options.FileName() == (texts[1].empty() ? texts[0] : texts[1]), "name", "");
  Require(options.isOneway() == (texts[4] == "true"), "oneway", texts[4]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::array<std::string, 6> texts;
  std::size_t next = 0;
  for (std::size_t i = 0; i < size && next < texts.size(); ++i) {
    if (data[i] == 0) {
      ++next;
    } else {
      texts[next] += static_cast<char>(data[i]);
    }
  }
  for (const std::string& text : texts) {
    CheckPath(text);
    CheckTexts(text);
  }
  CheckOptions(texts);
  return 0;
}
