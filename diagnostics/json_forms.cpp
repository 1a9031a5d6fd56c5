// The forms that are documents of JSON.
#include <algorithm>
#include <functional>
#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "diagnostics/forms.h"
#include "diagnostics/rules.h"

namespace diagnostics {
namespace {

using Json = nlohmann::ordered_json;

/// The text of a value on one line. What is no UTF-8 becomes U+FFFD.
std::string JsonText(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// The text of `frame` with items in its list, one a line, and a line end. The list must be empty
/// and stand at the end: nothing but closing brackets may follow it. The items are never all there
/// at once.
std::string JsonWithList(const Json& frame, std::size_t count,
                         const std::function<Json(std::size_t)>& item) {
  std::string text = JsonText(frame);
  const std::size_t end = text.rfind("[]") + 1;
  const std::string closing = text.substr(end);
  text.resize(end);
  for (std::size_t i = 0; i < count; ++i) {
    text.append(i == 0 ? "\n" : ",\n").append(JsonText(item(i)));
  }
  if (count != 0) text += '\n';
  return text.append(closing).append("\n");
}

std::size_t Count(std::span<const Diagnostic> diagnostics, Severity severity) {
  return static_cast<std::size_t>(
      std::count_if(diagnostics.begin(), diagnostics.end(),
                    [severity](const Diagnostic& each) { return each.severity == severity; }));
}

std::string_view WordFor(Severity severity) {
  if (severity == Severity::kNote) return "note";
  return severity == Severity::kError ? "error" : "warning";
}

void AddLocation(const xmi::Location& location, Json& json) {
  if (location.file.empty()) return;
  json["file"] = location.file;
  if (location.line != 0) json["line"] = location.line;
  if (location.column != 0) json["column"] = location.column;
}

Json JsonOf(const Related& related) {
  Json json = {{"message", related.text}};
  AddLocation(related.location, json);
  return json;
}

Json JsonOf(const Diagnostic& diagnostic) {
  Json json = {{"severity", WordFor(diagnostic.severity)},
               {"rule", diagnostic.rule},
               {"message", diagnostic.text}};
  AddLocation(diagnostic.location, json);
  if (!diagnostic.element.empty()) json["element"] = diagnostic.element;
  if (!diagnostic.id.empty()) json["id"] = diagnostic.id;
  for (const Related& related : diagnostic.related) json["related"].push_back(JsonOf(related));
  return json;
}

}  // namespace

std::string JsonForm(std::span<const Diagnostic> diagnostics) {
  const Json frame = {{"version", 1},
                      {"summary",
                       {{"errors", Count(diagnostics, Severity::kError)},
                        {"warnings", Count(diagnostics, Severity::kWarning)},
                        {"notes", Count(diagnostics, Severity::kNote)}}},
                      {"diagnostics", Json::array()}};
  return JsonWithList(frame, diagnostics.size(),
                      [diagnostics](std::size_t i) { return JsonOf(diagnostics[i]); });
}

namespace {

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

Json PhysicalLocation(const xmi::Location& location) {
  Json physical = {{"artifactLocation", {{"uri", UriOf(location.file)}}}};
  if (location.line == 0) return physical;
  physical["region"] = {{"startLine", location.line}};
  if (location.column != 0) physical["region"]["startColumn"] = location.column;
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
                 {"level", WordFor(diagnostic.severity)},
                 {"message", {{"text", diagnostic.text}}}};
  Json location = LocationOf(diagnostic);
  if (!location.empty()) result["locations"] = Json::array({std::move(location)});
  for (const Related& related : diagnostic.related) {
    result["relatedLocations"].push_back({{"physicalLocation", PhysicalLocation(related.location)},
                                          {"message", {{"text", related.text}}}});
  }
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

}  // namespace diagnostics
