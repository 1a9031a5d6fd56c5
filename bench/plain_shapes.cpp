// The shapes that are large in one way only.
#include <algorithm>

#include "bench/shapes.h"

namespace bench {

namespace {

/// A name with a number.
std::string Numbered(std::string_view name, std::size_t number) {
  return std::string(name) + std::to_string(number);
}

std::string OpenModule(XmiWriter& writer, std::size_t number) {
  std::string id = writer.Open("packagedElement", "Package", Numbered("Module", number));
  writer.Apply("CORBAModule", "Package", id);
  return id;
}

std::string OpenStruct(XmiWriter& writer, std::size_t number) {
  std::string id = writer.Open("packagedElement", "Class", Numbered("Record", number));
  writer.Apply("CORBAStruct", "Class", id);
  return id;
}

std::string OpenInterface(XmiWriter& writer, std::size_t number) {
  std::string id = writer.Open("packagedElement", "Interface", Numbered("Service", number));
  writer.Apply("CORBAInterface", "Interface", id);
  return id;
}

void WriteField(XmiWriter& writer, std::size_t number) {
  writer.Open("ownedAttribute", "", Numbered("field", number));
  writer.PredefinedType("long");
  writer.Close();
}

void WriteField(XmiWriter& writer, std::size_t number, std::string_view type) {
  writer.Empty("ownedAttribute", "", Numbered("field", number), TypeOf(type));
}

}  // namespace

/// Modules next to each other, with structs of ten fields.
std::vector<std::string> WriteFlat(XmiWriter& writer, std::size_t members) {
  std::vector<std::string> modules;
  for (std::size_t written = 0; written < members;) {
    modules.push_back(OpenModule(writer, modules.size()));
    for (std::size_t record = 0; record < 10; ++record) {
      OpenStruct(writer, record);
      for (std::size_t field = 0; field < 10; ++field, ++written) WriteField(writer, field);
      writer.Close();
    }
    writer.Close();
  }
  return modules;
}

/// Structs of which each has a field of the struct that stands behind it, so the last one comes
/// first in the IDL.
std::vector<std::string> WriteChain(XmiWriter& writer, std::size_t members) {
  const std::string module = OpenModule(writer, 0);
  const std::size_t first = writer.Ids();
  constexpr std::size_t idsOfRecord = 3;  // the struct, its application and its field
  for (std::size_t record = 0; record < members; ++record) {
    OpenStruct(writer, record);
    const bool isLast = record + 1 == members;
    if (isLast) {
      WriteField(writer, 0);
    } else {
      WriteField(writer, 0, XmiWriter::IdOf(first + (record + 1) * idsOfRecord + 1));
    }
    writer.Close();
  }
  writer.Close();
  return {module};
}

/// Interfaces of which each has an attribute of the next one, and the last one of the first.
std::vector<std::string> WriteCycle(XmiWriter& writer, std::size_t members) {
  const std::string module = OpenModule(writer, 0);
  const std::size_t first = writer.Ids();
  constexpr std::size_t idsOfInterface = 3;
  for (std::size_t service = 0; service < members; ++service) {
    OpenInterface(writer, service);
    const std::size_t next = (service + 1) % members;
    WriteField(writer, service, XmiWriter::IdOf(first + next * idsOfInterface + 1));
    writer.Close();
  }
  writer.Close();
  return {module};
}

/// Structs with ten fields, all of one type.
std::vector<std::string> WriteHub(XmiWriter& writer, std::size_t members) {
  const std::string module = OpenModule(writer, 0);
  const std::string hub = OpenStruct(writer, 0);
  WriteField(writer, 0);
  writer.Close();
  for (std::size_t record = 1; 10 * record <= members; ++record) {
    OpenStruct(writer, record);
    for (std::size_t field = 0; field < 10; ++field) WriteField(writer, field, hub);
    writer.Close();
  }
  writer.Close();
  return {module};
}

/// Towers of modules in modules, each with one struct of ten fields.
std::vector<std::string> WriteDeep(XmiWriter& writer, std::size_t members) {
  constexpr std::size_t height = 100;
  std::vector<std::string> towers;
  for (std::size_t written = 0; written < members;) {
    const std::size_t floors = std::min(height, (members - written + 9) / 10);
    for (std::size_t floor = 0; floor < floors; ++floor) {
      const std::string module = OpenModule(writer, floor == 0 ? towers.size() : floor);
      if (floor == 0) towers.push_back(module);
      OpenStruct(writer, floor);
      for (std::size_t field = 0; field < 10; ++field, ++written) WriteField(writer, field);
      writer.Close();
    }
    for (std::size_t floor = 0; floor < floors; ++floor) writer.Close();
  }
  return towers;
}

/// Interfaces with five thousand members each: attributes, and operations with a parameter.
std::vector<std::string> WriteWide(XmiWriter& writer, std::size_t members) {
  constexpr std::size_t most = 5000;
  const std::string module = OpenModule(writer, 0);
  for (std::size_t written = 0, service = 0; written < members; ++service) {
    OpenInterface(writer, service);
    for (const std::size_t end = std::min(members, written + most); written < end; written += 3) {
      WriteField(writer, written);
      writer.Open("ownedOperation", "", Numbered("operation", written));
      writer.Open("ownedParameter", "", "value");
      writer.PredefinedType("string");
      writer.Close();
      writer.Close();
    }
    writer.Close();
  }
  writer.Close();
  return {module};
}

/// Structs of ten fields: the type of every second field is not exported, and every fifth struct
/// is followed by an empty one.
std::vector<std::string> WriteFaulty(XmiWriter& writer, std::size_t members) {
  const std::string module = OpenModule(writer, 0);
  const std::string unmarked = writer.Empty("packagedElement", "Class", "Unmarked");
  for (std::size_t written = 0, record = 0; written < members; ++record) {
    OpenStruct(writer, record);
    for (std::size_t field = 0; field < 10; ++field, ++written) {
      if (field % 2 == 0) {
        WriteField(writer, field, unmarked);
      } else {
        WriteField(writer, field);
      }
    }
    writer.Close();
    if (record % 5 == 0) {
      OpenStruct(writer, ++record);
      writer.Close();
    }
  }
  writer.Close();
  return {module};
}

}  // namespace bench
