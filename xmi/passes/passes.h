// The passes that make a model of files, in the order in which they run.
//
// Each works off what the passes before it put down, for all elements at once, and may rely on what
// is said of them here; docs/architecture.md has the reasons. References are followed by
// resolver.h, value specifications are read by values.h.
#pragma once

#include "xmi/passes/values.h"
#include "xmi/tables/reading.h"

namespace xmi {

/// Goes through all files, also those that are opened meanwhile, and makes the elements. Throws
/// `ReadError` when the model file is no model, or a file has more of something than a model can.
void WalkFiles(Reading& reading);

/// Puts the elements of other files where the model has placeholders for them. From here on the
/// items are in document order.
void PlaceFragments(Reading& reading);

/// Finds the values and template bindings that stand in other files.
void FetchParts(Reading& reading);

/// Applies the stereotypes with their tagged values, gives classifiers the metaclasses that the
/// agent looks for and makes the attributes of classes that hold constants constants.
void ApplyStereotypes(Reading& reading);

/// Gives the model's own primitive types the names that the agent knows.
void NamePrimitives(Reading& reading);

/// Finds the classifiers that are instantiations of a template.
void FindTemplates(Reading& reading);

/// Turns references into links.
void ResolveReferences(Reading& reading);

/// Sets what a link alone decides: types, parents, exceptions and signals.
void SetLinks(Reading& reading);

/// Sets members, parameters and literals, and the model's roots.
void SetMembers(Reading& reading);

/// Gives elements the comments that annotate them.
void SetComments(Reading& reading);

/// Sets clients, suppliers and keywords of dependencies, and the dependencies of their clients.
void SetDependencies(Reading& reading);

/// Gives classifiers their generalizations, with the realizations that count as such.
void SetGeneralizations(Reading& reading);

/// Gives instantiations of templates their actual parameters.
void FillTemplates(Reading& reading, Values& values);

/// Gives properties and parameters their multiplicities and default values.
void SetMultiplicities(Reading& reading, Values& values);

/// Gives ports the interfaces that they provide and require.
void SetPorts(Reading& reading);

}  // namespace xmi
