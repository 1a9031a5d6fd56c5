// What the elements of a file answer: metaclasses, properties, members, types and comments.
#include <gmock/gmock.h>

#include "tests/support/xmi_files.h"

namespace {

using support::Names;
using support::TagText;
using support::Tree;
using support::TypeText;
using support::XmiFiles;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::string_view kAttributeStyle = R"(
  <packagedElement xmi:type="uml:Package" xmi:id="p" name="P" visibility="private">
    <packagedElement xmi:type="uml:Interface" xmi:id="i" name="I" isAbstract="true">
      <ownedComment xmi:id="c" annotatedElement="i"><body>Says &lt;this&gt;</body></ownedComment>
      <generalization xmi:id="g" general="j"/>
      <ownedAttribute xmi:id="a" name="a" type="t" isReadOnly="true">
        <lowerValue xmi:type="uml:LiteralInteger" xmi:id="lo"/>
        <upperValue xmi:type="uml:LiteralUnlimitedNatural" xmi:id="up" value="*"/>
        <defaultValue xmi:type="uml:OpaqueExpression" xmi:id="dv"><body>"x"</body></defaultValue>
      </ownedAttribute>
      <ownedOperation xmi:id="o" name="o" raisedException="e1 e2">
        <ownedParameter xmi:id="q" name="q" type="t" direction="inout"/>
      </ownedOperation>
    </packagedElement>
    <packagedElement xmi:type="uml:Interface" xmi:id="j" name="J"/>
    <packagedElement xmi:type="uml:PrimitiveType" xmi:id="t" name="long"/>
    <packagedElement xmi:type="uml:Class" xmi:id="e1" name="E1"/>
    <packagedElement xmi:type="uml:Class" xmi:id="e2" name="E2"/>
    <packagedElement xmi:type="uml:Usage" xmi:id="u" client="i&#10;j" supplier="e1"/>
  </packagedElement>)";

constexpr std::string_view kElementStyle = R"(
  <packagedElement xmi:type="uml:Package" xmi:id="p"><name>P</name><visibility> private </visibility>
    <packagedElement xmi:type="uml:Interface" xmi:id="i"><name>I</name><isAbstract>true</isAbstract>
      <ownedComment xmi:type="uml:Comment" xmi:id="c" body="Says &lt;this&gt;">
        <annotatedElement xmi:idref="i"/></ownedComment>
      <generalization xmi:type="uml:Generalization" xmi:id="g" specific="i">
        <general xmi:idref="j"/></generalization>
      <ownedAttribute xmi:type="uml:Property" xmi:id="a" isStatic="false" aggregation="none">
        <name>a</name><isReadOnly>true</isReadOnly><type xmi:idref="t"/>
        <lowerValue xmi:type="uml:LiteralInteger" xmi:id="lo"><value>0</value></lowerValue>
        <upperValue xmi:type="uml:LiteralUnlimitedNatural" xmi:id="up"><value>-1</value></upperValue>
        <defaultValue xmi:type="uml:OpaqueExpression" xmi:id="dv" body="&quot;x&quot;"/>
        <xmi:Extension extender="t"><ownedAttribute xmi:id="a" name="again"/></xmi:Extension>
      </ownedAttribute>
      <ownedOperation xmi:type="uml:Operation" xmi:id="o"><name>o</name>
        <raisedException xmi:idref="e1"/><raisedException href="#e2"/>
        <ownedParameter xmi:type="uml:Parameter" xmi:id="q"><name>q</name>
          <direction>inout</direction><type xmi:idref="t"/></ownedParameter>
        <ownedParameter xmi:type="uml:Parameter" xmi:id="r" direction="return"/>
      </ownedOperation>
    </packagedElement>
    <packagedElement xsi:type="uml:Interface" xmi:id="j"><name>J</name></packagedElement>
    <packagedElement xmi:type="uml:PrimitiveType" xmi:id="t"><name><![CDATA[lo]]><!-- -->ng</name>
    </packagedElement>
    <packagedElement xmi:type="uml:Class" xmi:id="e1"><name>E1</name></packagedElement>
    <packagedElement xmi:type="uml:Class" xmi:id="e2"><name>E2</name></packagedElement>
    <packagedElement xmi:type="uml:Usage" xmi:id="u"><client xmi:idref="i"/><client xmi:idref="j"/>
      <supplier xmi:idref="e1"/></packagedElement>
  </packagedElement>)";

TEST(XmiElements, AreTheSameInBothDialects) {
  XmiFiles attributes;
  XmiFiles elements;
  attributes.ReadModel(kAttributeStyle, R"(<C:CORBAInterface base_Interface="i"/>)");
  elements.ReadModel(kElementStyle,
                     R"(<C:CORBAInterface><base_Interface xmi:idref="i"/></C:CORBAInterface>)");
  const std::string tree = Tree(attributes["root"]);
  EXPECT_EQ(tree, Tree(elements["root"]));
  EXPECT_THAT(attributes.Diagnostics(), IsEmpty());
  EXPECT_THAT(elements.Diagnostics(), IsEmpty());
  EXPECT_THAT(tree, HasSubstr("  Package P VkPrivate CkUnfrozen false DkIn"));
  EXPECT_THAT(tree, HasSubstr("    Interface I VkNoVisibility CkUnfrozen true DkIn type() range() "
                              "value() (J) (E1) () () (Says <this>) marked"));
  EXPECT_THAT(tree, HasSubstr("Attribute a VkNoVisibility CkFrozen false DkIn type(long) "
                              "range(0..*) value(CharstringValue \"x\")"));
  EXPECT_THAT(tree, HasSubstr("Operation o VkNoVisibility CkUnfrozen false DkIn type() range() "
                              "value() () () (E1 E2) () ()\n        Parameter q VkNoVisibility "
                              "CkUnfrozen false DkInOut type(long)"));
}

TEST(XmiElements, HaveTheMetaclassOfTheirType) {
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {"Package", {"Package", "Model", "Profile"}},
      {"Class", {"Class", "Component", "AssociationClass", "Node"}},
      {"Interface", {"Interface"}},
      {"DataType", {"DataType", "PrimitiveType", "Enumeration"}},
      {"Signal", {"Signal"}},
      {"Artifact", {"Artifact", "DeploymentSpecification"}},
      {"Dependency", {"Dependency", "Usage", "Realization", "Abstraction"}},
      {"Stereotype", {"Stereotype"}},
  };
  for (const auto& [metaclass, types] : cases) {
    for (const std::string& type : types) {
      XmiFiles files;
      files.ReadModel("<packagedElement xmi:id=\"e\" xmi:type=\"uml:" + type + "\" name=\"E\"/>");
      EXPECT_EQ(files["e"].GetMetaclass(), metaclass) << type;
      EXPECT_EQ(Names(files["root"], "OwnedMember"), metaclass == "Dependency" ? "nothing" : "E");
    }
  }
}

TEST(XmiElements, OwnTheirMembersInDocumentOrder) {
  XmiFiles files;
  files.ReadModel(R"(
    <packagedElement xmi:type="uml:Component" xmi:id="c">
      <ownedAttribute name="a"/><packagedElement xmi:type="uml:Class" name="b"/>
      <ownedOperation name="o"/><nestedClassifier xmi:type="uml:Class" name="n"/>
      <ownedPort name="p"/><ownedAttribute xmi:type="uml:Port" name="q"/>
      <ownedReception name="r" signal="s"/><ownedReception signal="root"/>
      <ownedBehavior xmi:type="uml:Activity" name="skipped"><node xmi:id="in"/></ownedBehavior>
      <ownedRule/><ownedAttribute name="z"/>
    </packagedElement>
    <packagedElement xmi:type="uml:Association"><ownedEnd name="e" type="c"/></packagedElement>
    <nestedPackage name="np"/><ownedType xmi:type="uml:Class" name="ot"/>
    <packagedElement xmi:type="uml:Signal" xmi:id="s" name="S">
      <ownedAttribute name="one" type="c"/><ownedAttribute name="two"/></packagedElement>)");
  EXPECT_EQ(Names(files["c"], "OwnedMember"), "a b o n p q S M z");
  EXPECT_EQ(Names(files["root"], "OwnedMember"), "- - np ot S");
  EXPECT_EQ(Names(files["s"], "Parameter"), "one two");
  EXPECT_EQ(files["s"].Entities(model::Symbol("Parameter"))[0]->GetValue("Direction", 0), "DkIn");
  EXPECT_EQ(files.Reader().FindById("in"), nullptr);
  EXPECT_THAT(files.Reader().PassedOver(),
              ElementsAre(std::pair("ownedEnd", 1u), std::pair("ownedRule", 1u),
                          std::pair("uml:Activity", 1u), std::pair("uml:Association", 1u)));
}

TEST(XmiElements, LeaveOutReturnParametersThatSayNothing) {
  const std::pair<std::string, std::string> cases[] = {
      {R"(<ownedParameter name="r" direction="return" type="t"/>)", "r"},
      {R"(<ownedParameter name="r" direction="return"/>)", ""},
      {R"(<ownedParameter name="r" direction="return" type="v"/>)", ""},
      {R"(<ownedParameter name="r" direction="return"><type href="a.uml#void"/></ownedParameter>)",
       ""},
      {R"(<ownedParameter name="r" direction="return" type="nowhere"/>)", "r"},
      {R"(<ownedParameter name="x"/><ownedParameter name="y" direction="out" type="v"/>)", "x y"},
  };
  for (const auto& [parameters, names] : cases) {
    XmiFiles files;
    files.ReadModel(R"(<packagedElement xmi:type="uml:DataType" xmi:id="t" name="T"/>
        <packagedElement xmi:type="uml:PrimitiveType" xmi:id="v" name="void"/>
        <packagedElement xmi:type="uml:Interface"><ownedOperation xmi:id="o">)" +
                    parameters + "</ownedOperation></packagedElement>");
    EXPECT_EQ(Names(files["o"], "Parameter"), names) << parameters;
  }
}

TEST(XmiElements, OfOwnPrimitiveTypesHaveNamesThatTheAgentKnows) {
  XmiFiles files;
  files.ReadModel(R"(
    <packagedElement xmi:type="uml:PrimitiveType" xmi:id="s" name="String"/>
    <packagedElement xmi:type="uml:PrimitiveType" xmi:id="n" name="UnlimitedNatural"/>
    <packagedElement xmi:type="uml:PrimitiveType" xmi:id="l" name="unsigned long"/>
    <packagedElement xmi:type="uml:Class" xmi:id="c" name="String">
      <ownedAttribute xmi:id="a" type="s"/><ownedAttribute xmi:id="x" type="X_String"/>
      <ownedAttribute xmi:id="d" type="X_none"/>
    </packagedElement>)",
                  R"(<xmi:Extension><primitivetypes><packagedElement xmi:type="uml:PrimitiveType"
    xmi:id="X_String" name="string"/></primitivetypes></xmi:Extension>)");
  EXPECT_EQ(Names(files["root"], "OwnedMember"), "Charstring Natural unsigned long String");
  EXPECT_EQ(TypeText(files["a"]) + " " + TypeText(files["x"]), "Charstring string");
  EXPECT_THAT(files.Diagnostics(), ElementsAre(HasSubstr("\"X_none\", which is not in the file")));
}

TEST(XmiElements, HaveTheirCommentsInDocumentOrder) {
  XmiFiles files;
  files.ReadModel(R"(
    <ownedComment annotatedElement="c d c"><body>one&#xD;&#xA;line</body></ownedComment>
    <packagedElement xmi:type="uml:Class" xmi:id="c" name="C">
      <ownedComment body="two"/><ownedComment annotatedElement="d" body="three"/>
      <ownedComment annotatedElement="nowhere" body="own"/>
    </packagedElement>
    <packagedElement xmi:type="uml:Class" xmi:id="d" name="D"/>
    <ownedComment><body>four</body><annotatedElement xmi:idref="c"/></ownedComment>
    <ownedComment/>)");
  EXPECT_EQ(Names(files["c"], "Comment"), "one\nline two own four");
  EXPECT_EQ(Names(files["d"], "Comment"), "one\nline three");
  EXPECT_EQ(files["root"].Entities(model::Symbol("Comment")).size(), 1u);
  EXPECT_THAT(files.Diagnostics(), ElementsAre(HasSubstr("which is not in the file")));
}

TEST(XmiElements, AreFoundByIdAndName) {
  XmiFiles files;
  files.ReadModel(R"(
    <packagedElement xmi:type="uml:Package" xmi:id="p" name="P">
      <packagedElement xmi:type="uml:Class" xmi:id="a1" name="A"/>
      <packagedElement xmi:type="uml:Artifact" xmi:id="a2" name="A"/>
      <packagedElement xmi:type="uml:Artifact" xmi:id="a1" name="again"/>
    </packagedElement>
    <packagedElement xmi:type="uml:Class" xmi:id="b" name="A"/>)");
  xmi::Reader& reader = files.Reader();
  EXPECT_THAT(reader.FindByName("P::A"), ElementsAre(&files["a1"], &files["a2"]));
  EXPECT_THAT(reader.FindByName("M::P::A"), ElementsAre(&files["a1"], &files["a2"]));
  EXPECT_THAT(reader.FindByName("A"), ElementsAre(&files["b"]));
  EXPECT_THAT(reader.FindByName("M"), ElementsAre(&files["root"]));
  EXPECT_THAT(reader.FindByName("P::B"), IsEmpty());
  EXPECT_EQ(reader.Artifacts().size(), 2u);
  EXPECT_EQ(reader.QualifiedName(files["a2"]), "P::A");
  EXPECT_EQ(reader.QualifiedName(files["root"]), "");
  EXPECT_EQ(reader.IdOf(files["a2"]), "a2");
  EXPECT_EQ(reader.FindById("nowhere"), nullptr);
  const xmi::Location location = reader.Locate(files["a2"]);
  EXPECT_EQ(location.line, 5u);
  EXPECT_EQ(location.column, 7u);
  EXPECT_THAT(files.Diagnostics(),
              ElementsAre("model.uml:6: the id \"a1\" stands twice; the first counts"));
}

TEST(XmiElements, WithValuesThatAreUnknownAnswerTheDefault) {
  XmiFiles files;
  files.ReadModel(R"(<packagedElement xmi:type="uml:Class" xmi:id="c" name="C" visibility="Public">
      <ownedOperation name="o"><ownedParameter xmi:id="q" name="q" direction="sideways"/>
      </ownedOperation></packagedElement>)");
  EXPECT_EQ(files["c"].GetValue("Visibility", 0), "VkNoVisibility");
  EXPECT_EQ(files["q"].GetValue("Direction", 0), "DkIn");
  EXPECT_THAT(files.Diagnostics(), ElementsAre("model.uml:2: visibility \"Public\" of Class C is "
                                               "unknown and passed over",
                                               "model.uml:3: direction \"sideways\" of Parameter "
                                               "C::o::q is unknown and passed over"));
}

TEST(XmiStereotypes, GiveTagsWithTheirDefaults) {
  XmiFiles files;
  files.ReadModel(R"(
    <packagedElement xmi:type="uml:Artifact" xmi:id="a"/>
    <packagedElement xmi:type="uml:Class" xmi:id="v"><ownedOperation xmi:id="o"/>
      <ownedAttribute xmi:type="uml:Port" xmi:id="p"/><ownedAttribute xmi:id="k"/>
      <ownedOperation xmi:id="o2"/></packagedElement>)",
                  R"(
    <C:IDLGenerator base_Artifact="a" targetDir="out" fileMapping=" MODULE_FLAT "/>
    <C:CORBAEvent base_Class="v" isCustom="true"/>
    <Z:CORBAOperation xmlns:Z="urn:z" base_Operation="o"><context>A</context></Z:CORBAOperation>
    <C:CORBAOperation base_Operation="o2" overrideIsDefaultAsync="false"/>
    <C:CORBAEventSource base_Port="p"><sourceKind xsi:nil="true"/></C:CORBAEventSource>
    <C:_case base_Property="k"><label>1</label><label>2</label></C:_case>
    <C:Own base_Property="k" free="text" ><ref xmi:idref="a"/></C:Own>)");
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"a", "IDLGenerator (. targetDir .)", "out"},
      {"a", "IDLGenerator (. fileName .)", ""},
      {"a", "IDLGenerator (. isAsyncDefault .)", "false"},
      {"a", "IDLGenerator (. fileMapping .)", "MODULE_FLAT"},
      {"v", "CORBAValue (. isCustom .)", "true"},
      {"o", "CORBAOperation (. context .)", "[A]"},
      {"o", "CORBAOperation (. overrideIsDefaultAsync .)", "-"},
      {"o2", "CORBAOperation (. overrideIsDefaultAsync .)", "false"},
      {"o2", "CORBAOperation (. context .)", "-"},
      {"p", "CORBAEventSource (. sourceKind .)", "Publisher"},
      {"k", "'case' (. label .)", "[1|2]"},
      {"k", "'case' (. isDefault .)", "false"},
      {"k", "Own (. free .)", "text"},
      {"k", "CORBAAttribute (. isConstant .)", "-"},
  };
  for (const auto& [id, expression, text] : cases) {
    EXPECT_EQ(TagText(files[id], expression), text) << expression;
  }
  EXPECT_TRUE(files["v"].HasStereotype("CORBA", 0));
  EXPECT_FALSE(files["root"].HasStereotype("CORBA", 0));
  EXPECT_THAT(files.Diagnostics(), IsEmpty());
}

TEST(XmiStereotypes, DecideTheMetaclassOfClassifiers) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"DataType", "CORBAStruct", "Class"},     {"Interface", "CORBAComponent", "Class"},
      {"Class", "CORBAValue", "Interface"},     {"Component", "CORBAHome", "Interface"},
      {"Class", "CORBAEvent", "Interface"},     {"Class", "CORBAEnum", "DataType"},
      {"DataType", "CORBATypedef", "DataType"}, {"Interface", "CORBATypedef", "Interface"},
      {"Class", "CORBAInterface", "Class"},     {"Signal", "CORBABoxedValue", "Class"},
      {"Package", "CORBAStruct", "Package"},
  };
  for (const auto& [type, stereotype, metaclass] : cases) {
    XmiFiles files;
    files.ReadModel("<packagedElement xmi:id=\"e\" xmi:type=\"uml:" + type + "\"/>",
                    "<C:" + stereotype + " base_Element=\"e\" base_NamedElement=\"e\"/>");
    EXPECT_EQ(files["e"].GetMetaclass(), metaclass) << stereotype;
    EXPECT_THAT(files.Diagnostics(), IsEmpty());
  }
}

TEST(XmiStereotypes, MakeTheAttributesOfAHolderConstantsOfThePackage) {
  XmiFiles files;
  files.ReadModel(R"(
    <packagedElement xmi:type="uml:Package" xmi:id="p" name="P">
      <packagedElement xmi:type="uml:Class" name="A"/>
      <packagedElement xmi:type="uml:Class" xmi:id="h" name="H">
        <ownedAttribute xmi:id="x" name="X"/><ownedAttribute xmi:id="y" name="Y"/>
      </packagedElement>
      <packagedElement xmi:type="uml:Class" xmi:id="b" name="B">
        <nestedClassifier xmi:type="uml:Class" xmi:id="n" name="N"><ownedAttribute xmi:id="z"/>
        </nestedClassifier></packagedElement>
    </packagedElement>)",
                  R"(<C:CORBAConstants base_Class="h"/><C:CORBAConstants base_Class="n"/>
                     <C:CORBAAttribute base_Property="x" isConstant="false"/>)");
  EXPECT_EQ(Names(files["p"], "OwnedMember"), "A X Y B");
  EXPECT_EQ(Names(files["b"], "OwnedMember"), "N");
  for (const char* id : {"x", "y"}) {
    EXPECT_EQ(TagText(files[id], "CORBAAttribute (. isConstant .)"), "true");
  }
  EXPECT_EQ(TagText(files["z"], "CORBAAttribute (. isConstant .)"), "-");
  EXPECT_EQ(files.Reader().QualifiedName(files["x"]), "P::X");
}

TEST(XmiStereotypes, WithoutAnElementAreDiagnosed) {
  XmiFiles files;
  files.ReadModel(R"(<packagedElement xmi:type="uml:Class" xmi:id="c" name="C"/>)", R"(
    <C:CORBAStruct/>
    <C:CORBAStruct base_Class="gone"/>
    <C:CORBAStruct base_Class="c"/>
    <C:CORBAStruct base_Class="c"/>
    <n:Shape xmlns:n="http://www.eclipse.org/gmf/notation"/>
    <C:Node base_Element="c" node="7"/>)");
  EXPECT_THAT(files.Diagnostics(),
              ElementsAre("model.uml:3: the stereotype CORBAStruct is applied to nothing that is "
                          "in the model; passed over",
                          "model.uml:4: the stereotype CORBAStruct is applied to nothing that is "
                          "in the model; passed over",
                          "model.uml:2: the stereotype CORBAStruct is applied twice to Class C; "
                          "the first counts"));
  EXPECT_EQ(TagText(files["c"], "Node (. node .)"), "-");
  EXPECT_EQ(files.Reader().PassedOver().count("n:Shape"), 1u);
}

TEST(XmiKeywords, AnswerLikeStereotypes) {
  XmiFiles files;
  files.ReadModel(R"(
    <packagedElement xmi:type="uml:Class" xmi:id="c">
      <eAnnotations source="http://www.eclipse.org/uml2/2.0.0/UML"><details key="CORBAStruct"/>
        <details><key>own</key></details></eAnnotations>
      <eAnnotations source="elsewhere"><details key="other"/></eAnnotations>
    </packagedElement>)");
  EXPECT_TRUE(files["c"].HasStereotype("CORBAStruct", 0));
  EXPECT_NE(files["c"].EvalExpression("own (. .)", 0), nullptr);
  EXPECT_FALSE(files["c"].HasStereotype("other", 0));
}

}  // namespace
