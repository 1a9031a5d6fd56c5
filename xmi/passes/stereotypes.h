// Applies the stereotypes of the files and lets them decide what their elements are.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "xmi/passes/resolver.h"
#include "xmi/tables/profile.h"
#include "xmi/tables/reading.h"

namespace xmi {

class Stereotypes {
 public:
  Stereotypes(Reading& reading, Resolver& resolver)
      : reading_(reading), resolver_(resolver), profile_(Profile::BuiltIn()) {}

  /// Applies all applications, then gives classifiers the metaclass that the agent looks for and
  /// finds the classes that hold constants.
  void Apply();

 private:
  /// What is the same for all applications of one stereotype.
  struct Known {
    model::Element* element = nullptr;
    bool isCorba = false;     ///< One of the CORBA profile's own marks of declarations.
    model::Symbol metaclass;  ///< That a classifier gets; the empty name for its own.
    bool holdsConstants = false;
  };

  void ApplyOne(const Application& application);
  const Known& KnownOf(std::string_view name);
  std::vector<ItemIndex> SubjectsOf(const Application& application, std::string_view name);
  void AddSubject(const Application& application, std::string_view text, bool isHref,
                  std::vector<ItemIndex>& subjects, bool& exists);
  void Mark(ItemIndex subject, const Known& known);
  void SetTags(model::Element& instance, std::string_view stereotype,
               const Application& application);
  void RequireFew(std::size_t tags, const Application& application) const;
  void SetTag(model::Element& instance, std::string_view stereotype, std::string_view tag,
              const std::vector<std::string_view>& values);
  void MakeConstants();

  Reading& reading_;
  Resolver& resolver_;
  const Profile& profile_;
  std::map<std::string, Known, std::less<>> known_;
  std::vector<ItemIndex> holders_;
};

}  // namespace xmi
