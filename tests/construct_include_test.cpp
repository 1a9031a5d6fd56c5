// Include lines of module files, and whether each file compiles by itself.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "model/model.h"
#include "tests/support/export.h"
#include "tests/support/process.h"

namespace {

using model::Element;
using support::ExportBench;
using support::Exported;

/// Modules that use each other in one direction, nested two deep, in every way that one can.
Exported ExportModules(ExportBench& b, std::string_view mapping) {
  auto& users = b.Module("Users");
  auto& inner = b.Module(users, "Inner");
  auto& base = b.Module("Base");
  auto& deep = b.Module(base, "Deep");
  auto& lonely = b.Module("Lonely");
  auto& top = b.Interface(b.Package("P"), "Top");

  auto& size = b.Constant(base, "SIZE", "long", 3);
  auto& color = b.Enum(deep, "Color", {"red", "green"});
  auto& name = b.Class(base, "Name", "CORBATypedef");
  b.Generalize(name, color);
  auto& object = b.Interface(base, "Thing");

  auto& own = b.Struct(users, "Own");
  b.Range(b.Attribute(own, "colors", color), 0, size);
  b.Generalize(b.Interface(inner, "Special"), object);
  b.Attribute(b.Struct(inner, "Part"), "given", own);
  auto& choice = b.Class(inner, "Choice", "CORBAUnion");
  b.Attribute(choice, "which", name);
  auto& yes = b.Attribute(choice, "yes", top);
  const std::string_view labels[] = {"green"};
  b.Model().SetListTag(b.Model().Apply(yes, b.Model().Stereotype("case")), model::Symbol("label"),
                       labels);
  b.Constant(lonely, "ALONE", "long", 1);
  b.Mark(b.Depend(lonely, inner), "import");
  b.Mark(b.Depend(lonely, b.Mark(b.Package("Foreign"), "CORBAModule")), "access");
  return b.Export({&users, &base, &lonely, &top}, {{"fileMapping", mapping}});
}

/// The include lines of a file.
std::string Includes(const Exported& exported, const std::string& file) {
  std::string found;
  const std::string& text = exported.files.at(file);
  for (std::size_t at = 0; (at = text.find("#include ", at)) != text.npos; ++at) {
    found += text.substr(at + 9, text.find('\n', at) - at - 9) + " ";
  }
  return found;
}

void ExpectEachCompiles(const Exported& exported) {
  for (const auto& [file, text] : exported.files) {
    const auto judged = support::RunProcess({IDLEXPORT_OMNIIDL, "-Iout", "out/" + file});
    EXPECT_EQ(judged.status, 0) << file << ":\n" << text << judged.errors;
  }
}

TEST(ConstructInclude, FlatFilesCompileByThemselves) {
  ExportBench bench;
  const Exported exported = ExportModules(bench, "MODULE_FLAT");
  EXPECT_EQ(exported.files.size(), 6u);
  EXPECT_EQ(Includes(exported, "Out.idl"), "");
  EXPECT_EQ(Includes(exported, "Base_Deep.idl"), "");
  EXPECT_EQ(Includes(exported, "Base.idl"), "\"Base_Deep.idl\" ");
  EXPECT_EQ(Includes(exported, "Lonely.idl"), "\"Users_Inner.idl\" ");
  EXPECT_EQ(Includes(exported, "Users_Inner.idl"), "\"Out.idl\" \"Users.idl\" \"Base.idl\" ");
  ExpectEachCompiles(exported);
}

TEST(ConstructInclude, StructuredFilesCompileByThemselves) {
  ExportBench bench;
  const Exported exported = ExportModules(bench, "MODULE_STRUCTURED");
  EXPECT_EQ(exported.files.size(), 6u);
  EXPECT_EQ(Includes(exported, "Base/Base.idl"), "\"Base/Deep/Deep.idl\" ");
  EXPECT_EQ(Includes(exported, "Users/Inner/Inner.idl"),
            "\"Out.idl\" \"Users/Users.idl\" \"Base/Base.idl\" ");
  ExpectEachCompiles(exported);
}

}  // namespace
