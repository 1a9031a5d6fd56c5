// The warnings of one reading, each once.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "xmi/reader.h"

namespace xmi {

class Remarks {
 public:
  /// Adds a warning unless the same text was added for the same place before. `rule` is a literal.
  void Add(Location location, std::string_view rule, std::string text,
           const model::Element* element = nullptr);

  const std::vector<Remark>& All() const { return remarks_; }

 private:
  std::vector<Remark> remarks_;
  std::unordered_set<std::string> known_;
};

}  // namespace xmi
