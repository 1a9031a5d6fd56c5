// What checks have found, by declaration.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "agent/diagnostics.h"
#include "tree/node.h"

namespace checks {

using mdktoidl::Message;
using mdktoidl::Node;

/// What was found, by declaration.
class DiagnosticList {
 public:
  void Report(const Node& node, Message message, std::initializer_list<std::string_view> pieces) {
    found_.emplace_back(node.Serial(), mdktoidl::Diagnostic{
                                           message, node.Entity(), {pieces.begin(), pieces.end()}});
  }

  bool HasErrors() const;

  /// In the order of the declarations, those about the artifact first.
  std::vector<mdktoidl::Diagnostic> Sorted() &&;

 private:
  std::vector<std::pair<std::uint32_t, mdktoidl::Diagnostic>> found_;
};

}  // namespace checks
