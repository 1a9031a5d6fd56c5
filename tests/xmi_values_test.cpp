// Multiplicities, default values and templates.
#include <gmock/gmock.h>

#include "tests/support/xmi_files.h"

namespace {

using support::DefaultText;
using support::MultiplicityText;
using support::TypeText;
using support::XmiFiles;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// Constants to name, at several places around the element "a".
std::string Scope(const std::string& attribute, const std::string& attributes = "") {
  return R"(
    <packagedElement xmi:type="uml:Package" xmi:id="p" name="P">
      <packagedElement xmi:type="uml:Class" xmi:id="h" name="H">
        <ownedAttribute xmi:id="max" name="MAX"/><ownedAttribute name="OUTER"/></packagedElement>
      <packagedElement xmi:type="uml:Class" xmi:id="c" name="C">
        <ownedAttribute xmi:id="near" name="OUTER" visibility="private"/>
        <ownedAttribute name="plain"/>
        <ownedAttribute xmi:id="a" name="a")" +
         attributes + ">" + attribute + R"(</ownedAttribute>
      </packagedElement>
      <packagedElement xmi:type="uml:InstanceSpecification" xmi:id="im" name="MAX"/>
      <packagedElement xmi:type="uml:InstanceSpecification" xmi:id="i7" name="seven">
        <specification xmi:type="uml:LiteralInteger" value="7"/></packagedElement>
      <packagedElement xmi:type="uml:Enumeration" xmi:id="e" name="Color">
        <ownedLiteral xmi:id="red" name="RED"/></packagedElement>
      <packagedElement xmi:type="uml:Class" xmi:id="t" name="Text">
        <ownedAttribute name="base"><type href="CORBA.library.uml#wstring"/></ownedAttribute>
      </packagedElement>
    </packagedElement>
    <packagedElement xmi:type="uml:Package" xmi:id="other" name="Q">
      <packagedElement xmi:type="uml:Class" xmi:id="h2" name="H2">
        <ownedAttribute name="FAR"/></packagedElement></packagedElement>)";
}

constexpr std::string_view kMarks =
    R"(<C:CORBAConstants base_Class="h"/><C:CORBAConstants base_Class="h2"/>
       <C:CORBAAttribute base_Property="near" isConstant="true"/>
       <C:CORBATypedef base_Class="t"/>)";

TEST(XmiMultiplicities, AreRanges) {
  const std::string integer = R"( xmi:type="uml:LiteralInteger")";
  const std::string natural = R"( xmi:type="uml:LiteralUnlimitedNatural")";
  const std::string text = R"( xmi:type="uml:LiteralString")";
  const std::string opaque = R"( xmi:type="uml:OpaqueExpression")";
  const std::string instance = R"( xmi:type="uml:InstanceValue")";
  const auto lower = [](const std::string& rest) { return "<lowerValue" + rest + "</lowerValue>"; };
  const auto upper = [](const std::string& rest) { return "<upperValue" + rest + "</upperValue>"; };
  const std::tuple<std::string, std::string, bool> cases[] = {
      {"", "", false},
      {lower(integer + ">"), "", false},
      {lower(integer + R"( value="1">)") + upper(natural + R"( value="1">)"), "", false},
      {lower(integer + ">") + upper(natural + R"( value="*">)"), "0..*", false},
      {upper(integer + R"( value="-1">)"), "1..*", false},
      {upper(natural + "><value>5</value>"), "1..5", false},
      {upper(text + R"( value=" 007 ">)"), "1..7", false},
      {upper(text + R"( value="*">)"), "1..*", false},
      {upper(natural + ">"), "1..0", false},
      {lower(natural + R"( value="2">)") + upper(R"( xmi:type="uml:LiteralReal" value="3.0">)"),
       "2..3", false},
      {lower(integer + R"( value="2">)"), "2..1", false},
      {upper(text + R"( value="1?">)"), "", true},
      {upper(text + ">"), "", true},
      {upper(R"( xmi:type="uml:LiteralNull">)"), "", true},
      {upper(integer + R"( value="99999999999999999999">)"), "", true},
      {upper(integer + R"( value="-7">)"), "", true},
      {upper(opaque + "><body> 4 </body>"), "1..4", false},
      {upper(opaque + "><body>MAX</body>"), "1..MAX=MAX", false},
      {upper(opaque + "><language>C</language><language>IDL</language><body>x</body>"
                      "<body>OUTER</body>"),
       "1..OUTER=OUTER", false},
      {upper(opaque + "><body>P::MAX</body>"), "1..P::MAX=MAX", false},
      {upper(opaque + "><body>::Q::FAR</body>"), "1..::Q::FAR=FAR", false},
      {upper(opaque + "><body>P::H::MAX</body>"), "1..P::H::MAX=MAX", false},
      {upper(opaque + "><body>M::Q::FAR</body>"), "1..M::Q::FAR=FAR", false},
      {upper(opaque + "><body>FAR</body>"), "1..?FAR", false},
      {upper(opaque + "><body>plain</body>"), "1..?plain", false},
      {upper(opaque + "><body>MAX + 1</body>"), "", true},
      {upper(R"( xmi:type="uml:Expression" symbol="MAX">)"), "1..MAX=MAX", false},
      {upper(R"( xmi:type="uml:Expression" symbol="+"><operand xmi:type="uml:LiteralInteger"/>)"),
       "", true},
      {upper(instance + R"( instance="im">)"), "1..MAX=MAX", false},
      {upper(instance + R"(><instance xmi:idref="max"/>)"), "1..MAX=MAX", false},
      {upper(instance + R"( instance="i7">)"), "1..7", false},
      {upper(instance + R"( instance="nowhere">)"), "", true},
  };
  for (const auto& [values, range, isDiagnosed] : cases) {
    XmiFiles files;
    files.ReadModel(Scope(values), kMarks);
    EXPECT_EQ(MultiplicityText(files["a"]), range) << values;
    EXPECT_EQ(!files.Diagnostics().empty(), isDiagnosed) << values;
  }
  // The nearest constant counts, not the first.
  XmiFiles files;
  files.ReadModel(Scope(upper(opaque + "><body>OUTER</body>")), kMarks);
  model::Element* range = files["a"].Entities(model::Symbol("Multiplicity"))[0];
  EXPECT_EQ(range->Entity(model::Symbol("UpperBound"))->Entity(model::Symbol("Definition")),
            &files["near"]);
}

TEST(XmiMultiplicities, OfAllKindsOfTypedElementsShareTheirRanges) {
  XmiFiles files;
  const std::string text = R"(<packagedElement xmi:type="uml:Class">
    <ownedAttribute xmi:id="a">MANY</ownedAttribute>
    <ownedAttribute xmi:type="uml:Port" xmi:id="p">MANY</ownedAttribute>
    <ownedOperation><ownedParameter xmi:id="q">MANY</ownedParameter></ownedOperation>
    </packagedElement>)";
  files.ReadModel(
      support::Replaced(text, "MANY", R"(<upperValue xmi:type="uml:LiteralInteger" value="3"/>)"));
  const model::Symbol property("Multiplicity");
  for (const char* id : {"a", "p", "q"}) EXPECT_EQ(MultiplicityText(files[id]), "1..3");
  EXPECT_EQ(files["a"].Entities(property)[0], files["q"].Entities(property)[0]);
}

TEST(XmiDefaultValues, AreOfTheirKind) {
  const auto value = [](const std::string& type, const std::string& rest) {
    return "<defaultValue xmi:type=\"uml:" + type + "\"" + rest + "</defaultValue>";
  };
  const auto body = [&](const std::string& text) {
    return value("OpaqueExpression", "><body>" + text + "</body>");
  };
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {value("LiteralInteger", R"( value="-5">)"), "", "IntegerValue -5"},
      {value("LiteralInteger", ">"), "", "IntegerValue 0"},
      {value("LiteralUnlimitedNatural", "><value>7</value>"), "", "IntegerValue 7"},
      {value("LiteralUnlimitedNatural", R"( value="*">)"), "", "OpaqueExpression *"},
      {value("LiteralReal", R"( value="1.0E-5">)"), "", "RealValue 1.0E-5"},
      {value("LiteralReal", ">"), "", "RealValue 0.0"},
      {value("LiteralReal", R"( value="NaN">)"), "", "OpaqueExpression NaN"},
      {value("LiteralBoolean", ">"), "", "BooleanValue false"},
      {value("LiteralString", R"( value="a b">)"), "string", "CharstringValue \"a b\""},
      {value("LiteralString", R"( value="&quot;q&quot;">)"), "string", "CharstringValue \"q\""},
      {value("LiteralString", R"( value="&quot;">)"), "string", R"(CharstringValue "\"")"},
      {value("LiteralString", R"( value="a&quot;b\n\">)"), "string",
       R"(CharstringValue "a\"b\n\\")"},
      {value("LiteralString", "><value> </value>"), "string", "CharstringValue \" \""},
      {value("LiteralString", R"( value="">)"), "string", "CharstringValue \"\""},
      {value("LiteralString", ">"), "string", ""},
      {value("LiteralString", R"( value="L&quot;w&quot;">)"), "wstring", "CharstringValue L\"w\""},
      {value("LiteralString", R"( value="c">)"), "char", "CharacterValue 'c'"},
      {value("LiteralString", R"( value="'c'">)"), "char", "CharacterValue 'c'"},
      {value("LiteralString", R"( value="'">)"), "char", R"(CharacterValue '\'')"},
      {value("LiteralString", R"( value="c">)"), "wchar", "CharacterValue L'c'"},
      {value("InstanceValue", R"( instance="red">)"), "", "Ident RED=RED"},
      {value("InstanceValue", R"(><instance xmi:idref="near"/>)"), "", "Ident OUTER=OUTER"},
      {value("InstanceValue", R"( instance="i7">)"), "", "Ident ?seven"},
      {body("MAX"), "", "Ident MAX=MAX"},
      {body("0x1F"), "", "IntegerValue 0x1F"},
      {body("-10"), "", "IntegerValue -10"},
      {body("089"), "", "OpaqueExpression 089"},
      {body(".5e+3"), "", "RealValue .5e+3"},
      {body("1.5d"), "", "RealValue 1.5d"},
      {body("L'x'"), "", "CharacterValue L'x'"},
      {body(R"("a\"b")"), "", R"(CharstringValue "a\"b")"},
      {body(R"("a" + "b")"), "", R"(OpaqueExpression "a" + "b")"},
      {body("1 &lt;&lt; 4"), "", "OpaqueExpression 1 << 4"},
      {body("FAR"), "", "OpaqueExpression FAR"},
  };
  for (const auto& [values, type, text] : cases) {
    XmiFiles files;
    const std::string href = "<type href=\"CORBA.library.uml#" + type + "\"/>";
    files.ReadModel(Scope((type.empty() ? "" : href) + values), kMarks);
    EXPECT_EQ(DefaultText(files["a"]), text) << values;
    EXPECT_THAT(files.Diagnostics(), IsEmpty()) << values;
  }
}

TEST(XmiDefaultValues, DependOnTheTypeOfTheirElement) {
  const std::string text = R"(<defaultValue xmi:type="uml:LiteralString" value="x"/>)";
  const std::string name =
      R"(<defaultValue xmi:type="uml:OpaqueExpression"><body>RED</body></defaultValue>)";
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {text, " type=\"t\"", "CharstringValue L\"x\""},
      {name, " type=\"e\"", "Ident RED=RED"},
      {support::Replaced(name, "RED", "P::Color::RED"), " type=\"e\"", "Ident P::Color::RED=RED"},
      {support::Replaced(name, "RED", "P::RED"), " type=\"e\"", "Ident P::RED=RED"},
      {support::Replaced(name, "RED", "Q::RED"), " type=\"e\"", "OpaqueExpression Q::RED"},
      {name, " type=\"t\"", "OpaqueExpression RED"},
  };
  for (const auto& [values, attributes, answer] : cases) {
    XmiFiles files;
    files.ReadModel(Scope(values, attributes), kMarks);
    EXPECT_EQ(DefaultText(files["a"]), answer) << values;
  }
  XmiFiles files;
  files.ReadModel(Scope(name, " type=\"e\""), kMarks);
  EXPECT_EQ(files["red"].GetEntity("Owner", 0), &files["e"]);
}

// A class "I" that binds a template with these parameters, as the type of "a".
std::string Instantiation(const std::string& signature, const std::string& parameters) {
  std::string binding = R"(<packagedElement xmi:type="uml:Class" xmi:id="i" name="I">
      <templateBinding xmi:id="b"><signature href=")" +
                        signature + R"("/>)";
  for (std::size_t at = 0; at < parameters.size();) {
    const std::size_t end = parameters.find(';', at);
    binding +=
        "<parameterSubstitution" + parameters.substr(at, end - at) + "</parameterSubstitution>";
    at = end + 1;
  }
  return Scope("", " type=\"i\"") + binding + "</templateBinding></packagedElement>" + R"(
    <packagedElement xmi:type="uml:DataType" xmi:id="nest" name="Nest">
      <templateBinding signature="own"><parameterSubstitution actual="near"/></templateBinding>
    </packagedElement>
    <packagedElement xmi:type="uml:Class" xmi:id="tpl" name="string">
      <ownedTemplateSignature xmi:id="own"/></packagedElement>
    <packagedElement xmi:type="uml:Class" xmi:id="tpl2" name="List">
      <ownedTemplateSignature xmi:id="own2"/></packagedElement>)";
}

TEST(XmiTemplates, AreInstantiatedWithTheirParameters) {
  const std::string library = "CORBA.library.uml#";
  const std::string five =
      "><ownedActual xmi:type=\"uml:LiteralInteger\" xmi:id=\"v\" value=\"5\"/>";
  const std::string opaque = "><ownedActual xmi:type=\"uml:OpaqueExpression\"><body>";
  const std::string end = "</body></ownedActual>";
  const std::string isLong = "><actual href=\"CORBA.library.uml#long\"/>";
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {library + "sequence_signature", isLong + ";", "sequence<long>"},
      {library + "sequence_signature", " actual=\"c\">;" + five + ";", "sequence<C, 5>"},
      {library + "sequence_signature", " actual=\"nest\">;", "sequence<string<OUTER=OUTER>>"},
      {library + "string_signature", opaque + "MAX" + end + ";", "string<?MAX>"},
      {library + "string_signature", opaque + "P::MAX" + end + ";", "string<P::MAX=MAX>"},
      {library + "wstring_signature", opaque + "12" + end + ";", "wstring<12>"},
      {library + "fixed_signature", five + ";" + " actual=\"max\">;", "fixed<5, MAX=MAX>"},
      {library + "array_signature", isLong + ";" + five + ";" + five + ";", "array<long, 5, 5>"},
      {"#own", " formal=\"f\" actual=\"max\">;", "string<MAX=MAX>"},
      {"#own", " actual=\"nowhere\">;", "string<?nowhere>"},
      {"#own", "><ownedActual xmi:type=\"uml:LiteralInteger\"/>;", "string<0>"},
      {"#own", "><ownedActual xmi:type=\"uml:LiteralReal\" value=\"2.5\"/>;", "string<2.5>"},
      {"#own", "><ownedActual xmi:type=\"uml:LiteralInteger\" value=\"-3\"/>;", "string<-3>"},
      {"#own", "><ownedActual xmi:type=\"uml:PrimitiveType\" name=\"long\"/>;", "string<?long>"},
      {"#tpl", five + ";", "string<5>"},
      {"#own2", five + ";", "I"},
      {"#nowhere", five + ";", "I"},
  };
  for (const auto& [signature, parameters, type] : cases) {
    XmiFiles files;
    files.ReadModel(Instantiation(signature, parameters), kMarks);
    EXPECT_EQ(TypeText(files["a"]), type) << signature << parameters;
  }
  XmiFiles marked;
  marked.ReadModel(Instantiation("#own", five + ";"), R"(<C:CORBASequence base_Class="i"/>)");
  EXPECT_EQ(TypeText(marked["a"]), "I");
}

TEST(XmiTemplates, ThatAreTheirOwnParametersAreCut) {
  XmiFiles files;
  std::string members;
  for (const char* ids : {"ab", "bc", "ca"}) {
    members += std::string("<packagedElement xmi:type=\"uml:Class\" xmi:id=\"") + ids[0] +
               "\" name=\"" + ids[0] +
               "\"><templateBinding><signature href=\"CORBA.library.uml"
               "#sequence_signature\"/><parameterSubstitution actual=\"" +
               ids[1] + "\"/></templateBinding></packagedElement>";
  }
  members += R"(<packagedElement xmi:type="uml:Class"><ownedAttribute xmi:id="x" type="a"/>
                </packagedElement>)";
  files.ReadModel(members);
  EXPECT_EQ(TypeText(files["x"]), "sequence<sequence<sequence<?a>>>");
  EXPECT_THAT(files.Diagnostics(), ElementsAre(HasSubstr("Class c is a part of itself")));
}

TEST(XmiTemplates, TakeNoElementForAnInstantiationByItsTypeAlone) {
  for (const char* actual : {"before", "behind"}) {
    XmiFiles files;
    files.ReadModel(
        R"(<packagedElement xmi:type="uml:TemplateInstantiation" xmi:id="before" name="T"/>
           <packagedElement xmi:type="uml:Class" xmi:id="s"><templateBinding>
             <signature href="CORBA.library.uml#sequence_signature"/>
             <parameterSubstitution actual=")" +
        std::string(actual) + R"("/></templateBinding></packagedElement>
           <packagedElement xmi:type="uml:TemplateInstantiation" xmi:id="behind" name="T"/>)");
    EXPECT_EQ(support::Names(files["s"], "ActualTemplateParameter"), "T") << actual;
    EXPECT_THAT(files.Diagnostics(), IsEmpty()) << actual;
  }
}

}  // namespace
