// Checks the names of an export: that they are legal IDL.
//
// Names are written as the model has them. What would be written is checked here, by the rules that
// IDL compilers apply; what isn't exported may be named as it likes. All checks read the tree.
#pragma once

#include "scopes/declarations.h"

namespace mdktoidl {

/// Checks all names but those of files, of a tree that is evaluated; of one that is not yet
/// evaluated what can be told without knowing what it uses. Costs time in proportion to the
/// declarations and to what they name. The rules:
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
void CheckNames(const Root& root);

}  // namespace mdktoidl
