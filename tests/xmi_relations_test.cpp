// Dependencies, generalizations and ports.
#include <gmock/gmock.h>

#include "tests/support/xmi_files.h"

namespace {

using support::Names;
using support::XmiFiles;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Interfaces A to E and a class K to depend on.
std::string Targets() {
  std::string members = R"(<packagedElement xmi:type="uml:Class" xmi:id="k" name="K"/>)";
  for (const char name : {'a', 'b', 'c', 'd', 'e'}) {
    const char upper = static_cast<char>(name - 'a' + 'A');
    members += std::string("<packagedElement xmi:type=\"uml:Interface\" xmi:id=\"") + name +
               "\" name=\"" + upper + "\"/>";
  }
  return members;
}

TEST(XmiDependencies, AreListedByTheirClients) {
  XmiFiles files;
  files.ReadModel(Targets() + R"(
    <packagedElement xmi:type="uml:Usage" xmi:id="u" client="x y" supplier="a b"/>
    <packagedElement xmi:type="uml:Class" xmi:id="x" name="X" clientDependency="late u late">
      <packageImport><importedPackage xmi:idref="p"/></packageImport>
      <packageImport xmi:id="i2" visibility="private" importedPackage="p"/>
      <interfaceRealization xmi:id="r" contract="c" supplier="d"/>
    </packagedElement>
    <packagedElement xmi:type="uml:Class" xmi:id="y" name="Y"/>
    <packagedElement xmi:type="uml:Package" xmi:id="p" name="P">
      <packagedElement xmi:type="uml:Dependency" xmi:id="late" client="x" supplier="e"/>
      <packagedElement xmi:type="uml:Dependency" xmi:id="orphan" supplier="e"/>
      <packagedElement xmi:type="uml:Artifact" xmi:id="f" name="F">
        <manifestation xmi:id="m" utilizedElement="p"/>
        <manifestation client="f" supplier="a" utilizedElement="p"/>
      </packagedElement></packagedElement>)");
  EXPECT_EQ(Names(files["x"], "ClientDependency"), "E A P P C");
  EXPECT_EQ(Names(files["y"], "ClientDependency"), "A");
  EXPECT_EQ(Names(files["f"], "ClientDependency"), "P A");
  EXPECT_EQ(Names(files["p"], "ClientDependency"), "");
  EXPECT_EQ(files["u"].GetEntity("Client", 0), &files["x"]);
  EXPECT_EQ(files["orphan"].GetEntity("Client", 0), &files["p"]);
  EXPECT_TRUE(files["m"].HasStereotype("manifest", 0));
  EXPECT_TRUE(files["i2"].HasStereotype("access", 0));
  EXPECT_FALSE(files["i2"].HasStereotype("import", 0));
  std::list<mdk::IMdeEntity*> users;
  files["a"].GetReferrers("Supplier", users);
  EXPECT_EQ(users.size(), 2u);
  EXPECT_THAT(files.Diagnostics(), ElementsAre("model.uml:12: a Dependency in P names no client"));
}

TEST(XmiGeneralizations, OfValuesAndComponentsTakeInRealizations) {
  const std::string members = Targets() + R"(
    <packagedElement xmi:type="uml:Realization" client="x" supplier="d e"/>
    <packagedElement xmi:type="uml:Class" xmi:id="x" name="X">
      <interfaceRealization xmi:id="r" client="x" contract="a"/>
      <generalization general="k"/>
      <interfaceRealization client="x" supplier="b"/>
    </packagedElement>
    <packagedElement xmi:type="uml:Realization" client="x" supplier="c"/>)";
  const std::pair<std::string, std::string> cases[] = {
      {"CORBAValue", "A K B D E C"}, {"CORBAEvent", "A K B D E C"},
      {"CORBAHome", "A K B D E C"},  {"CORBAComponent", "A K B D E C"},
      {"CORBAStruct", "K"},          {"CORBAComponentImpl", "K"},
  };
  for (const auto& [stereotype, parents] : cases) {
    XmiFiles files;
    files.ReadModel(members, "<C:" + stereotype + R"( base_Class="x"/>
                        <C:CORBASupports base_InterfaceRealization="r"/>)");
    EXPECT_EQ(Names(files["x"], "Generalization"), parents) << stereotype;
    EXPECT_TRUE(files["r"].HasStereotype("CORBASupports", 0));
    EXPECT_THAT(files.Diagnostics(), IsEmpty());
  }
}

TEST(XmiPorts, ProvideAndRequireByUml) {
  const std::string classifiers = Targets() + R"(
    <packagedElement xmi:type="uml:Class" xmi:id="base" name="Base">
      <interfaceRealization client="base" contract="a"/></packagedElement>
    <packagedElement xmi:type="uml:Class" xmi:id="t" name="T">
      <generalization general="base"/></packagedElement>
    <packagedElement xmi:type="uml:Realization" client="t" supplier="b"/>
    <packagedElement xmi:type="uml:Realization" client="t" supplier="k"/>
    <packagedElement xmi:type="uml:Usage" client="base t" supplier="c"/>
    <packagedElement xmi:type="uml:Interface" xmi:id="sub" name="Sub">
      <generalization general="d"/></packagedElement>
    <packagedElement xmi:type="uml:Usage" client="d" supplier="e"/>
    <packagedElement xmi:type="uml:Class" xmi:id="v" name="V"/>
    <packagedElement xmi:type="uml:Class" xmi:id="loop" name="Loop">
      <generalization general="loop2"/></packagedElement>
    <packagedElement xmi:type="uml:Class" xmi:id="loop2" name="Loop2">
      <generalization general="loop"/><interfaceRealization contract="a"/></packagedElement>
    <packagedElement xmi:type="uml:Class" xmi:id="mid" name="Mid">
      <generalization general="plain"/><generalization general="t"/></packagedElement>
    <packagedElement xmi:type="uml:Class" xmi:id="plain" name="Plain"/>
    <packagedElement xmi:type="uml:Class" xmi:id="side" name="Side">
      <generalization general="base"/><interfaceRealization contract="d"/></packagedElement>
    <packagedElement xmi:type="uml:Class" xmi:id="low" name="Low">
      <generalization general="mid"/><generalization general="side"/></packagedElement>)";
  const std::string own = R"(
    <packagedElement xmi:type="uml:Usage" client="p comp" supplier="a"/>
    <packagedElement xmi:type="uml:Realization" client="p" supplier="e"/>)";
  const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
      {"", "", "", ""},
      {" type=\"a\"", "", "A", ""},
      {" type=\"a\" isConjugated=\"true\"", "", "", "A"},
      {" type=\"sub\"", "", "Sub", "E"},
      {" type=\"t\"", "", "B A", "C"},
      {" type=\"t\" isConjugated=\"true\"", "", "C", "B A"},
      {" type=\"v\"", "", "V", ""},
      {" type=\"loop\"", "", "A", ""},
      {" type=\"low\"", "", "B A D", "C"},
      {"", own, "E", "A"},
      {" type=\"a\" isConjugated=\"true\"", own, "E", "A"},
      {" type=\"t\" isConjugated=\"true\"", own, "C E", "B A"},
  };
  for (const auto& [port, others, realized, required] : cases) {
    XmiFiles files;
    files.ReadModel(classifiers + others +
                        "<packagedElement xmi:type=\"uml:Component\" xmi:id=\"comp\">"
                        "<ownedAttribute xmi:type=\"uml:Port\" xmi:id=\"p\"" +
                        port + "/></packagedElement>",
                    "<C:CORBAValue base_Class=\"v\"/>");
    EXPECT_EQ(Names(files["p"], "Realized"), realized) << port << others;
    EXPECT_EQ(Names(files["p"], "Required"), required) << port << others;
  }
}

// Every ancestor adds an interface of its own: a port must not pay for them at each level.
TEST(XmiPorts, TakeInDeepHierarchies) {
  constexpr int kDepth = 20000;
  std::string text;
  for (int i = 0; i < kDepth; ++i) {
    const std::string number = std::to_string(i);
    text += R"(<packagedElement xmi:type="uml:Interface" xmi:id="i)" + number + R"("/>)";
    text += R"(<packagedElement xmi:type="uml:Class" xmi:id="c)" + number +
            R"("><interfaceRealization contract="i)" + number + R"("/><generalization general="c)" +
            std::to_string(i == 0 ? 0 : i - 1) + R"("/></packagedElement>)";
  }
  XmiFiles files;
  files.ReadModel(text + R"(<packagedElement xmi:type="uml:Class" xmi:id="comp">
                    <ownedAttribute xmi:type="uml:Port" xmi:id="p" type="c)" +
                  std::to_string(kDepth - 1) + R"("/></packagedElement>)");
  EXPECT_EQ(files["p"].Entities(model::Symbol("Realized")).size(), std::size_t{kDepth});
}

}  // namespace
