// A host between the agent and a model, that can be made to misbehave at any one call.
//
// It hands every question on to the model's elements and wraps every element that they answer, so
// all that the agent asks passes through here. Messages and the last error's text don't: they are
// functions of the host library.
#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

#include "host/element.h"
#include "host/model.h"

namespace support {

/// What a call does in place of its work.
enum class Fault {
  kNone,
  kHostError,      ///< throws as hosts do: a text, that `mdk::GetAPIErrorMessage` gives, too
  kException,      ///< throws a `std::exception`
  kOtherThrow,     ///< throws something else
  kBadAllocation,  ///< throws `std::bad_alloc`
  kNull,           ///< answers null, the empty text, false; a list with a null in it
  kNonsense,       ///< answers some element, a text without a meaning, the opposite of the truth
};

class WrappingHost {
 public:
  /// The text of `Fault::kHostError`.
  static constexpr const char* kErrorText = "the model is locked";

  WrappingHost();
  ~WrappingHost();

  /// What stands for an element of the model; null for null. The same for the same, and owned here.
  mdk::IMdeEntity* Wrap(mdk::IMdeEntity* real);

  /// The call of that number, from 1 and counted from now on, misbehaves; if `andAfter`, all that
  /// follow do, too.
  void FailAt(std::size_t call, Fault fault, bool andAfter = false);

  /// The calls since `FailAt`.
  std::size_t Calls() const { return calls_; }

 private:
  class Entity;
  class Whole;

  Fault Next();
  Entity* Any();
  void WrapAll(std::list<mdk::IMdeEntity*>& elements, std::size_t from);

  std::unordered_map<mdk::IMdeEntity*, std::unique_ptr<Entity>> wrapped_;
  std::vector<Entity*> inOrder_;
  std::unique_ptr<Whole> whole_;
  Fault fault_ = Fault::kNone;
  std::size_t failing_ = 0;
  std::size_t calls_ = 0;
  bool andAfter_ = false;
};

}  // namespace support
