// The names that the model itself gives a meaning to.
#pragma once

#include "model/symbol.h"

namespace model::names {

// Metaclasses. A keyword, a tagged value and the defaults of a stereotype's tags are elements, too.
inline const Symbol package{"Package"};
inline const Symbol session{"Session"};
inline const Symbol stereotype{"Stereotype"};
inline const Symbol stereotypeInstance{"StereotypeInstance"};  // and the list of applications
inline const Symbol keyword{"Keyword"};                        // and the list of keywords
inline const Symbol taggedValue{"TaggedValue"};
inline const Symbol listExpr{"ListExpr"};
inline const Symbol tagDefaults{"TagDefaults"};  // and the property that holds them

// Properties.
inline const Symbol name{"Name"};
inline const Symbol ownedMember{"OwnedMember"};
inline const Symbol instanceOf{"InstanceOf"};
inline const Symbol valueString{"ValueString"};
inline const Symbol value{"Value"};
inline const Symbol expression{"Expression"};
inline const Symbol instance{"Instance"};      // of a stereotype: its applications
inline const Symbol answersFor{"AnswersFor"};  // of a stereotype: itself and what it specialises

// Stereotypes.
inline const Symbol corba{"CORBA"};
inline const Symbol node{"Node"};

}  // namespace model::names
