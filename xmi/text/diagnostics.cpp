#include "xmi/text/diagnostics.h"

#include <utility>

namespace xmi {
namespace {

std::string LineOf(const Location& at, const std::string& text) {
  return at.file + (at.line == 0 ? "" : ":" + std::to_string(at.line)) + ": " + text;
}

}  // namespace

ReadError::ReadError(Location location, const std::string& text)
    : std::runtime_error(LineOf(location, text)), location_(std::move(location)), text_(text) {}

void Diagnostics::Add(Location location, std::string_view rule, std::string text,
                      const model::Element* element) {
  std::string key = location.file + ':' + std::to_string(location.line) + ':' + text;
  if (!known_.insert(std::move(key)).second) return;
  diagnostics_.push_back({std::move(location), rule, std::move(text), element});
}

}  // namespace xmi
