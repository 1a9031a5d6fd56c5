// Finds what references lead to.
#pragma once

#include <string_view>

#include "xmi/tables/reading.h"
#include "xmi/text/start_tag.h"

namespace xmi {

/// What an id or href that stands in a file leads to; null when there is no such id.
const IdTarget* FindTarget(Reading& reading, FileIndex file, const IdOrHref& reference);

/// The same for a reference that an item makes; one to nowhere is a warning about it.
const IdTarget* FindOrWarn(Reading& reading, ItemIndex from, std::string_view feature,
                           const IdOrHref& reference);

/// The item that a reference leads to: ids with blanks between them, of which the first counts, or
/// an href. `kNoItem` for what is no element of the model. Warns as above.
ItemIndex FindItem(Reading& reading, ItemIndex from, std::string_view feature, IdOrHref reference);

/// The same for a part of `from` that stands at the top of another file and is of a type; of a
/// value's for `kNone`. What is something else or stands elsewhere is a warning, too.
ItemIndex FindRoot(Reading& reading, ItemIndex from, std::string_view feature,
                   std::string_view href, Word type);

/// Warns that what was found for a placeholder or a part of `owner` can't be there.
void WarnMisplaced(Reading& reading, ItemIndex at, ItemIndex owner, ItemIndex found);

}  // namespace xmi
