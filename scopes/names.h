// The names of an export: that they are legal IDL, and mean where they are written what they
// should.
#pragma once

#include "tree/module.h"

namespace mdktoidl {

/// Checks all names but those of files, of a tree whose declarations are in their final order.
/// Costs time in proportion to the declarations and to what they name. If names may be repaired,
/// keywords are escaped, and what would be taken for something else is spelled otherwise; it is
/// told of as a repair. All else is told of as not legal. The rules:
///
///   idl-identifier    a name that can't be written in IDL
///   idl-keyword       a keyword, or what differs from one only in capitals
///   name-clash        two declarations of one name, capitals aside, in one scope; also with an
///                     inherited operation or attribute
///   name-hides-scope  a declaration named as the scope directly around it
///   enumerator-clash  an enumerator named as something in the scope around its enumeration
///   use-clash         a declaration named as something that its scope uses: IDL takes a used name
///                     as declared there ("in Color color")
///   name-not-visible  a name that is written without its scope where it means nothing
void MakeNamesLegal(Root& root, bool mayRepair);

}  // namespace mdktoidl
