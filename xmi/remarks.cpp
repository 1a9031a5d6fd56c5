#include "xmi/remarks.h"

#include <utility>

namespace xmi {

void Remarks::Add(Location location, std::string_view rule, std::string text,
                  const model::Element* element) {
  std::string key = location.file + ':' + std::to_string(location.line) + ':' + text;
  if (!known_.insert(std::move(key)).second) return;
  remarks_.push_back({std::move(location), rule, std::move(text), element});
}

}  // namespace xmi
