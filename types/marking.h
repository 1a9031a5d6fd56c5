// Small questions about a model element: is it marked, public, a constant?
#pragma once

#include <string>

#include "host/element.h"

namespace mdktoidl {

/// A stereotype or keyword that elements may be marked with. The expression that asks for it is
/// kept, because every member of a model is asked for several.
class Marking {
 public:
  explicit Marking(const std::string& name) : expression_(name + " (. .)") {}
  const std::string& Expression() const { return expression_; }

 private:
  std::string expression_;
};

/// True when the element carries the stereotype or keyword.
bool isMarked(mdk::IMdeEntity* element, const Marking& marking);

/// True for public visibility, and when no visibility is given.
bool isPublic(mdk::IMdeEntity* element);

/// True for an attribute that is marked as a constant.
bool isConstant(mdk::IMdeEntity* element);

/// The name of a tagged value's literal ("true", "Emitter"); `absent` when there is no value.
std::string TaggedLiteral(mdk::IMdeEntity* element, const std::string& expression,
                          const std::string& absent);

}  // namespace mdktoidl
