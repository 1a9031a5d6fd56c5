// The host's model as a whole, reached from any element of it.
#pragma once

#include <string>

#include "host/element.h"

namespace mdk {

/// Finds elements by name. Given by `QueryInterface` on the element that "Session" names.
class IMdeModel {
 public:
  static constexpr InterfaceId guid = {{0x6d, 0x64, 0x6b, 0x2e, 0x6d, 0x6f, 0x64, 0x65, 0x6c, 0x2e,
                                        0x30, 0x30, 0x30, 0x30, 0x30, 0x31}};

  /// The element of a qualified name, its parts separated by "@" and with "@" before the first
  /// ("@CORBA@Node"); null when there is none.
  virtual IMdeEntity* FindEntity(const std::string& qualifiedName) = 0;

 protected:
  ~IMdeModel() = default;
};

}  // namespace mdk
