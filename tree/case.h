// A case of a union: its labels and its member.
#pragma once

#include <list>
#include <string>

#include "tree/attribute.h"

namespace mdktoidl {

class Case : public Attribute {
 public:
  using Attribute::Attribute;

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;

  /// Whether the case takes all values that no other takes.
  bool isDefault() const;
  /// The labels as the model gives them.
  std::list<std::string> GivenLabels() const;
  /// Sets the labels as IDL writes them; the union does, which knows the discriminator.
  void SetLabels(std::list<std::string> spelled) { labels = std::move(spelled); }

 private:
  std::list<std::string> labels;
};

}  // namespace mdktoidl
