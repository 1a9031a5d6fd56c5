#include "command/sarif_form.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "command/json_list.h"
#include "command/rules.h"

namespace command {
namespace {

using Json = nlohmann::ordered_json;

/// Everything but letters, digits, slashes and a few marks is escaped; so no part of a path can be
/// taken for a scheme, a query or a fragment.
std::string UriOf(std::string_view path) {
  constexpr std::string_view plain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~/";
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string uri = path.starts_with('/') ? "file://" : "";
  for (const char character : path) {
    if (plain.find(character) != plain.npos) {
      uri += character;
    } else {
      const auto code = static_cast<unsigned char>(character);
      uri.append("%").append(1, digits[code / 16]).append(1, digits[code % 16]);
    }
  }
  return uri;
}

/// The ids of the rules that are broken, sorted: the driver's rules.
std::vector<std::string_view> RulesOf(std::span<const Diagnostic> diagnostics) {
  std::vector<std::string_view> ids;
  for (const Diagnostic& diagnostic : diagnostics) ids.push_back(diagnostic.rule);
  std::sort(ids.begin(), ids.end());
  ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
  return ids;
}

Json DescriptorsOf(const std::vector<std::string_view>& ids) {
  Json descriptors = Json::array();
  for (const std::string_view id : ids) {
    Json descriptor = {{"id", id}};
    if (const Rule* rule = FindRule(id)) {
      descriptor["shortDescription"] = {{"text", std::string(rule->summary) + "."}};
    }
    descriptors.push_back(std::move(descriptor));
  }
  return descriptors;
}

Json PhysicalLocation(const xmi::Location& place) {
  Json physical = {{"artifactLocation", {{"uri", UriOf(place.file)}}}};
  if (place.line == 0) return physical;
  physical["region"] = {{"startLine", place.line}};
  if (place.column != 0) physical["region"]["startColumn"] = place.column;
  return physical;
}

Json LocationOf(const Diagnostic& diagnostic) {
  Json location = Json::object();
  if (!diagnostic.location.file.empty()) {
    location["physicalLocation"] = PhysicalLocation(diagnostic.location);
  }
  if (!diagnostic.element.empty()) {
    Json logical = {{"fullyQualifiedName", diagnostic.element}};
    location["logicalLocations"] = Json::array({std::move(logical)});
  }
  return location;
}

Json ResultOf(const Diagnostic& diagnostic, const std::vector<std::string_view>& ids) {
  const auto rule = std::lower_bound(ids.begin(), ids.end(), diagnostic.rule);
  Json result = {{"ruleId", diagnostic.rule},
                 {"ruleIndex", rule - ids.begin()},
                 {"level", diagnostic.severity == Severity::kError ? "error" : "warning"},
                 {"message", {{"text", diagnostic.text}}}};
  Json location = LocationOf(diagnostic);
  if (!location.empty()) result["locations"] = Json::array({std::move(location)});
  if (!diagnostic.id.empty()) {
    result["partialFingerprints"] = {{"ruleAndId/v1", diagnostic.rule + ":" + diagnostic.id}};
    result["properties"] = {{"id", diagnostic.id}};
  }
  return result;
}

}  // namespace

std::string SarifForm(std::span<const Diagnostic> diagnostics) {
  const std::vector<std::string_view> ids = RulesOf(diagnostics);
  Json run = {
      {"tool",
       {{"driver",
         {{"name", "idlexport"}, {"version", IDLEXPORT_VERSION}, {"rules", DescriptorsOf(ids)}}}}},
      {"columnKind", "unicodeCodePoints"},
      {"results", Json::array()}};
  const Json frame = {{"version", "2.1.0"},
                      {"$schema",
                       "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/"
                       "sarif-schema-2.1.0.json"},
                      {"runs", Json::array({std::move(run)})}};
  return JsonWithList(frame, diagnostics.size(),
                      [&](std::size_t i) { return ResultOf(diagnostics[i], ids); });
}

}  // namespace command
