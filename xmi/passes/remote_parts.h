// Fetches values and template bindings that stand in files of their own.
//
// They are no elements, so nothing but the part of the file that they were read from tells of them:
// it takes the place of the part that only says where they are.
#pragma once

#include <string_view>
#include <vector>

#include "xmi/passes/resolver.h"
#include "xmi/tables/reading.h"

namespace xmi {

class RemoteParts {
 public:
  RemoteParts(Reading& reading, Resolver& resolver) : reading_(reading), resolver_(resolver) {}

  /// What can't be found is left out, with a warning.
  void Fetch();

 private:
  template <typename Each, typename Fetcher>
  void Keep(std::vector<Each>& parts, Fetcher fetch);
  bool Fetch(Part& part, std::string_view feature, Word type);

  Reading& reading_;
  Resolver& resolver_;
};

}  // namespace xmi
