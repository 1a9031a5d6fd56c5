// What the constructs ask of model elements, time and again: lists, marks and tagged values.
#pragma once

#include <list>
#include <string>

#include "agent/vocabulary.h"
#include "host/element.h"

namespace mdktoidl {

/// The elements of a multi-valued property, in the model's order; a host's nulls are left out.
std::list<mdk::IMdeEntity*> Elements(mdk::IMdeEntity* element, const std::string& property);

/// The suppliers of the element's dependencies that carry a stereotype, in the model's order.
std::list<mdk::IMdeEntity*> Suppliers(mdk::IMdeEntity* element, const Stereotype& stereotype);

/// The attributes among the owned members of an element, in the model's order.
std::list<mdk::IMdeEntity*> OwnedAttributes(mdk::IMdeEntity* element);

/// True when the element carries the stereotype or keyword.
bool isMarked(mdk::IMdeEntity* element, const Stereotype& stereotype);

/// The same for the places that ask only for applied stereotypes. Hosts may answer the two
/// differently, for keywords.
bool hasStereotype(mdk::IMdeEntity* element, const Stereotype& stereotype);

/// True for public visibility, and when no visibility is given.
bool isPublic(mdk::IMdeEntity* element);

/// True for an attribute that is marked as a constant.
bool isConstant(mdk::IMdeEntity* element);

/// Whether a typed element has a multiplicity.
bool hasMultiplicity(mdk::IMdeEntity* element);

/// The name of a tagged value's literal ("true", "Emitter"); `absent` when there is no value.
std::string TaggedLiteral(mdk::IMdeEntity* element, const Tag& tag, const std::string& absent);

/// Whether a tagged value is the literal "true"; false when there is no value.
bool isTagTrue(mdk::IMdeEntity* element, const Tag& tag);

}  // namespace mdktoidl
