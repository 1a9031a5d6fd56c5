// Files that were made to hurt: they end with a clear error or are read, in time and memory that
// their size explains.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <string>

#include "tests/support/small_stack.h"
#include "tests/support/xmi_files.h"

namespace {

using support::ModelFile;
using support::XmiFiles;
using testing::HasSubstr;
using testing::StartsWith;

std::string Times(std::size_t count, const std::string& text) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) all += text;
  return all;
}

/// The text once for each number below `count`, with the number in each place of a "$".
std::string Numbered(std::size_t count, const std::string& text) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) {
    for (const char c : text) c == '$' ? all += std::to_string(i) : all += c;
  }
  return all;
}

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

TEST(XmiHostile, BytesThatAreNoTextAreRefusedWithTheirLine) {
  using namespace std::string_literals;
  const std::string open = "<?xml version=\"1.0\" encoding=\"$\"?>\n<uml:Model name=\"";
  const auto declared = [&](const std::string& encoding, const std::string& name) {
    return support::Replaced(open, "$", encoding) + name + "\" xmi:id=\"r\" " +
           std::string(support::kNamespaces) + "/>";
  };
  const std::string cases[] = {
      declared("UTF-8", "a\0b"s),
      declared("UTF-8", "\xFF"),
      declared("UTF-8", "\xC3"),
      declared("UTF-8", "\xC0\x80"),
      declared("UTF-8", "\xED\xA0\x80"),
      declared("UTF-8", "\xF5\x80\x80\x80"),
      declared("US-ASCII", "\xE9"),
      declared("EBCDIC-CP-US", "x"),
      "\xFF\xFE<"s,
      "\xFF\xFE\x00\xD8<\x00"s,
      std::string(100, '\0'),
  };
  for (const std::string& bytes : cases) {
    SCOPED_TRACE(bytes);
    XmiFiles files;
    const std::string error = files.Write("f", bytes).ErrorOf("f");
    EXPECT_THAT(error, StartsWith("f"));
  }
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
       {"packagedElement xmi:type=\"uml:Package\"", "ownedComment", "upperValue", "unknown"}) {
    const std::string name = tag.substr(0, tag.find(' '));
    for (const bool isClosed : {true, false}) {
      SCOPED_TRACE(name);
      XmiFiles files;
      files.Write("f", ModelFile(Times(million, "<" + tag + ">") +
                                 (isClosed ? Times(million, "</" + name + ">") : "")));
      support::OnSmallStack([&files, isClosed] {
        const std::string error = files.ErrorOf("f");
        EXPECT_THAT(error, StartsWith("f:"));
        EXPECT_THAT(error, HasSubstr(isClosed ? "nested" : "no well-formed XML"));
      });
    }
  }
}

TEST(XmiHostile, AHugeNameIsReadAndNotRepeatedByRemarks) {
  const std::string huge(20 * million, 'n');
  XmiFiles files;
  files.ReadModel("<packagedElement xmi:type=\"uml:Package\" xmi:id=\"p\" name=\"" + huge + "\">" +
                  Numbered(1000,
                           "<packagedElement xmi:type=\"uml:Class\" xmi:id=\"c$\">"
                           "<ownedAttribute name=\"a$\" type=\"nowhere\"/></packagedElement>") +
                  "</packagedElement>");
  EXPECT_EQ(files["p"].GetValue("Name", 0).size(), huge.size());
  EXPECT_EQ(files.Reader().Remarks().size(), 1000u);
  for (const xmi::Remark& remark : files.Reader().Remarks()) EXPECT_LT(remark.text.size(), 1000u);
}

TEST(XmiHostile, WhatIsLookedThroughOneByOneMayNotBeMany) {
  const std::string aClass = "<packagedElement xmi:type=\"uml:Class\" xmi:id=\"c\" name=\"C\"/>";
  const auto keywords = [](std::size_t count) {
    return ModelFile(
        "<packagedElement xmi:type=\"uml:Class\"><eAnnotations "
        "source=\"http://www.eclipse.org/uml2/2.0.0/UML\">" +
        Numbered(count, "<details key=\"k$\"/>") + "</eAnnotations></packagedElement>");
  };
  const std::pair<std::string, std::string> cases[] = {
      {ModelFile(aClass, Numbered(1000, "<C:S$ base_Class=\"c\"/>")), ""},
      {ModelFile(aClass, Numbered(1001, "<C:S$ base_Class=\"c\"/>")),
       "f:2: more than 1000 stereotypes are applied to Class C"},
      {ModelFile(aClass, "<C:S base_Class=\"c\">" + Numbered(10'000, "<t>$</t>") + "</C:S>"), ""},
      {ModelFile(aClass, "<C:S base_Class=\"c\">" + Numbered(1001, "<t$>1</t$>") + "</C:S>"),
       "f:2: a stereotype has more than 1000 tagged values"},
      {ModelFile(aClass, "<C:S base_Class=\"c\"" + Numbered(1001, " t$=\"1\"") + "/>"),
       "f:2: a stereotype has more than 1000 tagged values"},
      {keywords(1000), ""},
      {keywords(1001), "f:2: there are more than 1000 keywords on one element"},
      {ModelFile("<ownedComment" + Numbered(1001, " xmlns:n$=\"u\"") + "/>"),
       "f:2: there are more than 1000 namespaces in force"},
  };
  for (const auto& [text, error] : cases) {
    XmiFiles files;
    EXPECT_EQ(files.Write("f", text).ErrorOf("f"), error);
  }
}

// --- Cost ----------------------------------------------------------------------------------------

struct CostCase {
  const char* what;
  std::string (*make)(std::size_t count);
};

void PrintTo(const CostCase& cost, std::ostream* out) { *out << cost.what; }

const std::string aClass = "<packagedElement xmi:type=\"uml:Class\" xmi:id=\"c\" name=\"C\"/>";

constexpr CostCase costs[] = {
    {"the same stereotype on one element",
     [](std::size_t n) { return ModelFile(aClass, Numbered(n, "<C:S base_Class=\"c\"/>")); }},
    {"elements of one stereotype",
     [](std::size_t n) {
       return ModelFile(Numbered(n, "<packagedElement xmi:type=\"uml:Class\" xmi:id=\"c$\"/>"),
                        "<C:S base_Class=\"" + Numbered(n, "c$ ") + "\"/>");
     }},
    {"values of one element",
     [](std::size_t n) {
       return ModelFile("<packagedElement xmi:type=\"uml:Class\"><ownedAttribute>" +
                        Numbered(n, "<upperValue xmi:type=\"uml:LiteralInteger\" value=\"$\"/>") +
                        "</ownedAttribute></packagedElement>");
     }},
    {"elements of one id",
     [](std::size_t n) {
       return ModelFile(Numbered(n, "<packagedElement xmi:type=\"uml:Class\" xmi:id=\"c\"/>"));
     }},
    {"references of one element to nowhere",
     [](std::size_t n) {
       return ModelFile(
           "<packagedElement xmi:type=\"uml:Class\"><ownedOperation name=\"o\""
           " raisedException=\"" +
           Numbered(n, "x$ ") + "\"/></packagedElement>");
     }},
    {"comments on one element",
     [](std::size_t n) {
       return ModelFile(aClass +
                        Numbered(n, "<ownedComment annotatedElement=\"c c\" body=\"$\"/>"));
     }},
    {"dependencies of one element",
     [](std::size_t n) {
       return ModelFile(
           "<packagedElement xmi:type=\"uml:Class\" xmi:id=\"c\" clientDependency=\"" +
           Numbered(n, "d$ ") + "\"/>" +
           Numbered(n,
                    "<packagedElement xmi:type=\"uml:Usage\" xmi:id=\"d$\" client=\"c\" "
                    "supplier=\"c\"/>"));
     }},
    {"realizations of one class, which types many ports",
     [](std::size_t n) {
       return ModelFile("<packagedElement xmi:type=\"uml:Class\" xmi:id=\"c\">" +
                        Numbered(n, "<interfaceRealization contract=\"i$\" client=\"c\"/>") +
                        "</packagedElement>" +
                        Numbered(n, "<packagedElement xmi:type=\"uml:Interface\" xmi:id=\"i$\"/>"));
     }},
    {"constants that are looked for by name",
     [](std::size_t n) {
       return ModelFile("<packagedElement xmi:type=\"uml:Class\" xmi:id=\"c\">" +
                        Numbered(n,
                                 "<ownedAttribute xmi:id=\"a$\" name=\"a\"><upperValue "
                                 "xmi:type=\"uml:OpaqueExpression\"><body>a</body></upperValue>"
                                 "</ownedAttribute>") +
                        "</packagedElement>");
     }},
    {"languages of one expression",
     [](std::size_t n) {
       return ModelFile(
           "<packagedElement xmi:type=\"uml:Class\"><ownedAttribute><defaultValue "
           "xmi:type=\"uml:OpaqueExpression\">" +
           Numbered(n, "<body>b$</body><language>l</language>") +
           "</defaultValue></ownedAttribute></packagedElement>");
     }},
    {"parts of one text",
     [](std::size_t n) {
       return ModelFile("<packagedElement xmi:type=\"uml:Class\"><name>" +
                        Numbered(n, "a<!-- b --><![CDATA[$]]>") + "</name></packagedElement>");
     }},
    {"references to missing files",
     [](std::size_t n) {
       return ModelFile(
           Numbered(n,
                    "<packagedElement xmi:type=\"uml:Class\"><ownedAttribute><type "
                    "href=\"http://missing/$#x\"/></ownedAttribute></packagedElement>"));
     }},
    {"types in blocks of a tool's own",
     [](std::size_t n) {
       return ModelFile(Numbered(n,
                                 "<packagedElement xmi:type=\"uml:Class\"><ownedAttribute "
                                 "type=\"t$\"/></packagedElement>"),
                        "<xmi:Extension>" + Numbered(n, "<x xmi:id=\"u$\"/>") + "</xmi:Extension>");
     }},
};

class XmiCost : public testing::TestWithParam<CostCase> {};

std::clock_t CostOf(const std::string& text) {
  std::clock_t least = 0;
  for (int round = 0; round < 2; ++round) {
    XmiFiles files;
    files.Write("model.uml", text);
    const std::clock_t start = std::clock();  // of this process, whatever else the machine does
    files.Read();
    const std::clock_t cost = std::clock() - start;
    least = round == 0 ? cost : std::min(least, cost);
  }
  return least;
}

TEST_P(XmiCost, GrowsNoFasterThanTheFile) {
  constexpr std::size_t few = million / 100;
  constexpr std::size_t times = 8;
  constexpr std::clock_t margin = 3;  // what grows with the square would take eight times more
  const std::clock_t cost = CostOf(GetParam().make(few));
  EXPECT_LT(CostOf(GetParam().make(times * few)), margin * static_cast<std::clock_t>(times) * cost);
}

INSTANTIATE_TEST_SUITE_P(Shapes, XmiCost, testing::ValuesIn(costs));

}  // namespace
