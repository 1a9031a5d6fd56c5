// The in-memory model, asked through the interface that the agent uses.
#include "model/model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <list>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "host/model_access.h"
#include "tests/support/model_builder.h"
#include "tests/support/xmi_files.h"

namespace {

using model::Element;
using model::Model;
using model::Symbol;
using support::ModelBuilder;
using testing::ElementsAre;
using testing::IsEmpty;

mdk::Changer& changer = mdkdll::defaultChanger;

std::list<mdk::IMdeEntity*> ReferrersOf(mdk::IMdeEntity& element, const std::string& property) {
  std::list<mdk::IMdeEntity*> referrers;
  element.GetReferrers(property, referrers);
  return referrers;
}

/// The text of a tagged value, the metaclass of another answer, "none" without one.
std::string Ask(mdk::IMdeEntity& element, const std::string& expression) {
  mdk::IMdeEntity* answer = element.EvalExpression(expression, 0);
  if (answer == nullptr) return "none";
  if (!answer->IsKindOf("TaggedValue")) return answer->GetMetaclass();
  EXPECT_EQ(answer->GetValue("Name", 0), answer->GetValue("ValueString", 0));
  return answer->GetValue("ValueString", 0);
}

mdk::IMdeModel* ModelOf(mdk::IMdeEntity& element) {
  void* found = &found;
  element.QueryInterface(mdk::IMdeModel::guid, &found);
  return static_cast<mdk::IMdeModel*>(found);
}

TEST(Element, PropertiesKeepTheirKindAndManyFitOnOneElement) {
  Model model;
  Element* elements[3];
  for (Element*& made : elements) made = &model.Create(Symbol("Class"));
  std::vector<std::string> names;
  for (int i = 0; i < 100; ++i) names.push_back(std::to_string(i));
  for (const auto& name : names) {  // by turns, since one takes over memory that another leaves
    for (Element* each : elements) each->SetText(Symbol(name), name);
  }
  for (const auto& name : names) {
    for (Element* each : elements) EXPECT_EQ(each->GetValue(name, 0), name);
  }
  Element& element = *elements[0];
  Element& other = *elements[1];
  element.SetEntity(Symbol("1"), &other);
  EXPECT_EQ(element.GetValue("1", 0), "");
  EXPECT_EQ(element.GetEntity("1", 0), &other);
  element.SetEntity(Symbol("1"), nullptr);
  EXPECT_EQ(element.GetEntity("1", 0), nullptr);
  element.SetEntity(Symbol("Type"), &other);
  EXPECT_EQ(element.GetTarget("Type", 0), &other);
  EXPECT_EQ(element.GetValue("never heard of", 0), "");
  model.SetDefaultText(Symbol("2"), "default");
  model.SetDefaultText(Symbol("unset"), "default");
  EXPECT_EQ(element.GetValue("2", 0), "2");
  EXPECT_EQ(element.GetValue("unset", 0), "default");
  EXPECT_TRUE(element.IsKindOf("Class"));
  EXPECT_FALSE(element.IsKindOf("Classifier"));
}

TEST(Element, ListsGrowAreReplacedByTheirOwnPartsAndAppendToTheResult) {
  ModelBuilder b;
  auto& m = b.Module("M");
  for (const char* name : {"A", "B", "C", "D", "E"}) b.Struct(m, name);
  const auto members = m.Entities(Symbol("OwnedMember"));
  m.SetEntities(Symbol("OwnedMember"), members.subspan(1, 3));
  b.Struct(m, "F");
  std::list<mdk::IMdeEntity*> result{&m};
  m.GetEntities("Comment", result);
  EXPECT_THAT(result, ElementsAre(&m));
  m.GetEntities("OwnedMember", result);
  EXPECT_EQ(result.size(), 5u);
  EXPECT_EQ(support::Names(m, "OwnedMember"), "B C D F");
}

TEST(Expression, OnlyTheExactFormIsRead) {
  ModelBuilder b;
  auto& marked = b.Class(b.Package("P"), "C", "");
  b.Keyword(marked, "import");
  b.Mark(marked, "S", {{"tag", "value"}, {"empty", ""}});
  b.Mark(marked, "case", {{"label", "1"}});
  const std::pair<const char*, std::vector<const char*>> table[] = {
      {"value", {"S (. tag .)", "'S' (. tag .)"}},
      {"1", {"'case' (. label .)", "case (. label .)"}},
      {"false", {"'case' (. isDefault .)"}},
      {"", {"S (. empty .)"}},
      {"StereotypeInstance", {"S (. .)", "'S' (. .)", "case (. .)", "'case' (. .)"}},
      {"Keyword", {"import (. .)", "'import' (. .)"}},
      {"none", {"S (. other .)", "import (. tag .)", "Unknown (. .)", "", "S", "S (.", "S (. ."}},
      {"none",
       {"S(. tag .)", "S (. tag.)", "S (.tag .)", "S (. tag .) ", "S (. tag", " (. .)",
        "S (.  .)"}},
      {"none", {"'' (. .)", "'S (. tag .)", "S' (. tag .)", "'import (. .)"}}};
  for (int time = 0; time < 2; ++time) {  // the second time from what is remembered
    for (const auto& [expected, expressions] : table) {
      for (const char* text : expressions) EXPECT_EQ(Ask(marked, text), expected) << text;
    }
  }
}

TEST(Stereotype, AnswersForItsGenerals) {
  ModelBuilder b;
  auto& m = b.Module("M");
  auto& event = b.Event(m, "E");
  auto& value = b.Value(m, "V");
  const std::tuple<Element*, const char*, bool> table[] = {
      {&event, "CORBAEvent", true}, {&event, "CORBAValue", true},
      {&event, "CORBA", true},      {&event, "CORBAInterface", false},
      {&value, "CORBAValue", true}, {&value, "CORBAEvent", false},
      {&m, "CORBAModule", true},    {&m, "never heard of", false}};
  for (const auto& [element, stereotype, holds] : table) {
    EXPECT_EQ(element->HasStereotype(stereotype, 0), holds) << stereotype;
    EXPECT_EQ(Ask(*element, std::string(stereotype) + " (. .)") != "none", holds) << stereotype;
  }
  EXPECT_FALSE(b.Package("P").HasStereotype("CORBA", 0));
}

TEST(Stereotype, SpecialisationIsTransitiveInAnyOrderOfDeclarationAndMayBeCircular) {
  Model model;
  auto& a = model.Stereotype("A");
  auto& c = model.Stereotype("C");
  model.Specialise(model.Stereotype("B"), c);
  model.Specialise(a, model.Stereotype("B"));
  model.Specialise(c, model.Stereotype("D"));
  model.Specialise(model.Stereotype("D"), c);
  Element& subject = model.Create(Symbol("Class"));
  model.Apply(subject, a);
  for (const char* name : {"A", "B", "C", "D"}) EXPECT_TRUE(subject.HasStereotype(name, 0)) << name;
  EXPECT_FALSE(subject.HasStereotype("CORBA", 0));
}

TEST(Stereotype, TagsComeFromTheApplicationThenFromTheNearestDefault) {
  ModelBuilder b;
  auto& m = b.Module("M");
  auto& event = b.Event(m, "E");
  EXPECT_EQ(Ask(event, "CORBAEvent (. isCustom .)"), "false");
  EXPECT_EQ(Ask(event, "CORBAInterface (. isLocal .)"), "none");
  b.Model().SetTagDefault(b.Model().Stereotype("CORBAEvent"), Symbol("isCustom"), "own");
  EXPECT_EQ(Ask(event, "CORBAValue (. isCustom .)"), "own");
  b.Mark(event, "CORBAValue", {{"isCustom", "true"}});
  EXPECT_EQ(Ask(event, "CORBAValue (. isCustom .)"), "true");
  EXPECT_EQ(Ask(b.Value(m, "V"), "CORBAValue (. isCustom .)"), "false");
}

TEST(Keyword, IsSharedAndCountsAsStereotype) {
  ModelBuilder b;
  auto& m = b.Module("M");
  auto& dependency = b.Depend(b.Struct(m, "S"), m, "access");
  b.Keyword(dependency, "access");
  EXPECT_EQ(support::Names(dependency, "Keyword"), "access");
  EXPECT_TRUE(dependency.HasStereotype("access", 0));
  EXPECT_FALSE(dependency.HasStereotype("import", 0));
  EXPECT_EQ(dependency.EvalExpression("access (. .)", 0),
            b.Depend(m, m, "access").EvalExpression("'access' (. .)", 0));
}

TEST(Referrers, StandInCreationOrderAndFollowChanges) {
  ModelBuilder b;
  auto& a = b.Module("A");
  auto& c = b.Module("C");
  auto& first = b.Depend(c, a);
  auto& second = b.Depend(a, a);
  EXPECT_THAT(ReferrersOf(a, "Supplier"), ElementsAre(&first, &second));
  EXPECT_THAT(ReferrersOf(c, "Supplier"), IsEmpty());
  first.SetEntity(Symbol("Supplier"), &c);
  auto& third = b.Depend(c, a);
  EXPECT_THAT(ReferrersOf(a, "Supplier"), ElementsAre(&second, &third));
  EXPECT_THAT(ReferrersOf(c, "Supplier"), ElementsAre(&first));
  second.Delete(changer);
  EXPECT_THAT(ReferrersOf(a, "Supplier"), ElementsAre(&third));
  auto& operation = b.Operation(a, "f");
  b.Raises(b.Raises(operation, c), c);
  EXPECT_THAT(ReferrersOf(c, "RaisedException"), ElementsAre(&operation)) << "lists refer once";
}

TEST(Delete, IsForgottenEverywhere) {
  ModelBuilder b;
  auto& m = b.Module("M");
  auto& s = b.Struct(m, "S");
  auto& t = b.Struct(m, "T");
  auto& user = b.Attribute(t, "x", s);
  const auto* application = s.Application(Symbol("CORBAStruct"));
  s.Delete(changer);
  s.Delete(changer);
  EXPECT_EQ(support::Names(m, "OwnedMember"), "T");
  EXPECT_EQ(user.GetEntity("Type", 0), nullptr);
  EXPECT_EQ(b.Model().FindEntity("@M@S"), nullptr);
  EXPECT_THAT(ReferrersOf(b.Model().Stereotype("CORBAStruct"), "InstanceOf"),
              testing::Not(testing::Contains(application)));
  m.Delete(changer);
  EXPECT_THAT(b.Model().Roots(), IsEmpty());
  b.Model().Stereotype("CORBAStruct").Delete(changer);
  EXPECT_FALSE(t.HasStereotype("CORBAStruct", 0));
  EXPECT_TRUE(b.Struct(m, "U").HasStereotype("CORBAStruct", 0)) << "made anew";
}

TEST(FindEntity, FollowsNamesAndSeesWhatIsAddedLater) {
  ModelBuilder b;
  auto& model = b.Model();
  auto& m = b.Module("M");
  auto& twin = b.Module("M");
  b.Package("");
  EXPECT_EQ(model.FindEntity("@M@S"), nullptr);
  auto& s = b.Struct(twin, "S");
  EXPECT_EQ(model.FindEntity("@M@S"), &s);
  EXPECT_EQ(model.FindEntity("@M"), &m);
  EXPECT_EQ(model.FindEntity("@CORBA@Late"), nullptr);
  EXPECT_EQ(model.FindEntity("@CORBA@CORBA"), &model.Stereotype("CORBA"));
  auto& late = model.Stereotype("Late");
  EXPECT_EQ(model.FindEntity("@CORBA@Late"), &late);
  auto& own = b.Make(b.Package("CORBA"), "Class", "Own");
  EXPECT_EQ(model.FindEntity("@CORBA@Own"), &own);
  for (const char* name : {"", "@", "M", "@S", "@M@", "@M@S@S", "M@S", "@@M"}) {
    EXPECT_EQ(model.FindEntity(name), nullptr) << name;
  }
}

TEST(Session, IsOnePerModelAndAloneGivesTheModel) {
  ModelBuilder b, other;
  auto& m = b.Module("M");
  auto* session = m.GetEntity("Session", 0);
  EXPECT_EQ(session, &b.Model().Session());
  EXPECT_EQ(session, b.Struct(m, "S").GetEntity("Session", 0));
  EXPECT_NE(session, other.Module("M").GetEntity("Session", 0));
  EXPECT_EQ(ModelOf(*session), &b.Model());
  EXPECT_EQ(ModelOf(m), nullptr);
  void* unknown = &m;
  session->QueryInterface(mdk::InterfaceId{}, &unknown);
  EXPECT_EQ(unknown, nullptr);
}

TEST(Failure, ThrowsATextAndKeepsIt) {
  ModelBuilder b, other;
  auto& m = b.Module("M");
  const auto node = b.Model().Stereotype("Node").GetDefinitionRef();
  const auto foreign = other.Model().Stereotype("Node").GetDefinitionRef();
  const std::pair<std::function<void()>, const char*> table[] = {
      {[&] { m.SetExpression("Node (. node .)", "1", 1, changer); },
       "Node is not applied to \"M\""},
      {[&] { m.SetExpression("CORBAModule (. .)", "1", 1, changer); }, "names no tagged value"},
      {[&] { m.SetExpression("nonsense", "1", 1, changer); }, "nonsense"},
      {[&] { m.AddEntity("StereotypeInstance", nullptr, 0, changer); }, "no stereotype to apply"},
      {[&] { m.AddEntity("OwnedMember", node, 0, changer); }, "OwnedMember"},
      {[&] { m.AddEntity("StereotypeInstance", foreign, 0, changer); }, "not a stereotype of this"},
      {[&] { m.AddEntity("StereotypeInstance", &m, 0, changer); }, "not a stereotype of this"},
      {[&] { b.Model().Session().Delete(changer); }, "session"}};
  for (const auto& [call, expected] : table) {
    EXPECT_THROW(call(), const char*) << expected;
    const char* text = nullptr;
    EXPECT_EQ(mdk::GetAPIErrorMessage(text), text);
    EXPECT_THAT(text, testing::HasSubstr(expected));
  }
  EXPECT_EQ(m.Entities(Symbol("StereotypeInstance")).size(), 1u);
}

}  // namespace
