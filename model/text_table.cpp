#include "model/text_table.h"

#include "model/same_text.h"

namespace model {

namespace {

std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) {
  hash = (hash ^ word) * 0x9e3779b97f4a7c15u;
  return hash ^ (hash >> 29);
}

/// Reads eight bytes at a time; the last step may read bytes again, which does no harm.
std::uint32_t Hash(std::string_view text) {
  const char* bytes = text.data();
  const std::size_t size = text.size();
  std::uint64_t hash = size;
  if (size >= 8) {
    for (std::size_t at = 0; at + 8 < size; at += 8) {
      hash = Mix(hash, Load<std::uint64_t>(bytes + at));
    }
    hash = Mix(hash, Load<std::uint64_t>(bytes + size - 8));
  } else if (size >= 4) {
    const std::uint64_t end = Load<std::uint32_t>(bytes + size - 4);
    hash = Mix(hash, Load<std::uint32_t>(bytes) | end << 32);
  } else {
    for (const char c : text) hash = Mix(hash, static_cast<unsigned char>(c));
  }
  return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

}  // namespace

std::optional<std::uint32_t> TextTable::Find(std::string_view text) const {
  const std::uint32_t number = Find(text, Hash(text));
  if (number == HashIndex::none) return std::nullopt;
  return number;
}

std::uint32_t TextTable::Enter(std::string_view text) {
  const std::uint32_t hash = Hash(text);
  const std::uint32_t known = Find(text, hash);
  if (known != HashIndex::none) return known;
  const auto number = static_cast<std::uint32_t>(texts_.size());
  index_.MakeRoom();
  texts_.push_back(arena_.Copy(text));
  index_.Add(hash, number);
  return number;
}

std::uint32_t TextTable::Find(std::string_view text, std::uint32_t hash) const {
  return index_.Find(hash, [&](std::uint32_t number) { return SameText(texts_[number], text); });
}

}  // namespace model
