// Which files are read, from which encodings, and what the others are refused with.
#include "tests/support/xmi_files.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>

namespace {

using support::Names;
using support::TypeText;
using support::XmiFiles;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::string Utf16(std::string_view ascii, bool bigEndian) {
  std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : ascii) bytes += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return bytes;
}

std::string Declared(const std::string& encoding, const std::string& name) {
  return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?><uml:Model " +
         std::string(support::kNamespaces) + " xmi:id=\"r\" name=\"" + name + "\"/>";
}

TEST(XmiEncodings, BecomeUtf8) {
  const std::pair<std::string, std::string> cases[] = {
      {Declared("UTF-8", "\xC3\xBC"), "\xC3\xBC"},
      {"\xEF\xBB\xBF" + Declared("UTF-8", "\xE2\x82\xAC"), "\xE2\x82\xAC"},
      {Declared("US-ASCII", "u"), "u"},
      {Declared("ISO-8859-1", "\xFC"), "\xC3\xBC"},
      {Declared("ISO-8859-1", "\x80"), "\xC2\x80"},
      {Declared("windows-1252", "\x80\xFC"), "\xE2\x82\xAC\xC3\xBC"},
      {Declared("Windows-1252", "\x81"), "\xC2\x81"},
      {Utf16(Declared("UTF-16", "u&#252;"), true), "u\xC3\xBC"},
      {Utf16(Declared("UTF-16", "u"), false), "u"},
  };
  for (const auto& [bytes, name] : cases) {
    XmiFiles files;
    files.Write("model.uml", bytes).Read();
    EXPECT_EQ(files["r"].GetValue("Name", 0), name) << bytes;
  }
}

TEST(XmiFiles, AreRefusedByKind) {
  const std::string model = support::ModelFile("");
  const std::string root = "<xmi:XMI xmlns:xmi=\"http://www.omg.org/XMI\" ";
  const std::pair<std::string, std::string> cases[] = {
      {"", "f: is empty"},
      {"<?xml version=\"1.0\"?>\n", "f:1: is no XML"},
      {"just text", "f:1: is no XML"},
      {"<!-- c -->\n\n<XMI xmi.version=\"1.2\"><x/></XMI>", "f:3: is XMI of UML 1"},
      {"<Diagram/>", "f:1: is a diagram"},
      {"<!DOCTYPE html><html><br></html>", "f:1: is an HTML page"},
      {"<html/>", "f:1: is an HTML page"},
      {"\n<ecore:EPackage xmlns:ecore=\"http://www.eclipse.org/emf/2002/Ecore\"/>",
       "f:2: is an Ecore model"},
      {root + "xmlns:e=\"http://www.eclipse.org/emf/2002/Ecore\"><e:EPackage/></xmi:XMI>",
       "f:1: is an Ecore model"},
      {root + "/>", "f:1: is no UML model: there is no UML element in it"},
      {"<project/>", "f:1: is no UML model: its root element is <project>"},
      {"<uml:Model xmlns:uml=\"http://elsewhere.org/UML\"/>", "f:1: is no UML model"},
      {model.substr(0, model.size() / 2), "f:2: is no well-formed XML"},
      {"<a>\n<b></a>", "f:2: is no well-formed XML"},
      {model + "<!-- c --><?p i?>\n<a/>", "f:4: is no well-formed XML: there is another element"},
      {model + "\n=======\n", "f:4: is no well-formed XML: there is text beside its root element"},
      {model + " y", "f:3: is no well-formed XML: there is text beside its root element"},
      {"text\n" + root + "/>", "f:1: is no well-formed XML: there is text"},
      {std::string("<a>\n\0</a>", 9), "f:2: the text holds a NUL byte"},
      {"<?xml version=\"1.0\"?>\n<a b=\"\xFC\"/>", "f:2: byte 0xFC is not UTF-8"},
      {"<?xml version=\"1.0\" encoding=\"ASCII\"?>\n<a b=\"\xFC\"/>",
       "f:2: byte 0xFC is not ASCII"},
      {"<?xml version=\"1.0\" encoding=\"EBCDIC\"?><a/>", "f:1: encoding \"ebcdic\""},
      {Utf16("<a/>", true) + "x", "f:1: the UTF-16 text ends within a character"},
      {Declared("UTF-8", "\xC3"), "f:1: byte 0xC3 is not UTF-8"},
      {Declared("UTF-8", "\xC0\x80"), "f:1: byte 0xC0 is not UTF-8"},
      {Declared("UTF-8", "\xED\xA0\x80"), "f:1: byte 0xED is not UTF-8"},
      {Declared("UTF-8", "\xF5\x80\x80\x80"), "f:1: byte 0xF5 is not UTF-8"},
      {std::string("\xFF\xFE\x00\xD8<\x00", 6), "f"},
      {std::string(100, '\0'), "f"},
  };
  for (const auto& [text, message] : cases) {
    XmiFiles files;
    EXPECT_THAT(files.Write("f", text).ErrorOf("f"), ::testing::StartsWith(message)) << text;
  }
  EXPECT_EQ(XmiFiles().ErrorOf("f"), "f: No such file or directory");
  XmiFiles files;
  files.Write("d/f", "");
  EXPECT_EQ(files.ErrorOf("d"), "d: is a directory");
}

TEST(XmiNamespaces, CountByFamilyAndNotByPrefixAndMayBeTheDefault) {
  const std::string bodies[] = {
      R"(<x:XMI xmlns:x="XMI" xmlns:u="UML"><u:Package x:id="r">
           <packagedElement x:id="c" x:type="u:Class"/>
           <packagedElement xmlns:uml="urn:other" x:type="uml:Class" x:id="f"/>
         </u:Package></x:XMI>)",
      R"(<Model xmlns="UML" xmlns:u="UML" xmlns:x="XMI">
           <packagedElement x:type="u:Class" x:id="c"/></Model>)",
      R"(<XMI xmlns="XMI" xmlns:u="UML" xmlns:x="XMI"><u:Model>
           <packagedElement x:type="u:Class" x:id="c"/></u:Model></XMI>)",
      R"(<x:XMI xmlns="UML" xmlns:u="UML" xmlns:x="XMI"><Model>
           <packagedElement x:type="u:Class" x:id="c"/></Model></x:XMI>)"};
  for (const char* uml :
       {"http://www.eclipse.org/uml2/2.1.0/UML", "http://www.omg.org/spec/UML/20161101",
        "http://schema.omg.org/spec/UML/2.1.2"}) {
    for (const char* xmi : {"http://www.omg.org/XMI", "http://schema.omg.org/spec/XMI/2.1",
                            "http://www.omg.org/spec/XMI/20110701"}) {
      for (const std::string& body : bodies) {
        const std::string text = support::Replaced(body, "\"UML\"", "\"" + std::string(uml) + "\"");
        XmiFiles files;
        files.Write("model.uml",
                    support::Replaced(text, "\"XMI\"", "\"" + std::string(xmi) + "\""));
        EXPECT_EQ(files.Read()["c"].GetMetaclass(), "Class") << text;
        EXPECT_EQ(files.Reader().FindById("f"), nullptr);
      }
    }
  }
}

TEST(XmiReferences, LeadIntoOtherFilesWhichAreReadOnce) {
  XmiFiles files;
  files.Write("sub dir/lib.uml", support::ModelFile(R"(
      <packagedElement xmi:type="uml:Class" xmi:id="k" name="K">
        <ownedAttribute xmi:id="back" type="k"/>
        <ownedAttribute xmi:id="up"><type href="../model.uml#t"/></ownedAttribute>
        <ownedAttribute xmi:id="self"><type href="lib.uml#k"/></ownedAttribute>
      </packagedElement>)"));
  files.ReadModel(R"(
      <packagedElement xmi:type="uml:DataType" xmi:id="t" name="T"/>
      <packagedElement xmi:type="uml:Class" xmi:id="c" name="C">
        <ownedAttribute xmi:id="a"><type href="sub%20dir/lib.uml#k?K/hint"/></ownedAttribute>
        <ownedAttribute xmi:id="b"><type href="./sub%20dir/lib.uml#%6B"/></ownedAttribute>
        <ownedAttribute xmi:id="own"><type href="#t"/></ownedAttribute>
      </packagedElement>)");
  EXPECT_EQ(TypeText(files["a"]) + TypeText(files["b"]) + TypeText(files["own"]), "KKT");
  EXPECT_EQ(TypeText(files["back"]) + TypeText(files["up"]) + TypeText(files["self"]), "KTK");
  EXPECT_EQ(files["a"].GetEntity("Type", 0), files["self"].GetEntity("Type", 0));
  EXPECT_THAT(files.Diagnostics(), IsEmpty());
  EXPECT_THAT(files.Reader().Files(),
              ElementsAre(files.Path("model.uml"), files.Path("sub dir/lib.uml")));
  EXPECT_EQ(files["t"].GetValue("Uri", 0), files.Path("model.uml"));
  EXPECT_EQ(files["k"].GetValue("Uri", 0), files.Path("sub dir/lib.uml"));
}

TEST(XmiPlaces, CountCharactersNotBytes) {
  const std::string first = R"(<packagedElement xmi:type="uml:Class" xmi:id="a" name="äöü"/>)";
  XmiFiles files;
  files.ReadModel(first + R"(<packagedElement xmi:type="uml:Class" xmi:id="b" name="B"/>)");
  const xmi::Reader& reader = files.Reader();
  EXPECT_EQ(reader.Locate(files["b"]).column - reader.Locate(files["a"]).column, first.size() - 3);
}

TEST(XmiReferences, FollowMappedAddresses) {
  XmiFiles files;
  const std::string type = R"(<packagedElement xmi:type="uml:DataType" xmi:id="t" name="NAME"/>)";
  for (const std::string name : {"Near", "Far"}) {
    files.Write(name + "/types.uml", support::ModelFile(support::Replaced(type, "NAME", name)));
  }
  files.Reader().Map("pathmap://X/", files.Path("Far"));
  files.Reader().Map("pathmap://X/near/", files.Path("Near"));
  files.ReadModel(R"(
      <packagedElement xmi:type="uml:Class" xmi:id="c" name="C">
        <ownedAttribute xmi:id="a"><type href="pathmap://X/near/types.uml#t"/></ownedAttribute>
        <ownedAttribute xmi:id="b"><type href="pathmap://X/types.uml#t"/></ownedAttribute>
        <ownedAttribute xmi:id="other"><type href="pathmap://Y/types.uml#t"/></ownedAttribute>
      </packagedElement>)");
  EXPECT_EQ(TypeText(files["a"]) + TypeText(files["b"]), "NearFar");
  EXPECT_THAT(files.Diagnostics(),
              ElementsAre(HasSubstr("\"pathmap://Y/types.uml\" is not on the")));
}

TEST(XmiReferences, ToWhatCantBeReadAreOneDiagnosticForEachFile) {
  XmiFiles files;
  files.Write("bad.uml", "<a>").Write("diagram.di", "<Diagram/>").ReadModel(R"(
      <packagedElement xmi:type="uml:Class" xmi:id="c" name="C">
        <generalization><general href="missing.uml#a"/></generalization>
        <generalization><general href="missing.uml#b"/></generalization>
        <generalization><general href="http://example.org/a.uml#a"/></generalization>
        <generalization><general href="http://example.org/a.uml#b"/></generalization>
        <generalization><general href="platform:/plugin/x/a.uml#a"/></generalization>
        <generalization><general href="/dev/zero#a"/></generalization>
        <generalization><general href="bad.uml#a"/></generalization>
        <generalization><general href="diagram.di#a"/></generalization>
        <generalization><general href="#none"/></generalization>
        <generalization general="nowhere"/>
      </packagedElement>)");
  EXPECT_EQ(Names(files["c"], "Generalization"), "- - - - - - - - - -");
  EXPECT_THAT(
      files.Diagnostics(),
      ElementsAre(
          "model.uml:4: can't read missing.uml: No such file or directory",
          "model.uml:6: \"http://example.org/a.uml\" is not on the local disk and is not read",
          "model.uml:8: \"platform:/plugin/x/a.uml\" is not on the local disk and is not read",
          "model.uml:9: can't read /dev/zero: is not a file",
          HasSubstr("model.uml:10: can't read bad.uml:1: is no well-formed XML"),
          "diagram.di:1: diagram.di is a diagram, no UML model",
          "model.uml:11: the general of a Generalization in C is \"a\", which is not in "
          "diagram.di",
          "model.uml:12: the general of a Generalization in C is \"none\", which is not in "
          "model.uml",
          "model.uml:13: the general of a Generalization in C is \"nowhere\", which is not "
          "in the file"));
}

// The part of a model that lies in a file of its own stands where the model says.
TEST(XmiFragments, AreHungIntoTheModel) {
  XmiFiles files;
  const std::string fragment =
      R"(><uml:Package xmi:id="f" name="F"><packagedElement xmi:type="uml:Class" xmi:id="k" name="K">
           <ownedAttribute xmi:id="bound" name="bound"><upperValue xmi:type="uml:OpaqueExpression">
             <body>MAX</body></upperValue></ownedAttribute>
         </packagedElement></uml:Package>
         <C:CORBAModule base_Package="f"/><C:CORBAStruct base_Class="k"/></xmi:XMI>)";
  files.Write("parts/f.uml", "<xmi:XMI " + std::string(support::kNamespaces) + fragment);
  files.Write("tags.xmi", "<xmi:XMI " + std::string(support::kNamespaces) +
                              "><C:CORBAModule><base_Package href=\"model.uml#p\"/></C:CORBAModule>"
                              "</xmi:XMI>");
  files.Write("model.uml", support::ModelFile(R"(
      <packagedElement xmi:type="uml:Package" xmi:id="p" name="P">
        <packagedElement xmi:type="uml:Class" xmi:id="a" name="A"/>
        <packagedElement xmi:type="uml:Package" xmi:id="here" href="parts/f.uml#f"/>
        <packagedElement xmi:type="uml:Class" xmi:id="b" name="B">
          <ownedAttribute xmi:id="c" name="MAX"/></packagedElement>
      </packagedElement>
      <packagedElement xmi:type="uml:Package" href="parts/f.uml#f"/>)",
                                              R"(<C:CORBAConstants base_Class="b"/>)"));
  files.Read("tags.xmi");
  EXPECT_EQ(Names(files["p"], "OwnedMember"), "A F MAX");
  EXPECT_TRUE(files["p"].HasStereotype("CORBAModule", 0));
  EXPECT_TRUE(files["f"].HasStereotype("CORBAModule", 0));
  EXPECT_EQ(files["k"].GetMetaclass(), "Class");
  EXPECT_EQ(files.Reader().QualifiedName(files["k"]), "P::F::K");
  EXPECT_EQ(files.Reader().Locate(files["k"]).file, files.Path("parts/f.uml"));
  EXPECT_EQ(support::MultiplicityText(files["bound"]), "1..MAX=MAX");
  EXPECT_THAT(files.Diagnostics(), ElementsAre(HasSubstr("belongs elsewhere: Package P::F")));
}

TEST(XmiFragments, StandAmongTheirSiblingsInOrder) {
  XmiFiles files;
  files.Write("f.uml", support::ModelFile("", R"(
      <uml:Class xmi:id="h" name="Holder"><ownedAttribute xmi:id="k" name="K"/></uml:Class>
      <C:CORBAConstants base_Class="h"/>
      <uml:Interface xmi:id="i" name="I">
        <ownedComment href="g.uml#c"/><ownedComment body="two"/>
        <generalization href="g.uml#g"/><generalization general="b"/>
        <ownedOperation xmi:id="o" name="o">
          <ownedParameter href="g.uml#p"/><ownedParameter name="second"/></ownedOperation>
        <ownedReception href="g.uml#r"/><ownedAttribute name="z"/>
      </uml:Interface>
      <uml:Interface xmi:id="b" name="B"/>)"));
  files.Write("g.uml", support::ModelFile("", R"(
      <uml:Comment xmi:id="c" body="one"/>
      <uml:Generalization xmi:id="g" general="a"/><uml:Interface xmi:id="a" name="A"/>
      <uml:Parameter xmi:id="p" name="first"/>
      <uml:Reception xmi:id="r" signal="s"/><uml:Signal xmi:id="s" name="S"/>
      <uml:EnumerationLiteral xmi:id="l" name="ONE"/>)"));
  files.ReadModel(R"(<packagedElement xmi:type="uml:Package" xmi:id="p" name="P">
      <packagedElement xmi:type="uml:Class" xmi:id="x" name="X"/>
      <packagedElement xmi:type="uml:Class" href="f.uml#h"/>
      <packagedElement xmi:type="uml:Interface" href="f.uml#i"/>
      <packagedElement xmi:type="uml:Enumeration" xmi:id="e" name="E">
        <ownedLiteral href="g.uml#l"/><ownedLiteral name="TWO"/></packagedElement>
      <ownedComment annotatedElement="x" body="last"/>
    </packagedElement>)");
  EXPECT_EQ(Names(files["p"], "OwnedMember"), "X K I E");
  EXPECT_EQ(Names(files["i"], "OwnedMember"), "o S z");
  EXPECT_EQ(Names(files["i"], "Comment"), "one two");
  EXPECT_EQ(Names(files["o"], "Parameter"), "first second");
  EXPECT_EQ(Names(files["e"], "Literal"), "ONE TWO");
  const auto generals = files["i"].Entities(model::Symbol("Generalization"));
  ASSERT_EQ(generals.size(), 2u);
  EXPECT_EQ(generals[0]->GetEntity("Parent", 0), &files["a"]);
  EXPECT_EQ(files.Reader().QualifiedName(files["k"]), "P::K");
  EXPECT_EQ(files.Reader().IdOf(files["l"]), "l");
  EXPECT_THAT(files.Diagnostics(), IsEmpty());
}

// Values and template bindings are no elements of their own, but may be parts of their own.
TEST(XmiFragments, MayBeValuesAndBindings) {
  XmiFiles files;
  files.Write("f.uml", support::ModelFile("", R"(
      <uml:LiteralUnlimitedNatural xmi:id="star" value="*"/>
      <uml:InstanceValue xmi:id="red"><instance href="model.uml#r"/></uml:InstanceValue>
      <uml:OpaqueExpression xmi:id="max"><body>MAX</body></uml:OpaqueExpression>
      <uml:TemplateBinding xmi:id="longs">
        <signature href="CORBA.library.uml#sequence_signature"/>
        <parameterSubstitution href="model.uml#element"/>
        <parameterSubstitution><ownedActual href="#max"/></parameterSubstitution>
      </uml:TemplateBinding>)"));
  files.ReadModel(R"(<packagedElement xmi:type="uml:Class" xmi:id="c" name="C">
      <ownedAttribute name="MAX"/>
      <ownedAttribute xmi:id="a" type="t"><lowerValue href="f.uml#max"/>
        <upperValue xmi:type="uml:LiteralUnlimitedNatural" href="f.uml#star"/></ownedAttribute>
      <ownedAttribute xmi:id="d"><defaultValue href="f.uml#red"/></ownedAttribute>
      <ownedAttribute xmi:id="lost"><upperValue href="f.uml#nowhere"/>
        <defaultValue href="#c"/></ownedAttribute>
      <nestedClassifier xmi:type="uml:Class" xmi:id="t" name="T">
        <templateBinding href="f.uml#longs"/></nestedClassifier>
    </packagedElement>
    <packagedElement xmi:type="uml:Enumeration" name="E">
      <ownedLiteral xmi:id="r" name="RED"/></packagedElement>)",
                  R"(<C:CORBAConstants base_Class="c"/>
      <uml:TemplateParameterSubstitution xmi:id="element"><actual href="CORBA.library.uml#long"/>
      </uml:TemplateParameterSubstitution>)");
  EXPECT_EQ(support::MultiplicityText(files["a"]), "MAX=MAX..*");
  EXPECT_EQ(TypeText(files["a"]), "sequence<long, MAX=MAX>");
  EXPECT_EQ(files["d"].GetEntity("DefaultValue", 0)->GetEntity("Definition", 0), &files["r"]);
  EXPECT_EQ(support::MultiplicityText(files["lost"]), "");
  EXPECT_EQ(files["lost"].GetEntity("DefaultValue", 0), nullptr);
  EXPECT_THAT(files.Diagnostics(), ElementsAre(HasSubstr("\"nowhere\", which is not in"),
                                               HasSubstr("belongs elsewhere: Class C")));
}

TEST(XmiFragments, ThatDontFitTheirPlaceAreToldOf) {
  XmiFiles files;
  files.Write("c.uml", support::ModelFile("", R"(<uml:Class xmi:id="x" name="X"/>)"));
  files.Write("b.uml", support::ModelFile("", R"(<uml:Class xmi:id="k" name="K">
      <signature href="c.uml#x"/><actual href="c.uml#x"/><instance href="c.uml#x"/>
      <ownedAttribute name="q"><upperValue xmi:id="inner" value="5"/></ownedAttribute></uml:Class>
      <C:CORBAStruct xmi:id="mark" base_Class="k"/>)"));
  files.ReadModel(R"(<packagedElement xmi:type="uml:Class" xmi:id="c" name="C">
      <ownedAttribute name="a"><upperValue href="b.uml#inner"/></ownedAttribute>
      <ownedAttribute name="b"><defaultValue href="b.uml#k"/></ownedAttribute>
      <ownedAttribute name="c"><defaultValue href="b.uml#mark"/></ownedAttribute>
      <ownedAttribute href="b.uml#inner"/>
      <nestedClassifier xmi:type="uml:Class" name="T"><templateBinding href="b.uml#k"/>
      </nestedClassifier>
      <nestedClassifier xmi:type="uml:Class" name="U">
        <templateBinding><signature href="CORBA.library.uml#sequence_signature"/>
          <parameterSubstitution href="b.uml#k"/></templateBinding></nestedClassifier>
    </packagedElement>)");
  EXPECT_EQ(Names(files["c"], "OwnedMember"), "a b c T U");
  EXPECT_EQ(files.Diagnostics().size(), 6u);
  EXPECT_THAT(files.Diagnostics(), ::testing::Each(HasSubstr("but belongs elsewhere: ")));
}

TEST(XmiFragments, ThatHoldEachOtherDontLoop) {
  XmiFiles files;
  const auto fragment = [](const std::string& id, const std::string& other) {
    return "<uml:Package " + std::string(support::kNamespaces) + " xmi:id=\"" + id + "\" name=\"" +
           id + "\"><packagedElement xmi:type=\"uml:Package\" href=\"" + other + ".uml#" + other +
           "\"/></uml:Package>";
  };
  files.Write("a.uml", fragment("a", "b")).Write("b.uml", fragment("b", "a")).Read("a.uml");
  EXPECT_EQ(Names(files["a"], "OwnedMember"), "b");
  EXPECT_EQ(Names(files["b"], "OwnedMember"), "");
  EXPECT_THAT(files.Diagnostics(), ElementsAre(HasSubstr("belongs elsewhere: Package ")));
}

TEST(XmiLibraries, AreKnownWithoutTheirFiles) {
  const std::tuple<std::string, std::string> cases[] = {
      {"pathmap://UML_LIBRARIES/UMLPrimitiveTypes.library.uml#Integer", "Integer"},
      {"pathmap://UML_LIBRARIES/UMLPrimitiveTypes.library.uml#String", "Charstring"},
      {"http://www.omg.org/spec/UML/20131001/PrimitiveTypes.xmi#UnlimitedNatural", "Natural"},
      {"http://schema.omg.org/spec/UML/2.1/uml.xml#Boolean", "Boolean"},
      {"https://www.omg.org/spec/UML/20161101/PrimitiveTypes.xmi#Real", "Real"},
      {"pathmap://UML_LIBRARIES/EcorePrimitiveTypes.library.uml#ELong", "long long"},
      {"pathmap://UML_LIBRARIES/EcorePrimitiveTypes.library.uml#EByte", "octet"},
      {"pathmap://UML_LIBRARIES/JavaPrimitiveTypes.library.uml#long", "long long"},
      {"pathmap://UML_LIBRARIES/JavaPrimitiveTypes.library.uml#int", "long"},
      {"CORBA.library.uml#unsigned_long_long", "unsigned long long"},
      {"platform:/resource/lib/CORBA.library.uml#TypeCode", "TypeCode"},
      {"../lib/CORBA.library.uml#string", "string"},
  };
  for (const auto& [href, name] : cases) {
    XmiFiles files;
    files.ReadModel(
        R"(<packagedElement xmi:type="uml:Class"><ownedAttribute xmi:id="a"><type href=")" + href +
        "\"/></ownedAttribute></packagedElement>");
    EXPECT_EQ(TypeText(files["a"]), name) << href;
    EXPECT_EQ(files["a"].GetEntity("Type", 0)->GetMetaclass(), "DataType");
    EXPECT_THAT(files.Diagnostics(), IsEmpty());
    EXPECT_EQ(files.Reader().Files().size(), 1u);
  }
}

TEST(XmiSamples, AreRead) {
  const char* const given = std::getenv("IDLEXPORT_SAMPLES");
  if (given == nullptr || !std::filesystem::is_directory(given)) {
    GTEST_SKIP() << "IDLEXPORT_SAMPLES names no folder of sample files";
  }
  for (const char* name : {"eclipse.uml", "omg.xmi"}) {
    model::Model model;
    xmi::Reader reader(model);
    reader.Read((std::filesystem::path(given) / name).string());
    ASSERT_EQ(reader.FindByName("P::I").size(), 1u) << name;
    model::Element& interface = *reader.FindByName("P::I").front();
    EXPECT_TRUE(interface.HasStereotype("CORBAInterface", 0));
    EXPECT_EQ(Names(interface, "Generalization").substr(0, 1), "J");
    EXPECT_THAT(support::Tree(interface), HasSubstr("range(0..*)"));
  }
}

}  // namespace
