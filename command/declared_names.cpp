#include "command/declared_names.h"

#include <bit>
#include <string_view>

#include "command/idl_identifier.h"
#include "model/hash_index.h"

namespace command {
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

/// The names entered, each with its number.
class NameTable {
 public:
  NameNumber Enter(std::string_view name, std::uint32_t hash) {
    const auto known =
        index_.Find(hash, [&](std::uint32_t number) { return IsSameName(names_[number], name); });
    if (known != model::HashIndex::none) return known;
    const auto number = static_cast<NameNumber>(names_.size());
    index_.MakeRoom();
    names_.push_back(name);
    index_.Add(hash, number);
    return number;
  }

  std::size_t Size() const { return names_.size(); }

 private:
  std::vector<std::string_view> names_ = {""};  // by number
  model::HashIndex index_;
};

}  // namespace

DeclaredNames::DeclaredNames(const Declarations& declarations) {
  std::vector<std::uint32_t> hashes;
  hashes.reserve(declarations.Size());
  for (DeclarationIndex index = 0; index < declarations.Size(); ++index) {
    hashes.push_back(static_cast<std::uint32_t>(NameHash()(declarations.Name(index)) >> 32));
  }
  const RecurringHashes recurring(hashes);
  NameTable table;
  numbers_.reserve(declarations.Size());
  for (DeclarationIndex index = 0; index < declarations.Size(); ++index) {
    const std::string_view name = declarations.Name(index);
    NameNumber number = name.empty() ? kNoName : kUniqueName;
    if (number != kNoName && recurring.MayHold(hashes[index])) {
      number = table.Enter(name, hashes[index]);
    }
    numbers_.push_back(number);
  }
  size_ = table.Size();
}

}  // namespace command
