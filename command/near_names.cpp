#include "command/near_names.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <numeric>
#include <utility>

namespace command {
namespace {

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

}  // namespace

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

}  // namespace command
