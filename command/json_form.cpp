#include "command/json_form.h"

#include <algorithm>

#include "command/json_list.h"

namespace command {
namespace {

using Json = nlohmann::ordered_json;

std::size_t Count(std::span<const Diagnostic> diagnostics, Severity severity) {
  return static_cast<std::size_t>(
      std::count_if(diagnostics.begin(), diagnostics.end(),
                    [severity](const Diagnostic& each) { return each.severity == severity; }));
}

Json JsonOf(const Diagnostic& diagnostic) {
  Json json = {{"severity", diagnostic.severity == Severity::kError ? "error" : "warning"},
               {"rule", diagnostic.rule},
               {"message", diagnostic.text}};
  const xmi::Location& place = diagnostic.location;
  if (!place.file.empty()) json["file"] = place.file;
  if (!place.file.empty() && place.line != 0) json["line"] = place.line;
  if (!place.file.empty() && place.column != 0) json["column"] = place.column;
  if (!diagnostic.element.empty()) json["element"] = diagnostic.element;
  if (!diagnostic.id.empty()) json["id"] = diagnostic.id;
  return json;
}

}  // namespace

std::string JsonForm(std::span<const Diagnostic> diagnostics) {
  const Json frame = {{"version", 1},
                      {"summary",
                       {{"errors", Count(diagnostics, Severity::kError)},
                        {"warnings", Count(diagnostics, Severity::kWarning)}}},
                      {"diagnostics", Json::array()}};
  return JsonWithList(frame, diagnostics.size(),
                      [diagnostics](std::size_t i) { return JsonOf(diagnostics[i]); });
}

}  // namespace command
