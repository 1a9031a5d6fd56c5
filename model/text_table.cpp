#include "model/text_table.h"

#include "model/short_text.h"

namespace model {

std::optional<std::uint32_t> TextTable::Find(std::string_view text) const {
  const std::uint32_t number = Find(text, HashOfText(text));
  if (number == HashIndex::none) return std::nullopt;
  return number;
}

std::uint32_t TextTable::Enter(std::string_view text) {
  const std::uint32_t hash = HashOfText(text);
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
