#include "scopes/declared_names.h"

#include <algorithm>
#include <bit>
#include <unordered_map>

#include "types/identifier.h"

namespace mdktoidl {
namespace {

/// Tells hashes that occur once, in so little memory that asking costs next to nothing.
class RecurringHashes {
 public:
  explicit RecurringHashes(const std::vector<std::uint32_t>& hashes)
      : occur_(std::bit_ceil(8 * hashes.size())), recur_(occur_.size()) {
    for (const std::uint32_t hash : hashes) {
      if (occur_[PlaceOf(hash)]) recur_[PlaceOf(hash)] = true;
      occur_[PlaceOf(hash)] = true;
    }
  }

  /// False only for a hash that occurs once.
  bool MayHold(std::uint32_t hash) const { return recur_[PlaceOf(hash)]; }

 private:
  std::size_t PlaceOf(std::uint32_t hash) const { return hash & (occur_.size() - 1); }

  std::vector<bool> occur_;
  std::vector<bool> recur_;
};

struct NameHash {
  std::size_t operator()(std::string_view name) const { return HashOfName(name); }
};
struct NameEqual {
  bool operator()(std::string_view left, std::string_view right) const {
    return IsSameName(left, right);
  }
};

}  // namespace

// Most names of a model occur once, and clash with nothing. Only those of which a few bits say that
// they may occur again are looked at.
DeclaredNames::DeclaredNames(const Root& root) {
  const std::vector<std::uint32_t>& hashes = root.NameHashes();
  const RecurringHashes recurring(hashes);
  std::unordered_map<std::string_view, NameNumber, NameHash, NameEqual> table;
  std::vector<std::uint32_t> counts(1);  // by number
  numbers_.resize(hashes.size(), kUniqueName);
  for (std::uint32_t serial = 0; serial < hashes.size(); ++serial) {
    if (!recurring.MayHold(hashes[serial])) continue;
    const std::string_view name = root.Nodes()[serial]->WrittenName();
    numbers_[serial] = kNoName;
    if (name.empty()) continue;
    const auto next = static_cast<NameNumber>(counts.size());
    numbers_[serial] = table.try_emplace(name, next).first->second;
    if (numbers_[serial] == next) counts.push_back(0);
    ++counts[numbers_[serial]];
    clashing_.push_back(serial);
  }
  for (const std::uint32_t serial : clashing_) {
    if (counts[numbers_[serial]] == 1) numbers_[serial] = kUniqueName;
  }
  std::erase_if(clashing_,
                [this](std::uint32_t serial) { return numbers_[serial] == kUniqueName; });
  size_ = counts.size();
}

bool DeclaredNames::MayClashIn(const Node& declaration) const {
  const auto first = std::ranges::lower_bound(clashing_, declaration.Serial());
  return first != clashing_.end() && *first <= declaration.LastSerial();
}

}  // namespace mdktoidl
