// The CORBA profile: its stereotypes, what they specialise and their tagged values.
//
// Read once from the profile that the project ships, which is compiled in, so the file that users
// give to their tool and what the reader knows can't differ.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/model.h"

namespace xmi {

class Profile {
 public:
  struct Tag {
    std::string name;
    bool isList = false;
    bool isText = false;                      ///< Free text: its blanks count.
    std::optional<std::string> defaultValue;  ///< Of an application that leaves it out.
  };
  struct Stereotype {
    std::string name;
    std::vector<std::string> generals;
    std::vector<Tag> tags;
  };

  /// The profile that is compiled in.
  static const Profile& BuiltIn();

  /// Null when the profile has no stereotype of that name.
  const Stereotype* Find(std::string_view name) const;
  /// The tag of a stereotype or of one that it specialises; null when there is none.
  const Tag* FindTag(std::string_view stereotype, std::string_view tag) const;

  /// Makes the stereotypes known to a model.
  void Declare(model::Model& model) const;

 private:
  explicit Profile(std::string text);

  std::vector<Stereotype> stereotypes_;  // in the file's order
  std::map<std::string, std::size_t, std::less<>> byName_;
};

}  // namespace xmi
