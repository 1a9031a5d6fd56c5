// Finds what references lead to.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "xmi/passes/document_order.h"
#include "xmi/tables/reading.h"

namespace xmi {

class Resolver {
 public:
  explicit Resolver(Reading& reading) : reading_(reading) {}

  /// Puts the elements of other files where the model has a place for them.
  void FillPlaces();
  /// Turns all other references into links.
  void ResolveReferences();

  /// The item that a reference leads to: ids with blanks between them, of which the first counts,
  /// or an href. `kNoItem` for what is no element of the model. A reference to nowhere is a warning
  /// about `from`.
  ItemIndex Find(ItemIndex from, std::string_view feature, std::string_view text, bool isHref);
  /// The same for a part of `from` that stands at the top of another file and is of a type; of a
  /// value's for `kNone`. What is something else or stands elsewhere is a warning, too.
  ItemIndex FindRoot(ItemIndex from, std::string_view feature, std::string_view href, Word type);
  /// The entry of the id that an idref or href of a file names; null when there is none.
  const IdTarget* FindEntry(FileIndex file, std::string_view text, bool isHref);

 private:
  const IdTarget* FindOrWarn(ItemIndex from, std::string_view feature, std::string_view text,
                             bool isHref);
  const IdTarget* FindInExtensions(FileIndex file, std::string_view id);
  void Resolve(const Reference& reference);
  void ResolveAll(const Reference& reference);
  void Prefetch(const Reference& reference) const;
  void FillPlace(ItemIndex place, const IdTarget& target);
  ItemIndex TopOf(ItemIndex item);
  void WarnMisplaced(ItemIndex place, ItemIndex owner, ItemIndex found);

  Reading& reading_;
  std::vector<bool> extensionsRead_;  // by file
  std::vector<Placement> placements_;
  std::unordered_map<ItemIndex, ItemIndex> tops_;  // of roots that have got a place
};

/// The next word of a text, which is cut off it; empty at the end.
std::string_view TakeWord(std::string_view& text);

/// Calls `visit` with each of the words between blanks.
template <typename Visit>
void ForEachWord(std::string_view text, Visit visit) {
  for (std::string_view word = TakeWord(text); !word.empty(); word = TakeWord(text)) visit(word);
}

}  // namespace xmi
