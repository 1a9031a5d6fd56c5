#include "command/artifact_choice.h"

#include <algorithm>

#include "command/failure.h"
#include "command/near_names.h"
#include "command/one_line.h"

namespace command {
namespace {

/// A message lists no more candidates than fit on a screen.
constexpr std::size_t mostListed = 20;

bool IsExportable(const model::Element& artifact) {
  return artifact.Application(model::Symbol("IDLGenerator")) != nullptr;
}

std::vector<std::string> NamesOf(const xmi::Reader& reader,
                                 const std::vector<model::Element*>& artifacts) {
  std::vector<std::string> names;
  for (const model::Element* artifact : artifacts) names.push_back(NameOf(reader, *artifact));
  return names;
}

/// The lines, each below the one before and set in, for the end of a message.
std::string Listed(const std::vector<std::string>& lines) {
  std::string text;
  for (std::size_t i = 0; i < std::min(lines.size(), mostListed); ++i) text += "\n  " + lines[i];
  if (lines.size() > mostListed) {
    text += "\n  and " + std::to_string(lines.size() - mostListed) + " more";
  }
  return text;
}

model::Element& OnlyExportable(const xmi::Reader& reader) {
  const std::vector<model::Element*> artifacts = ExportableArtifacts(reader);
  if (artifacts.empty()) {
    throw Failure(kBadInput,
                  reader.Files().front() + ": no artifact carries the stereotype IDLGenerator");
  }
  if (artifacts.size() > 1) {
    throw Failure(kBadInput, "several artifacts can be exported; choose one with --artifact:" +
                                 Listed(NamesOf(reader, artifacts)));
  }
  return *artifacts.front();
}

[[noreturn]] void FailAsUnknown(const xmi::Reader& reader, const std::string& name) {
  const std::vector<std::string> names = NamesOf(reader, reader.Artifacts());
  const std::vector<std::string> near = NearNames(name, names);
  std::string text = "nothing in the model is named '" + name + "'";
  if (!near.empty()) {
    text += "; did you mean:" + Listed(near);
  } else if (!names.empty()) {
    text += "; the artifacts are:" + Listed(names);
  }
  throw Failure(kBadInput, text);
}

[[noreturn]] void FailAsAmbiguous(const xmi::Reader& reader, const std::string& name,
                                  const std::vector<model::Element*>& artifacts) {
  std::vector<std::string> lines;
  for (const model::Element* artifact : artifacts) {
    const xmi::Location location = reader.Locate(*artifact);
    lines.push_back(OneLine(reader.IdOf(*artifact)) + " (" + location.file + ":" +
                    std::to_string(location.line) + ")");
  }
  throw Failure(kBadInput, "several artifacts are named '" + name +
                               "'; choose one with --artifact by its xmi:id:" + Listed(lines));
}

}  // namespace

std::vector<model::Element*> ExportableArtifacts(const xmi::Reader& reader) {
  std::vector<model::Element*> artifacts = reader.Artifacts();
  std::erase_if(artifacts, [](const model::Element* artifact) { return !IsExportable(*artifact); });
  return artifacts;
}

std::string NameOf(const xmi::Reader& reader, const model::Element& artifact) {
  const std::string_view ownName = artifact.Text(model::Symbol("Name"));
  std::string name;
  if (!ownName.empty()) name = reader.QualifiedName(artifact);
  if (name.empty()) name = ownName;
  if (!name.empty() && !HasControl(name)) return name;
  const std::string id = reader.IdOf(artifact);
  return OneLine(id.empty() ? name : id);
}

model::Element& ChooseArtifact(const xmi::Reader& reader, const std::optional<std::string>& name) {
  if (!name) return OnlyExportable(reader);
  std::vector<model::Element*> found = reader.FindByName(*name);
  if (model::Element* element = reader.FindById(*name); found.empty() && element != nullptr) {
    found.push_back(element);
  }
  if (found.empty()) FailAsUnknown(reader, *name);
  // A package and an artifact in it may share a name; only the artifact can be meant.
  std::erase_if(found, [](model::Element* element) { return !element->IsKindOf("Artifact"); });
  if (found.empty()) throw Failure(kBadInput, "'" + *name + "' is not an artifact");
  if (found.size() > 1) FailAsAmbiguous(reader, *name, found);
  return *found.front();
}

}  // namespace command
