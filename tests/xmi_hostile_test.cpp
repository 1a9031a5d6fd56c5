// Files that were made to hurt: they end with a clear error or are read, in time and memory that
// their size explains.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <tuple>

#include "tests/support/cost.h"
#include "tests/support/small_stack.h"
#include "tests/support/xmi_files.h"

namespace {

using support::ModelFile;
using support::XmiFiles;
using testing::StartsWith;

std::string Times(std::size_t count, const std::string& text) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) all += text;
  return all;
}

/// The text once for each number below `count`, with the number in each place of a "$".
std::string Numbered(std::size_t count, std::string_view text) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) {
    for (const char c : text) c == '$' ? all += std::to_string(i) : all += c;
  }
  return all;
}

/// The text with `count` of each part in braces, and behind a "~" the applications of stereotypes.
std::string Large(std::size_t count, std::string_view text) {
  std::string parts[2];
  int part = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '{') {
      const std::size_t end = text.find('}', at);
      parts[part] += Numbered(count, text.substr(at + 1, end - at - 1));
      at = end;
    } else if (text[at] == '~') {
      part = 1;
    } else {
      parts[part] += text[at];
    }
  }
  return ModelFile(parts[0], parts[1]);
}

const std::string aClass = R"(<packagedElement xmi:type="uml:Class" xmi:id="c" name="C"/>)";

// --- Broken files --------------------------------------------------------------------------------

TEST(XmiHostile, AFileThatIsCutOffAnywhereIsRefusedWithALine) {
  const std::string whole = ModelFile(
      "<!-- c --><packagedElement xmi:type='uml:Class' xmi:id=\"c\" name=\"&lt;\xC3\xBC\">\n"
      "<ownedAttribute xmi:id='a'><name>n<![CDATA[x]]></name><type href='#c'/>"
      "<lowerValue xmi:type='uml:LiteralInteger'/></ownedAttribute></packagedElement>\n",
      "<C:CORBAStruct base_Class=\"c\"/>");
  const std::string complete = whole.substr(0, whole.rfind('>'));
  for (std::size_t size = 0; size < complete.size() && !HasFailure(); ++size) {
    SCOPED_TRACE(whole.substr(0, size));
    XmiFiles files;
    files.Write("f", whole.substr(0, size));
    const std::string error = files.ErrorOf("f");
    const auto lines =
        std::count(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size), '\n');
    const bool namesLine = std::atoi(error.c_str() + 2) <= lines + 1;
    EXPECT_TRUE(error == "f: is empty" || (error.starts_with("f:") && namesLine)) << error;
  }
  XmiFiles files;
  EXPECT_EQ(files.Write("f", complete + ">").ErrorOf("f"), "");
}

// --- Entities ------------------------------------------------------------------------------------

TEST(XmiHostile, EntitiesAreNeitherExpandedNorFetched) {
  std::string definitions = "<!ENTITY e0 \"lol\">";
  for (int level = 1; level < 10; ++level) {
    const std::string inner = "&e" + std::to_string(level - 1) + ";";
    definitions += "<!ENTITY e" + std::to_string(level) + " \"" + Times(10, inner) + "\">";
  }
  XmiFiles files;
  files.Write("secret", "a secret");
  definitions += "<!ENTITY secret SYSTEM \"" + files.Path("secret") + "\">";
  const std::string model =
      ModelFile("<packagedElement xmi:type=\"uml:Class\" xmi:id=\"c\" name=\"&e9;&secret;\"/>");
  const std::size_t root = model.find("<xmi:XMI");
  files.Write("f", "<!DOCTYPE x [" + definitions + "]>" + model.substr(root)).Read("f");
  EXPECT_EQ(files["c"].GetValue("Name", 0), "&e9;&secret;");
}

// --- Size and depth ------------------------------------------------------------------------------

#ifdef __OPTIMIZE__
constexpr std::size_t million = 1'000'000;
#else
constexpr std::size_t million = 200'000;  // unoptimised and checked code takes its time
#endif

TEST(XmiHostile, AMillionLevelsAreAnErrorAndTakeNoStack) {
  for (const std::string tag :
       {"packagedElement xmi:type=\"uml:Package\"", "ownedComment", "ownedBehavior", "unknown"}) {
    const std::string name = tag.substr(0, tag.find(' '));
    const auto nested = [&](std::size_t depth) {
      return Times(depth, "<" + tag + ">") + Times(depth, "</" + name + ">");
    };
    EXPECT_NO_THROW(XmiFiles().ReadModel(nested(990)));
    // What a tool has put there for itself is not gone into.
    EXPECT_NO_THROW(XmiFiles().ReadModel("<xmi:Extension>" + nested(5000) + "</xmi:Extension>"));
    for (const bool isClosed : {true, false}) {
      SCOPED_TRACE(name);
      XmiFiles files;
      files.Write("f", ModelFile(isClosed ? nested(million) : Times(million, "<" + tag + ">")));
      support::OnSmallStack([&files, isClosed] {
        EXPECT_THAT(files.ErrorOf("f"), StartsWith(isClosed ? "f:2: elements are nested too deeply"
                                                            : "f:2: is no well-formed XML"));
      });
    }
  }
}

TEST(XmiHostile, AFileThatIsTooLargeIsRefusedBeforeItIsRead) {
  XmiFiles files;
  std::filesystem::resize_file(files.Write("f", "").Path("f"), std::uintmax_t{1} << 42);  // a hole
  EXPECT_EQ(files.ErrorOf("f"), "f: is too large");
}

TEST(XmiHostile, AHugeNameIsReadAndNotRepeatedByDiagnostics) {
  const std::string huge(20 * million, 'n');
  XmiFiles files;
  files.ReadModel("<packagedElement xmi:type=\"uml:Package\" xmi:id=\"p\" name=\"" + huge + "\">" +
                  Numbered(1000,
                           "<packagedElement xmi:type=\"uml:Class\" xmi:id=\"c$\">"
                           "<ownedAttribute name=\"a$\" type=\"nowhere\"/></packagedElement>") +
                  "</packagedElement>");
  EXPECT_EQ(files["p"].GetValue("Name", 0).size(), huge.size());
  EXPECT_EQ(files.Reader().Diagnostics().size(), 1000u);
  for (const xmi::Diagnostic& diagnostic : files.Reader().Diagnostics())
    EXPECT_LT(diagnostic.text.size(), 1000u);
}

TEST(XmiHostile, WhatIsLookedThroughOneByOneMayNotBeMany) {
  const std::string keywords =
      "<packagedElement xmi:type=\"uml:Class\"><eAnnotations source=\"http://www.eclipse.org/uml2/"
      "2.0.0/UML\">{<details key=\"k$\"/>}</eAnnotations></packagedElement>";
  const std::tuple<std::size_t, std::string, std::string> cases[] = {
      {1000, aClass + "~{<C:S$ base_Class=\"c\"/>}", ""},
      {1001, aClass + "~{<C:S$ base_Class=\"c\"/>}",
       "f:2: more than 1000 stereotypes are applied to Class C"},
      {10'000, aClass + "~<C:S base_Class=\"c\">{<t>$</t>}</C:S>", ""},
      {1001, aClass + "~<C:S base_Class=\"c\">{<t$>1</t$>}</C:S>",
       "f:2: a stereotype has more than 1000 tagged values"},
      {1001, aClass + "~<C:S base_Class=\"c\"{ t$=\"1\"}/>",
       "f:2: a stereotype has more than 1000 tagged values"},
      {1000, keywords, ""},
      {1001, keywords, "f:2: there are more than 1000 keywords on one element"},
      {1001, "<ownedComment{ xmlns:n$=\"u\"}/>",
       "f:2: there are more than 1000 namespaces in force"},
  };
  for (const auto& [count, text, error] : cases) {
    XmiFiles files;
    EXPECT_EQ(files.Write("f", Large(count, text)).ErrorOf("f"), error);
  }
}

// --- Cost ----------------------------------------------------------------------------------------

struct CostCase {
  const char* what;
  std::string model;
};

void PrintTo(const CostCase& cost, std::ostream* out) { *out << cost.what; }

std::string InClass(const std::string& members) {
  return "<packagedElement xmi:type=\"uml:Class\">" + members + "</packagedElement>";
}

const CostCase costs[] = {
    {"the same stereotype on one element", aClass + R"(~{<C:S base_Class="c"/>})"},
    {"elements of one stereotype",
     R"({<packagedElement xmi:type="uml:Class" xmi:id="c$"/>}~<C:S base_Class="{c$ }"/>)"},
    {"values of one element",
     InClass(R"(<ownedAttribute>{<upperValue xmi:type="uml:LiteralInteger" value="$"/>}
                </ownedAttribute>)")},
    {"elements of one id", R"({<packagedElement xmi:type="uml:Class" xmi:id="c"/>})"},
    {"references of one element to nowhere",
     InClass(R"(<ownedOperation name="o" raisedException="{x$ }"/>)")},
    {"comments on one element", aClass + R"({<ownedComment annotatedElement="c c" body="$"/>})"},
    {"dependencies of one element",
     R"(<packagedElement xmi:type="uml:Class" xmi:id="c" clientDependency="{d$ }"/>
        {<packagedElement xmi:type="uml:Usage" xmi:id="d$" client="c" supplier="c"/>})"},
    {"realizations of one class, which types many ports",
     R"(<packagedElement xmi:type="uml:Class" xmi:id="c">
          {<interfaceRealization contract="i$" client="c"/>}</packagedElement>
        {<packagedElement xmi:type="uml:Interface" xmi:id="i$"/>})"},
    {"constants that are looked for by name",
     InClass(R"({<ownedAttribute xmi:id="a$" name="a"><upperValue xmi:type="uml:OpaqueExpression">
                 <body>a</body></upperValue></ownedAttribute>})")},
    {"languages of one expression",
     InClass(R"(<ownedAttribute><defaultValue xmi:type="uml:OpaqueExpression">
                {<body>b$</body><language>l</language>}</defaultValue></ownedAttribute>)")},
    {"parts of one text", InClass("<name>{a<!-- b --><![CDATA[$]]>}</name>")},
    {"references to missing files",
     "{" + InClass(R"(<ownedAttribute><type href="http://missing/$#x"/></ownedAttribute>)") + "}"},
    {"types in blocks of a tool's own",
     "{" + InClass(R"(<ownedAttribute type="t$"/>)") +
         R"(}~<xmi:Extension>{<x xmi:id="u$"/>}</xmi:Extension>)"},
};

class XmiCost : public testing::TestWithParam<CostCase> {};

TEST_P(XmiCost, GrowsNoFasterThanTheFile) {
  support::ExpectLinearCost(million / 10, [](std::size_t count) {
    XmiFiles files;
    files.Write("model.uml", Large(count, GetParam().model));
    return support::CostOf([&files] { files.Read(); });
  });
}

TEST(XmiHostile, RootsThatStandInOneAnotherCostNoMoreThanOthers) {
  support::ExpectLinearCost(million / 20, [](std::size_t count) {
    std::string roots;
    for (std::size_t i = 0; i < count; ++i) {
      roots += "<uml:Class xmi:id=\"c" + std::to_string(i) + "\"><nestedClassifier href=\"#c" +
               std::to_string(i + 1) + "\"/></uml:Class>";
    }
    XmiFiles files;
    files.Write("model.uml", support::ModelFile("", roots));
    return support::CostOf([&files] { files.Read(); });
  });
}

INSTANTIATE_TEST_SUITE_P(Shapes, XmiCost, testing::ValuesIn(costs));

}  // namespace
