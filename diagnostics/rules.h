// The rules that a diagnostic can name: what can be wrong with a model, as users and their tools
// know it. The ids are a contract like the texts of messages; docs/messages.md explains each.
#pragma once

#include <span>
#include <string_view>

namespace diagnostics {

struct Rule {
  /// Small letters with hyphens.
  std::string_view id;
  /// One short sentence without a full stop: what a model must keep to, or what was passed over.
  std::string_view summary;
};

/// All rules, by what they are about.
std::span<const Rule> Rules();

/// The rule of that id; null when there is none.
const Rule* FindRule(std::string_view id);

}  // namespace diagnostics
