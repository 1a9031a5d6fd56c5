#include "xmi/text/words.h"

#include <array>
#include <cstring>

namespace xmi {
namespace {

// By word; the first is that of `kNone`.
constexpr std::array<std::string_view, kWordCount> kNames = {
    "",
#define XMI_WORD(word, name) name,
#include "xmi/text/words.inc"
#undef XMI_WORD
};

constexpr std::size_t kSlots = 1024;

// The length and three letters tell nearly all words apart; the rest are next to each other.
constexpr std::size_t Hash(std::string_view name) {
  const auto letter = [&](std::size_t i) { return static_cast<unsigned char>(name[i]); };
  const std::size_t size = name.size();
  const std::uint32_t mixed = (letter(0) * 0x9E3779B1u) ^ (letter(size / 2) * 0x85EBCA6Bu) ^
                              (letter(size - 1) * 0xC2B2AE35u) ^
                              (static_cast<std::uint32_t>(size) * 0x27D4EB2Fu);
  return (mixed >> 16) % kSlots;
}

constexpr std::size_t NextSlot(std::size_t slot) { return (slot + 1) % kSlots; }

// The words by the hashes of their names; `kNone` in a free slot.
constexpr std::array<Word, kSlots> MakeSlots() {
  std::array<Word, kSlots> slots{};
  for (std::size_t word = 1; word < kWordCount; ++word) {
    std::size_t slot = Hash(kNames[word]);
    while (slots[slot] != Word::kNone) slot = NextSlot(slot);
    slots[slot] = static_cast<Word>(word);
  }
  return slots;
}

constexpr std::array<Word, kSlots> kWordSlots = MakeSlots();

}  // namespace

Word FindWord(std::string_view name) {
  if (name.empty()) return Word::kNone;
  for (std::size_t slot = Hash(name); kWordSlots[slot] != Word::kNone; slot = NextSlot(slot)) {
    const std::string_view known = TextOf(kWordSlots[slot]);
    if (known.size() == name.size() && std::memcmp(known.data(), name.data(), name.size()) == 0) {
      return kWordSlots[slot];
    }
  }
  return Word::kNone;
}

Word FindType(std::string_view name) {
  const Word word = FindWord(name);
  return IsType(word) ? word : Word::kNone;
}

std::string_view TextOf(Word word) { return kNames[static_cast<std::size_t>(word)]; }

}  // namespace xmi
