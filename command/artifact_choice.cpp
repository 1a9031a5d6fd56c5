#include "command/artifact_choice.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <numeric>
#include <utility>

#include "agent/vocabulary.h"
#include "command/settings.h"
#include "placement/failure.h"
#include "types/one_line.h"

namespace command {
namespace {

using mdktoidl::HasControl;
using mdktoidl::OneLine;
using placement::Failure;
using placement::kBadInput;

/// A message lists no more candidates than fit on a screen.
constexpr std::size_t mostListed = 20;

constexpr std::size_t mostNames = 3;

std::string Lowered(std::string_view text) {
  std::string lowered(text);
  std::transform(lowered.begin(), lowered.end(), lowered.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return lowered;
}

std::string_view LastPart(std::string_view name) {
  const std::size_t separator = name.rfind("::");
  return separator == name.npos ? name : name.substr(separator + 2);
}

/// How many letters have to be added, dropped or replaced to make one text of the other.
std::size_t EditDistance(std::string_view left, std::string_view right) {
  std::vector<std::size_t> row(right.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < left.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < right.size(); ++j) {
      const std::size_t replaced = diagonal + (left[i] == right[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
    }
  }
  return row.back();
}

/// The distance between two lowered names; more than `limit` when they have little in common.
std::size_t Distance(std::string_view wanted, std::string_view name, std::size_t limit) {
  if (LastPart(wanted) == LastPart(name)) return 0;
  const std::size_t difference =
      std::max(wanted.size(), name.size()) - std::min(wanted.size(), name.size());
  return difference > limit ? difference : EditDistance(wanted, name);
}

/// At most three of the names that a user who mistyped one may have meant, the nearest first and as
/// listed among equals: those that differ from `wanted` in few letters or whose last part is the
/// same but for capitals.
std::vector<std::string> NearNames(std::string_view wanted, const std::vector<std::string>& names) {
  const std::string loweredWanted = Lowered(wanted);
  const std::size_t limit = std::max<std::size_t>(2, wanted.size() / 3);
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const std::string& name : names) {
    const std::size_t distance = Distance(loweredWanted, Lowered(name), limit);
    if (distance <= limit) near.emplace_back(distance, name);
  }
  std::stable_sort(near.begin(), near.end(),
                   [](const auto& left, const auto& right) { return left.first < right.first; });
  if (near.size() > mostNames) near.resize(mostNames);
  std::vector<std::string> result;
  for (auto& [distance, name] : near) result.push_back(std::move(name));
  return result;
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
  std::erase_if(artifacts, [](const model::Element* artifact) { return !HasSettings(*artifact); });
  return artifacts;
}

std::string NameOf(const xmi::Reader& reader, const model::Element& artifact) {
  const std::string_view ownName = artifact.Text(model::Symbol(mdktoidl::properties::name));
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
  std::erase_if(found, [](model::Element* element) {
    return !element->IsKindOf(mdktoidl::metaclasses::artifact);
  });
  if (found.empty()) throw Failure(kBadInput, "'" + *name + "' is not an artifact");
  if (found.size() > 1) FailAsAmbiguous(reader, *name, found);
  return *found.front();
}

}  // namespace command
